#import "PreferencesWindowFixture.h"
#import "TestSupport.h"

#import "QVAppKitController.h"

#include "StringBridging.h"

#include <gmock/gmock.h>

using namespace appkitglue;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class EditorTab : public test::PreferencesWindowFixture {
protected:
    void openTab(const SettingsPayload &settings = EditorTab::settings()) {
        open(settings);
        press("Editor");
    }

    static std::string fontField() { return toUTF8([[editor() fontNameField] stringValue]); }

    static NSButton *panelButton(NSView *view, NSString *title) {
        if ([view isKindOfClass:[NSButton class]] && [[static_cast<NSButton *>(view) title] isEqual:title]) {
            return static_cast<NSButton *>(view);
        }
        for (NSView *subview in [view subviews]) {
            if (NSButton *found = panelButton(subview, title); found != nil) {
                return found;
            }
        }
        return nil;
    }

    ~EditorTab() override { [[[NSFontManager sharedFontManager] fontPanel:NO] close]; }
};

TEST_F(EditorTab, ShowsTheHostsFontAndThemes) {
    openTab();
    NSString *name = [[NSFont fontWithName:@"DejaVuSans" size:13.5] displayName];
    EXPECT_EQ(fontField(), toUTF8(name) + ", 13.5");
    EXPECT_THAT(test::titlesOf([editor() colorTheme]), ElementsAre("Dusk", "Dawn"));
    EXPECT_EQ(test::selectedTitleOf([editor() colorTheme]), "Dusk");
    EXPECT_THAT(host.get()->changes, IsEmpty());
}

TEST_F(EditorTab, ShowsWholeSizesWithAFraction) {
    auto settings = EditorTab::settings();
    settings.editorFontSize = 14;
    openTab(settings);
    EXPECT_TRUE(fontField().ends_with(", 14.0")) << fontField();
}

TEST_F(EditorTab, ShowsTheSystemFontForAnEmptyOrUnknownName) {
    NSFont *system = [NSFont systemFontOfSize:[NSFont systemFontSize]];
    for (const char *name : {"", "NoSuchFont-Bold"}) {
        auto settings = EditorTab::settings();
        settings.editorFontName = name;
        openTab(settings);
        EXPECT_TRUE(fontField().starts_with(toUTF8([system displayName]) + ", ")) << fontField();
        EXPECT_THAT(host.get()->changes, IsEmpty());
    }
}

TEST_F(EditorTab, SendsItsTheme) {
    openTab();
    test::choose([editor() colorTheme], "Dawn");
    EXPECT_THAT(host.get()->changes, ElementsAre(changed("editorTheme", [](auto &s) { s.editorTheme = "Dawn"; })));
}

TEST_F(EditorTab, WritesNoThemeWithoutASelectedItem) {
    auto settings = EditorTab::settings();
    settings.allEditorThemes.clear();
    openTab(settings);
    [editor() didTapThemeButton:nil];
    EXPECT_THAT(host.get()->changes, IsEmpty());
}

TEST_F(EditorTab, TakesAFontFromTheFontPanel) {
    openTab();
    NSButton *button = panelButton([window() contentView], @"Choose…");
    ASSERT_NE(button, nil);
    [button performClick:nil];
    NSFontManager *manager = [NSFontManager sharedFontManager];
    NSFontPanel *panel = [manager fontPanel:NO];
    ASSERT_TRUE([panel isVisible]);
    EXPECT_EQ(toUTF8([[manager selectedFont] fontName]), "DejaVuSans");
    EXPECT_EQ([[manager selectedFont] pointSize], 13.5);
    test::runUntil([&] { return static_cast<bool>([panel isKeyWindow]); });

    [panel setPanelFont:[NSFont fontWithName:@"DejaVuSansMono-Bold" size:17] isMultiple:NO];
    [panelButton([panel contentView], @"Set") performClick:nil];
    EXPECT_THAT(host.get()->changes, IsEmpty());
    EXPECT_TRUE(test::runUntil([&] { return host.get()->changes.size() == 2; }));
    auto first = changed("editorFontName", [](auto &s) { s.editorFontName = "DejaVuSansMono-Bold"; });
    auto second = first;
    second.affectedKey = "editorFontSize";
    second.editorFontSize = 17;
    EXPECT_THAT(host.get()->changes, ElementsAre(first, second));
    NSString *name = [[NSFont fontWithName:@"DejaVuSansMono-Bold" size:17] displayName];
    EXPECT_EQ(fontField(), toUTF8(name) + ", 17.0");
}

TEST_F(EditorTab, ReadsTheManagersFontOnlyAfterTheEvent) {
    openTab();
    NSFontManager *manager = [NSFontManager sharedFontManager];
    [manager setSelectedFont:[NSFont fontWithName:@"DejaVuSans" size:10] isMultiple:NO];
    [editor() changedFontWithSender:nil];
    [controller() changeFont:nil];
    EXPECT_THAT(host.get()->changes, IsEmpty());
    [manager setSelectedFont:[NSFont fontWithName:@"DejaVuSansMono" size:13.5] isMultiple:NO];
    EXPECT_TRUE(test::runUntil([&] { return host.get()->changes.size() == 4; }));
    EXPECT_EQ(host.get()->changes[0].editorFontName, "DejaVuSansMono");
    EXPECT_EQ(host.get()->changes[1].affectedKey, "editorFontSize"); // although the size stays
}

TEST_F(EditorTab, FollowsTheFontSizeCommands) {
    openTab();
    [QVAppKitController increaseFontSize];
    EXPECT_TRUE(fontField().ends_with(", 15.5")) << fontField();
    [QVAppKitController decreaseFontSize];
    EXPECT_TRUE(fontField().ends_with(", 13.5")) << fontField();
    EXPECT_EQ(host.get()->changes.size(), 2U);
}

} // namespace
