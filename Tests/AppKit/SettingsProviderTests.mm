#import "PreferencesManager.h"
#import "RecordingHost.h"

#include "StringBridging.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <limits>

using namespace appkitglue;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::KilledBySignal;

namespace {

const char *const refusal =
    "AppKitGlue/PreferencesManager:121: Fatal error: The delegate has to conform to these three selectors\n";

} // namespace

TEST(RoutingSettingsProvider, StartsUnboundWithTheDefaults) {
    RoutingSettingsProvider provider;
    EXPECT_EQ(provider.settings(), SettingsPayload::defaultSettings());
    EXPECT_EQ(provider.currentDisplayConfiguration().names.presenter, "");
    EXPECT_EQ(provider.currentDisplayConfiguration().names.slideshow, "");
    EXPECT_FALSE(provider.currentDisplayConfiguration().screens);
}

TEST(RoutingSettingsProvider, IsSharedByTheProcess) {
    EXPECT_NE(RoutingSettingsProvider::shared(), nullptr);
    EXPECT_EQ(RoutingSettingsProvider::shared(), RoutingSettingsProvider::shared());
}

TEST(RoutingSettingsProvider, ReadsTheHostOnceForEachBinding) {
    const auto host = test::makeHost();
    [host.get() answerWith:test::distinctSettings()];
    RoutingSettingsProvider provider;
    provider.setup(host.get());
    EXPECT_EQ(provider.settings(), test::distinctSettings());
    provider.update(&SettingsPayload::presenterActive, false, SettingsKeys::presenterActive);
    EXPECT_EQ(host.get()->reads, 1);

    SettingsPayload other;
    other.editorTheme = "Dawn";
    [host.get() answerWith:other];
    EXPECT_EQ(provider.settings().editorTheme, "Dusk");
    provider.setup(host.get());
    EXPECT_EQ(host.get()->reads, 2);
    EXPECT_EQ(provider.settings(), other);
}

TEST(RoutingSettingsProvider, BindingSendsNothing) {
    const auto host = test::makeHost();
    RoutingSettingsProvider provider;
    provider.setup(host.get());
    EXPECT_TRUE(host.get()->changes.empty());
}

TEST(RoutingSettingsProvider, SendsTheWholeRecordWithTheChangedKey) {
    const auto host = test::makeHost();
    [host.get() answerWith:test::distinctSettings()];
    RoutingSettingsProvider provider;
    provider.setup(host.get());
    provider.update(&SettingsPayload::presenterMuteVideos, true, SettingsKeys::presenterMuteVideos);

    SettingsPayload expected = test::distinctSettings();
    expected.affectedKey = "presenterMuteVideos";
    expected.presenterMuteVideos = true;
    EXPECT_THAT(host.get()->changes, ElementsAre(expected));
    // The local copy keeps the key that the host had loaded.
    EXPECT_EQ(provider.settings().affectedKey, "editorTheme");
    EXPECT_TRUE(provider.settings().presenterMuteVideos);
}

TEST(RoutingSettingsProvider, SendsOneMessageForEachKindOfValue) {
    const auto host = test::makeHost();
    RoutingSettingsProvider provider;
    provider.setup(host.get());
    provider.update(&SettingsPayload::generalSamplePresentation, false, SettingsKeys::generalSamplePresentation);
    provider.update(&SettingsPayload::editorTheme, std::string("Dusk"), SettingsKeys::editorTheme);
    provider.update(&SettingsPayload::editorFontSize, 18.0, SettingsKeys::editorFontSize);
    const auto &changes = host.get()->changes;
    ASSERT_EQ(changes.size(), 3U);
    EXPECT_EQ(changes[0].affectedKey, "generalSamplePresentation");
    EXPECT_EQ(changes[1].affectedKey, "editorTheme");
    EXPECT_EQ(changes[2].affectedKey, "editorFontSize");
    EXPECT_FALSE(changes[2].generalSamplePresentation);
    EXPECT_EQ(changes[2].editorTheme, "Dusk");
    EXPECT_EQ(changes[2].editorFontSize, 18.0);
}

TEST(RoutingSettingsProvider, SendsTheMembersInTheRecordsOrder) {
    const auto host = test::makeHost();
    RoutingSettingsProvider provider;
    provider.setup(host.get());
    provider.update(&SettingsPayload::generalTheme, std::string("Ink"), SettingsKeys::generalTheme);
    EXPECT_EQ(
        host.get()->lastMessage,
        R"({"affectedKey":"generalTheme","generalSamplePresentation":true,"generalTheme":"Ink",)"
        R"("generalSlideSize":"","generalAppearance":"","editorFontName":"","editorFontSize":14,"editorTheme":"",)"
        R"("presenterActive":true,"presenterExitLastSlide":true,"presenterMuteVideos":false,"allPreviewPaths":{},)"
        R"("allGeneralThemes":[],"allGeneralSizes":[],"allAppearances":[],"allEditorThemes":[]})");
}

