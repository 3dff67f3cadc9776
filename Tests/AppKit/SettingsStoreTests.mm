#import "RecordingHost.h"
#import "SettingsStore.h"

#include "StringBridging.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace appkitglue;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Stores : public testing::Test {
protected:
    Stores() {
        [host.get() answerWith:test::distinctSettings()];
        provider->setup(host.get());
    }

    /// The keys of the messages that the host got.
    std::vector<std::string> keys() const {
        std::vector<std::string> result;
        for (const SettingsPayload &change : host.get()->changes) {
            result.push_back(change.affectedKey.value_or("none"));
        }
        return result;
    }

    RetainPtr<RecordingHost> host = test::makeHost();
    std::shared_ptr<RoutingSettingsProvider> provider = std::make_shared<RoutingSettingsProvider>();
    SettingsStore store{provider};
};

} // namespace

class GeneralStoreTests : public Stores {};
class EditorStoreTests : public Stores {};
class PresenterStoreTests : public Stores {};

TEST_F(GeneralStoreTests, ReadsTheRecord) {
    EXPECT_FALSE(store.general.samplePresentation());
    EXPECT_EQ(store.general.theme(), "Paper");
    EXPECT_EQ(store.general.appearance(), "auto");
    EXPECT_EQ(store.general.slideSize(), "4:3");
    EXPECT_THAT(store.general.allThemes(), ElementsAre("Paper", "Ink", "Plain"));
    EXPECT_THAT(store.general.allAppearances(), ElementsAre("light", "dark", "auto"));
    EXPECT_THAT(store.general.allSlideSizes(), ElementsAre("4:3", "16:9"));
}

TEST_F(GeneralStoreTests, SendsOneMessageForEachWrite) {
    store.general.setSamplePresentation(true);
    store.general.setTheme("Ink");
    store.general.setAppearance("dark");
    store.general.setSlideSize("16:9");
    EXPECT_THAT(keys(),
                ElementsAre("generalSamplePresentation", "generalTheme", "generalAppearance", "generalSlideSize"));
    SettingsPayload expected = test::distinctSettings();
    expected.affectedKey = "generalSlideSize";
    expected.generalSamplePresentation = true;
    expected.generalTheme = "Ink";
    expected.generalAppearance = "dark";
    expected.generalSlideSize = "16:9";
    EXPECT_EQ(host.get()->changes.back(), expected);
}

TEST_F(GeneralStoreTests, FindsThePreviewsOfTheSelectedTheme) {
    EXPECT_THAT(store.general.previewPaths(), ElementsAre("/previews/paper-1.png", "/previews/paper-2.png"));
}

TEST_F(GeneralStoreTests, HasNoPreviewsForAThemeWithoutEntry) {
    store.general.setTheme("Plain");
    EXPECT_THAT(store.general.previewPaths(), IsEmpty());
}

TEST_F(GeneralStoreTests, SeesWhatAnotherStoreWrites) {
    SettingsStore other(provider);
    other.general.setTheme("Ink");
    EXPECT_EQ(store.general.theme(), "Ink");
}

TEST_F(GeneralStoreTests, KeepsTheProviderAlive) {
    const std::weak_ptr<RoutingSettingsProvider> weak = provider;
    provider.reset();
    EXPECT_FALSE(weak.expired());
    EXPECT_EQ(store.general.theme(), "Paper");
}

TEST_F(EditorStoreTests, ReadsTheFontAtItsSize) {
    NSFont *known = [NSFont userFontOfSize:21];
    store.editor.setFont(known);
    EXPECT_EQ(toUTF8([store.editor.font().get() fontName]), toUTF8([known fontName]));
    EXPECT_EQ([store.editor.font().get() pointSize], 21);
}

TEST_F(EditorStoreTests, ReadsAnUnknownFontAsTheSystemFontAndKeepsItsName) {
    provider->update(&SettingsPayload::editorFontName, std::string("NoSuchFont-Regular"), SettingsKeys::editorFontName);
    EXPECT_EQ(toUTF8([store.editor.font().get() fontName]),
              toUTF8([[NSFont systemFontOfSize:[NSFont systemFontSize]] fontName]));
    EXPECT_EQ([store.editor.font().get() pointSize], [NSFont systemFontSize]);
    EXPECT_EQ(provider->settings().editorFontName, "NoSuchFont-Regular");
}

