#import "PreferencesWindowFixture.h"
#import "TestSupport.h"

#import "QVAppKitController.h"

#include "StringBridging.h"

#include <gmock/gmock.h>

using namespace appkitglue;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PreferencesWindow : public test::PreferencesWindowFixture {};

TEST_F(PreferencesWindow, OpensOnTheGeneralTab) {
    open();
    EXPECT_EQ(toUTF8([window() title]), "Preferences");
    EXPECT_EQ(selectedTab(), "general");
    EXPECT_EQ(selectedItem(), 0);
    EXPECT_FALSE([window() isReleasedWhenClosed]);
    EXPECT_THAT(host.get()->changes, IsEmpty());
}

TEST_F(PreferencesWindow, IsReplacedWhenItIsOpenedAgain) {
    open();
    const auto first = retainPtr(window());
    press("Editor");
    [QVAppKitController showPreferences];
    EXPECT_FALSE([first.get() isVisible]);
    EXPECT_NE(window(), first.get());
    EXPECT_TRUE(test::runUntil([&] { return test::visibleWindows("Preferences").size() == 1; }));
    EXPECT_EQ(selectedTab(), "general");
}

TEST_F(PreferencesWindow, OpensOnAboutOneTurnLater) {
    bind(settings());
    [QVAppKitController showAboutScreen];
    EXPECT_EQ(selectedTab(), "general");
    EXPECT_EQ(selectedItem(), 0);
    EXPECT_TRUE(test::runUntil([] { return selectedTab() == "about"; }));
    EXPECT_EQ(selectedItem(), 3);
}

TEST_F(PreferencesWindow, SelectsTabsFromItsToolbar) {
    open();
    press("Editor");
    EXPECT_EQ(selectedTab(), "editor");
    EXPECT_EQ(selectedItem(), 1);
    press("Slideshow");
    EXPECT_EQ(selectedTab(), "presenter");
    EXPECT_EQ(selectedItem(), 2);
    press("About");
    EXPECT_EQ(selectedTab(), "about");
    press("General");
    EXPECT_EQ(selectedTab(), "general");
    EXPECT_EQ(selectedItem(), 0);
}

TEST_F(PreferencesWindow, SelectsTabsWhateverTheSender) {
    open();
    for (id sender : {static_cast<id>(nil), static_cast<id>(@"sender"), static_cast<id>(window())}) {
        [controller() didSelectEditorTabWithSender:sender];
        EXPECT_EQ(selectedTab(), "editor");
        [controller() didSelectSlideshowTabWithSender:sender];
        EXPECT_EQ(selectedTab(), "presenter");
        [controller() didSelectAboutTabWithSender:sender];
        EXPECT_EQ(selectedTab(), "about");
        [controller() didSelectGeneralTabWithSender:sender];
        EXPECT_EQ(selectedTab(), "general");
    }
}

TEST_F(PreferencesWindow, GivesEachItemALabelAndASymbol) {
    open();
    std::vector<std::string> labels;
    for (NSToolbarItem *item in [[window() toolbar] items]) {
        labels.push_back(toUTF8([item itemIdentifier]) + ": " + toUTF8([item label]));
        EXPECT_GT([[[item image] representations] count], 0U) << labels.back();
    }
    EXPECT_THAT(labels, ElementsAre("general: General", "editor: Editor", "presenter: Slideshow", "about: About"));
}

TEST_F(PreferencesWindow, KeepsItsWidthAndUpperEdgeAndFitsEachTab) {
    open();
    test::runUntilQuiet(window());
    const NSRect frame = [window() frame];
    std::vector<CGFloat> heights;
    for (const char *label : {"Editor", "Slideshow", "About", "General"}) {
        press(label);
        EXPECT_EQ(NSWidth([window() frame]), NSWidth(frame)) << label;
        EXPECT_EQ(NSMaxY([window() frame]), NSMaxY(frame)) << label;
        heights.push_back(NSHeight([[window() contentView] frame]));
        NSView *tab = [[[controller() tabView] selectedTabViewItem] view];
        EXPECT_EQ(NSHeight([tab frame]), heights.back()) << label;
    }
    EXPECT_THAT(heights, ElementsAre(104, 235, 420, 258));
}

// What a control says must fit into it, and the control into its place.
void expectNothingClipped(NSView *view) {
    if ([view isKindOfClass:[NSButton class]] || [view isKindOfClass:[NSTextField class]]) {
        NSCell *cell = [static_cast<NSControl *>(view) cell];
        const NSSize text = [[cell attributedStringValue] size];
        EXPECT_LE([cell cellSize].width, NSWidth([view frame])) << toUTF8([view description]);
        EXPECT_LE(text.height, NSHeight([view frame])) << toUTF8([view description]);
    }
    if ([view superview] != nil && ![view isHidden] && [[view superview] isMemberOfClass:[NSView class]]) {
        EXPECT_TRUE(NSContainsRect([[view superview] bounds], [view frame])) << toUTF8([view description]);
    }
    for (NSView *subview in [view subviews]) {
        expectNothingClipped(subview);
    }
}

TEST_F(PreferencesWindow, ClipsNothing) {
    auto settings = PreferencesWindow::settings();
    settings.presenterActive = true;
    open(settings);
    for (const char *label : {"General", "Editor", "Slideshow"}) {
        press(label);
        expectNothingClipped([[[controller() tabView] selectedTabViewItem] view]);
    }
}

TEST_F(PreferencesWindow, LeadsTheKeyboardThroughAllControls) {
    open();
    const std::vector<NSView *> general{[PreferencesWindow::general() samplePresentationButton],
                                        [PreferencesWindow::general() theme],
                                        [PreferencesWindow::general() slideSizesButton],
                                        [PreferencesWindow::general() appearance]};
    EXPECT_EQ([window() firstResponder], general[0]);
    for (std::size_t i = 0; i < general.size(); ++i) {
        EXPECT_EQ([general[i] nextKeyView], general[(i + 1) % general.size()]);
    }
    EXPECT_TRUE(toUTF8([[slideshow() presenterApplyButton] keyEquivalent]) == "\r");
}

TEST_F(PreferencesWindow, HandsEachTabItsStore) {
    open();
    const auto store = [controller() store];
    ASSERT_NE(store, nullptr);
    EXPECT_EQ([general() store].get(), &store->general);
    EXPECT_EQ([editor() store].get(), &store->editor);
    EXPECT_EQ([slideshow() store].get(), &store->presenter);
    EXPECT_EQ([about() store].get(), &store->about);
}

TEST_F(PreferencesWindow, ReadsTheSettingsAnewEachTimeATabAppears) {
    open();
    RoutingSettingsProvider::shared()->update(&SettingsPayload::editorTheme, "Dawn", SettingsKeys::editorTheme);
    press("Editor");
    EXPECT_EQ(test::selectedTitleOf([editor() colorTheme]), "Dawn");
    press("General");
    RoutingSettingsProvider::shared()->update(&SettingsPayload::editorTheme, "Dusk", SettingsKeys::editorTheme);
    press("Editor");
    EXPECT_EQ(test::selectedTitleOf([editor() colorTheme]), "Dusk");
}

} // namespace