TEST(RoutingSettingsProvider, UpdatesOnlyTheLocalCopyWhileUnbound) {
    RoutingSettingsProvider provider;
    provider.update(&SettingsPayload::editorFontSize, 20.0, SettingsKeys::editorFontSize);
    SettingsPayload expected;
    expected.editorFontSize = 20;
    EXPECT_EQ(provider.settings(), expected);
}

TEST(RoutingSettingsProvider, AnotherBindingTakesTheChangesOver) {
    const auto first = test::makeHost();
    const auto second = test::makeHost();
    RoutingSettingsProvider provider;
    provider.setup(first.get());
    provider.setup(second.get());
    provider.update(&SettingsPayload::presenterActive, false, SettingsKeys::presenterActive);
    EXPECT_TRUE(first.get()->changes.empty());
    EXPECT_EQ(second.get()->changes.size(), 1U);
}

TEST(RoutingSettingsProvider, KeepsTheDelegateUntilAnotherIsBound) {
    RoutingSettingsProvider provider;
    auto first = test::makeHost();
    const auto second = test::makeHost();
    const NSUInteger before = [first.get() retainCount];
    @autoreleasepool {
        provider.setup(first.get());
    }
    EXPECT_GT([first.get() retainCount], before);
    @autoreleasepool {
        provider.setup(second.get());
    }
    EXPECT_EQ([first.get() retainCount], before);
}

TEST(RoutingSettingsProvider, MayBeBoundAgainWhileItSends) {
    RoutingSettingsProvider provider;
    auto first = test::makeHost();
    const auto second = test::makeHost();
    [second.get() answerWith:test::distinctSettings()];
    provider.setup(first.get());
    first.get()->whileCalled = [&provider, &second] { provider.setup(second.get()); };
    provider.update(&SettingsPayload::presenterActive, false, SettingsKeys::presenterActive);
    EXPECT_EQ(first.get()->changes.size(), 1U);
    EXPECT_EQ(provider.settings(), test::distinctSettings());
}

class RoutingSettingsProviderStops : public testing::Test {
protected:
    RoutingSettingsProviderStops() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    void expectDecodingStop(id values, const std::string &message) {
        const auto host = test::makeHost();
        host.get()->values = RetainPtr<id>(values);
        RoutingSettingsProvider provider;
        EXPECT_EXIT(provider.setup(host.get()), KilledBySignal(SIGABRT),
                    HasSubstr("AppKitGlue/PreferencesManager:134: Fatal error: " + message));
    }
};

TEST_F(RoutingSettingsProviderStops, ForADelegateThatCannotBeRead) {
    const auto host = test::makeHost();
    host.get()->missing = @selector(preferenceValues);
    RoutingSettingsProvider provider;
    EXPECT_EXIT(provider.setup(host.get()), KilledBySignal(SIGABRT), HasSubstr(refusal));
}

TEST_F(RoutingSettingsProviderStops, ForADelegateThatCannotBeWrittenEvenIfItCanBeRead) {
    const auto host = test::makeHost();
    host.get()->missing = @selector(setPreferencesValues:);
    RoutingSettingsProvider provider;
    EXPECT_EXIT(provider.setup(host.get()), KilledBySignal(SIGABRT), HasSubstr(refusal));
}

TEST_F(RoutingSettingsProviderStops, ForNoDelegate) {
    RoutingSettingsProvider provider;
    EXPECT_EXIT(provider.setup(nil), KilledBySignal(SIGABRT), HasSubstr(refusal));
}

TEST_F(RoutingSettingsProviderStops, ForADelegateThatAnswersNothing) {
    expectDecodingStop(nil, "");
}

TEST_F(RoutingSettingsProviderStops, ForADelegateThatAnswersNoData) {
    expectDecodingStop(@"{}", "");
}

TEST_F(RoutingSettingsProviderStops, ForARecordThatLacksAMember) {
    const std::string whole = SettingsPayload::defaultSettings().encode().value();
    const std::string member = R"("editorTheme":"",)";
    std::string text = whole;
    text.erase(text.find(member), member.size());
    const std::string error = SettingsPayload::decode(text).error().description();
    EXPECT_THAT(error, HasSubstr("editorTheme"));
    expectDecodingStop(toNSData(text), error + "\n");
}

TEST_F(RoutingSettingsProviderStops, ForANumberThatCannotBeEncoded) {
    RoutingSettingsProvider provider;
    EXPECT_EXIT(provider.update(&SettingsPayload::editorFontSize, std::numeric_limits<double>::infinity(),
                                SettingsKeys::editorFontSize),
                KilledBySignal(SIGABRT), HasSubstr("AppKitGlue/PreferencesManager:153: Fatal error: "));
}

TEST_F(RoutingSettingsProviderStops, ForATextThatCannotBeEncoded) {
    const auto host = test::makeHost();
    RoutingSettingsProvider provider;
    provider.setup(host.get());
    EXPECT_EXIT(provider.update(&SettingsPayload::editorTheme, std::string("\xff"), SettingsKeys::editorTheme),
                KilledBySignal(SIGABRT), HasSubstr("AppKitGlue/PreferencesManager:153: Fatal error: "));
}