TEST_F(EditorStoreTests, ReadsAnEmptyFontNameAsTheSystemFont) {
    provider->update(&SettingsPayload::editorFontName, std::string(), SettingsKeys::editorFontName);
    EXPECT_EQ([store.editor.font().get() pointSize], [NSFont systemFontSize]);
}

TEST_F(EditorStoreTests, SendsTheFontsNameThenItsSize) {
    NSFont *font = [NSFont userFontOfSize:18];
    store.editor.setFont(font);
    ASSERT_THAT(keys(), ElementsAre("editorFontName", "editorFontSize"));
    const auto &changes = host.get()->changes;
    EXPECT_EQ(changes[0].editorFontName, toUTF8([font fontName]));
    EXPECT_EQ(changes[0].editorFontSize, 13.5);
    EXPECT_EQ(changes[1].editorFontName, toUTF8([font fontName]));
    EXPECT_EQ(changes[1].editorFontSize, 18);
}

TEST_F(EditorStoreTests, SendsTwoMessagesForAFontOfTheSameSize) {
    store.editor.setFont([NSFont userFontOfSize:13.5]);
    EXPECT_THAT(keys(), ElementsAre("editorFontName", "editorFontSize"));
}

TEST_F(EditorStoreTests, ReadsAndWritesTheTheme) {
    EXPECT_EQ(store.editor.theme(), "Dusk");
    EXPECT_THAT(store.editor.allThemes(), ElementsAre("Dusk", "Dawn"));
    store.editor.setTheme("Dawn");
    EXPECT_THAT(keys(), ElementsAre("editorTheme"));
    EXPECT_EQ(host.get()->changes.back().editorTheme, "Dawn");
}

TEST_F(PresenterStoreTests, ReadsAndWritesTheCheckBoxes) {
    EXPECT_TRUE(store.presenter.presenterMode());
    EXPECT_TRUE(store.presenter.exitAfterLastSlide());
    EXPECT_FALSE(store.presenter.muteVideos());
    store.presenter.setPresenterMode(false);
    store.presenter.setExitAfterLastSlide(false);
    store.presenter.setMuteVideos(true);
    EXPECT_THAT(keys(), ElementsAre("presenterActive", "presenterExitLastSlide", "presenterMuteVideos"));
    EXPECT_FALSE(store.presenter.presenterMode());
    EXPECT_FALSE(store.presenter.exitAfterLastSlide());
    EXPECT_TRUE(store.presenter.muteVideos());
}

TEST_F(PresenterStoreTests, SendsNothingForTheScreenNames) {
    store.presenter.setSlideshowScreenName("Projector  1920×1080");
    store.presenter.setPresenterScreenName("Desk Main 1440×900");
    EXPECT_THAT(keys(), IsEmpty());
    EXPECT_EQ(store.presenter.slideshowScreenName(), "Projector  1920×1080");
    EXPECT_EQ(store.presenter.presenterScreenName(), "Desk Main 1440×900");
    EXPECT_EQ(provider->currentDisplayConfiguration().names.slideshow, "Projector  1920×1080");
    EXPECT_EQ(provider->currentDisplayConfiguration().names.presenter, "Desk Main 1440×900");
}

TEST_F(PresenterStoreTests, OffersTheConnectedDisplays) {
    EXPECT_EQ(store.presenter.allScreens(), provider->availableScreenNames());
    EXPECT_EQ(store.presenter.allScreens().size(), [[NSScreen screens] count]);
}

TEST_F(PresenterStoreTests, AppliesTheChosenPair) {
    const std::string name = store.presenter.allScreens().at(0);
    store.presenter.setSlideshowScreenName(name);
    store.presenter.setPresenterScreenName(name);
    EXPECT_FALSE(provider->currentDisplayConfiguration().screens);
    store.presenter.applyScreens();
    ASSERT_TRUE(provider->currentDisplayConfiguration().screens);
    EXPECT_EQ(provider->slideshowScreen(), [[NSScreen screens] objectAtIndex:0]);
    EXPECT_THAT(keys(), IsEmpty());
}
