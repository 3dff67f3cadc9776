// The small completions of AppKit, each as a user of the method sees it.
#import "NSToolbarDelegate.h"
#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

@interface QVTestTarget : NSObject {
@public
    int fired;
    id lastSender;
    NSString *text;
}
- (void)fire:(id)sender;
- (void)search:(id)sender;
- (BOOL)fontAction:(id)sender;
@end
@implementation QVTestTarget
- (void)fire:(id)sender {
    fired++;
    lastSender = sender;
}
- (void)search:(id)sender {
    fired++;
    [text release];
    text = [[sender stringValue] copy];
}
- (BOOL)fontAction:(id)sender {
    fired++;
    return YES;
}
- (void)dealloc {
    [text release];
    [super dealloc];
}
@end

@interface QVTestToolbarDelegate : NSObject <NSToolbarDelegate> {
@public
    NSArray *items;
}
@end
@implementation QVTestToolbarDelegate
- (NSToolbarItem *)toolbar:(NSToolbar *)toolbar
        itemForItemIdentifier:(NSString *)identifier
    willBeInsertedIntoToolbar:(BOOL)inserted {
    for (NSToolbarItem *item in items) {
        if ([[item itemIdentifier] isEqualToString:identifier]) {
            return item;
        }
    }
    return nil;
}
- (NSArray *)toolbarDefaultItemIdentifiers:(NSToolbar *)toolbar {
    return [items valueForKey:@"itemIdentifier"];
}
- (NSArray *)toolbarAllowedItemIdentifiers:(NSToolbar *)toolbar {
    return [items valueForKey:@"itemIdentifier"];
}
@end

namespace {

class Completions : public testing::Test {
protected:
    void SetUp() override {
        pool_ = [[NSAutoreleasePool alloc] init];
        platform::prepareAppKit();
        target_ = [[[QVTestTarget alloc] init] autorelease];
        window_ = [[NSWindow alloc] initWithContentRect:NSMakeRect(200, 200, 500, 300)
                                              styleMask:NSTitledWindowMask | NSClosableWindowMask
                                                backing:NSBackingStoreBuffered
                                                  defer:NO];
        [window_ setReleasedWhenClosed:NO];
    }
    void TearDown() override {
        [window_ close];
        [window_ release];
        [pool_ release];
    }
    void show() {
        [window_ makeKeyAndOrderFront:nil];
        test::runUntilQuiet(window_);
    }

    NSAutoreleasePool *pool_ = nil;
    QVTestTarget *target_ = nil;
    NSWindow *window_ = nil;
};

TEST_F(Completions, AButtonMadeWithATitleFitsItAndFires) {
    NSButton *button = [NSButton buttonWithTitle:@"Feedback" target:target_ action:@selector(fire:)];
    EXPECT_TRUE([[button title] isEqualToString:@"Feedback"]);
    EXPECT_GT(NSWidth([button frame]), [[button attributedTitle] size].width);
    [[window_ contentView] addSubview:button];
    [button performClick:nil];
    EXPECT_EQ(target_->fired, 1);
    EXPECT_EQ(target_->lastSender, button);
}

TEST_F(Completions, AButtonMadeWithAnImageShowsOnlyTheImage) {
    NSImage *image = [NSImage imageWithSystemSymbolName:@"photo" accessibilityDescription:@"Photo"];
    NSButton *button = [NSButton buttonWithImage:image target:target_ action:@selector(fire:)];
    EXPECT_EQ([button image], image);
    EXPECT_EQ([button imagePosition], NSImageOnly);
    EXPECT_GE(NSWidth([button frame]), [image size].width);
    [button setBezelStyle:NSBezelStyleTexturedRounded];
    EXPECT_EQ(static_cast<int>([button bezelStyle]), 11);
}

TEST_F(Completions, AToolbarShowsBorderedItemsButtonsAndASearchField) {
    NSToolbarItem *plain = [[[NSToolbarItem alloc] initWithItemIdentifier:@"plain"] autorelease];
    EXPECT_FALSE([plain isBordered]);
    [plain setBordered:YES];
    EXPECT_TRUE([plain isBordered]);
    [plain setImage:[NSImage imageWithSystemSymbolName:@"plus" accessibilityDescription:nil]];
    [plain setLabel:@"Add Slide"];
    NSToolbarItem *withButton = [[[NSToolbarItem alloc] initWithItemIdentifier:@"button"] autorelease];
    NSImage *image = [NSImage imageWithSystemSymbolName:@"gear" accessibilityDescription:nil];
    [withButton setBordered:YES];
    [withButton setView:[NSButton buttonWithImage:image target:target_ action:@selector(fire:)]];
    [withButton setImage:image];
    [withButton setLabel:@"Overrides"];
    NSSearchToolbarItem *search = [[[NSSearchToolbarItem alloc] initWithItemIdentifier:@"search"] autorelease];
    [search setLabel:@""];
    EXPECT_EQ([search view], [search searchField]);

    QVTestToolbarDelegate *delegate = [[[QVTestToolbarDelegate alloc] init] autorelease];
    delegate->items = @[ plain, withButton, search ];
    NSToolbar *toolbar = [[[NSToolbar alloc] initWithIdentifier:@"completions"] autorelease];
    [toolbar setDelegate:delegate];
    [window_ setToolbar:toolbar];
    show();
    EXPECT_EQ([[toolbar visibleItems] count], 3U);
    EXPECT_EQ([image size].width, 20) << "a toolbar leaves symbols as large as they are";
    EXPECT_NE([[search searchField] window], nil);
    test::savePicture(window_, "toolbar");
    [toolbar setDelegate:nil];
}

// What stands for the items that find no room.
NSMenuItem *menuForm(NSToolbarItem *item) {
    return [item performSelector:NSSelectorFromString(@"_defaultMenuFormRepresentation")];
}

TEST_F(Completions, AnItemWithoutRoomKeepsItsTagActionAndImageInTheMenu) {
    NSToolbarItem *plain = [[[NSToolbarItem alloc] initWithItemIdentifier:@"plain"] autorelease];
    [plain setLabel:@"Add Slide"];
    [plain setTag:17];
    [plain setTarget:target_];
    [plain setAction:@selector(fire:)];
    [plain setImage:[NSImage imageWithSystemSymbolName:@"plus" accessibilityDescription:nil]];
    NSMenuItem *entry = menuForm(plain);
    EXPECT_TRUE([[entry title] isEqualToString:@"Add Slide"]);
    EXPECT_EQ([entry tag], 17);
    EXPECT_NE([entry image], nil);
    [NSApp sendAction:[entry action] to:[entry target] from:entry];
    EXPECT_EQ(target_->fired, 1);
    EXPECT_EQ(target_->lastSender, plain) << "an item without a view is the sender itself";
}

TEST_F(Completions, AButtonItemWithoutRoomFiresFromTheMenu) {
    NSToolbarItem *item = [[[NSToolbarItem alloc] initWithItemIdentifier:@"button"] autorelease];
    [item setView:[NSButton buttonWithTitle:@"Feedback" target:target_ action:@selector(fire:)]];
    NSMenu *menu = [[[NSMenu alloc] initWithTitle:@""] autorelease];
    [menu addItem:menuForm(item)];
    EXPECT_TRUE([[[menu itemAtIndex:0] title] isEqualToString:@"Feedback"]);
    [menu performActionForItemAtIndex:0];
    EXPECT_EQ(target_->fired, 1);
    EXPECT_EQ(target_->lastSender, [menu itemAtIndex:0]) << "the entry stands for the button";
    NSSearchToolbarItem *search = [[[NSSearchToolbarItem alloc] initWithItemIdentifier:@"search"] autorelease];
    [search setLabel:@""];
    EXPECT_EQ(menuForm(search), nil) << "an entry without a title would say nothing";
}

TEST_F(Completions, ASearchItemSendsItsFieldsActionAndEscapeEmptiesIt) {
    NSSearchToolbarItem *search = [[[NSSearchToolbarItem alloc] initWithItemIdentifier:@"search"] autorelease];
    [search setTarget:target_];
    [search setAction:@selector(search:)];
    EXPECT_EQ([[search searchField] target], target_);
    NSSearchField *field = [search searchField];
    [[window_ contentView] addSubview:field];
    show();
    [search beginSearchInteraction];
    NSText *editor = [field currentEditor];
    ASSERT_NE(editor, nil);
    [editor insertText:@"intro"];
    EXPECT_TRUE(test::runUntil([&] { return [target_->text isEqualToString:@"intro"]; }));
    [editor doCommandBySelector:@selector(complete:)];
    EXPECT_TRUE(test::runUntil([&] { return [target_->text isEqualToString:@""]; }));
    EXPECT_EQ([field currentEditor], nil);
    NSSearchToolbarItem *copy = [[search copy] autorelease];
    EXPECT_NE([copy searchField], field);
    EXPECT_EQ([copy action], @selector(search:));
}

TEST_F(Completions, AWindowHasTheAppearanceItIsGivenAndTellsOfChanges) {
    NSMutableArray *told = [NSMutableArray array];
    id observer = [[NSNotificationCenter defaultCenter] addObserverForName:QVWindowAppearanceDidChangeNotification
                                                                    object:window_
                                                                     queue:nil
                                                                usingBlock:^(NSNotification *n) {
                                                                    [told addObject:n];
                                                                }];
    EXPECT_EQ([window_ appearance], nil);
    EXPECT_TRUE([[[window_ effectiveAppearance] name] isEqualToString:NSAppearanceNameAqua]);
    [window_ setAppearance:[NSAppearance appearanceNamed:NSAppearanceNameDarkAqua]];
    EXPECT_TRUE([[[window_ appearance] name] isEqualToString:NSAppearanceNameDarkAqua]);
    EXPECT_TRUE([[[window_ effectiveAppearance] name] isEqualToString:NSAppearanceNameDarkAqua]);
    [window_ setAppearance:[NSAppearance appearanceNamed:NSAppearanceNameDarkAqua]];
    EXPECT_EQ([told count], 1U) << "the same appearance again is no change";
    [window_ setAppearance:nil];
    EXPECT_EQ([window_ appearance], nil);
    EXPECT_EQ([told count], 2U);
    [NSApp setAppearance:[NSAppearance appearanceNamed:NSAppearanceNameDarkAqua]];
    EXPECT_TRUE([[[window_ effectiveAppearance] name] isEqualToString:NSAppearanceNameDarkAqua]);
    EXPECT_EQ([told count], 3U);
    [NSApp setAppearance:nil];
    [[NSNotificationCenter defaultCenter] removeObserver:observer];
}

TEST_F(Completions, TheFontManagersActionGoesToItsTarget) {
    NSFontManager *manager = [NSFontManager sharedFontManager];
    [manager setTarget:target_];
    [manager setAction:@selector(fontAction:)];
    EXPECT_EQ([manager target], target_);
    EXPECT_TRUE([manager sendAction]);
    EXPECT_EQ(target_->fired, 1);
    [manager setTarget:nil];
    [manager setAction:@selector(changeFont:)];
    [manager sendAction];
    EXPECT_EQ(target_->fired, 1);
}

TEST_F(Completions, WebAddressesGoToTheDesktopsOpener) {
    const std::string folder = std::string([NSTemporaryDirectory() UTF8String]) + "/opener";
    const std::string seen = folder + "/seen";
    std::system(("mkdir -p '" + folder + "'").c_str());
    std::ofstream(folder + "/xdg-open") << "#!/bin/sh\nprintf '%s\\n' \"$1\" > '" << seen << ".new' && mv '" << seen
                                        << ".new' '" << seen << "'\n";
    std::system(("chmod +x '" + folder + "/xdg-open'").c_str());
    const std::string path = std::getenv("PATH");
    setenv("PATH", (folder + ":" + path).c_str(), 1);
    const auto opened = [&] {
        std::ifstream file(seen);
        std::string line;
        std::getline(file, line);
        return line;
    };
    EXPECT_TRUE([[NSWorkspace sharedWorkspace] openURL:[NSURL URLWithString:@"https://quorvel.example/a?b=c&d"]]);
    EXPECT_TRUE(test::runUntil([&] { return opened() == "https://quorvel.example/a?b=c&d"; }));
    EXPECT_TRUE([[NSWorkspace sharedWorkspace] openURL:[NSURL URLWithString:@"mailto:someone@quorvel.example"]]);
    EXPECT_TRUE(test::runUntil([&] { return opened() == "mailto:someone@quorvel.example"; }));
    setenv("PATH", "/nowhere", 1);
    EXPECT_FALSE([[NSWorkspace sharedWorkspace] openURL:[NSURL URLWithString:@"https://quorvel.example"]]);
    setenv("PATH", path.c_str(), 1);
}

TEST_F(Completions, AnAccentColourExists) {
    EXPECT_NE([[NSColor controlAccentColor] colorUsingColorSpaceName:NSCalibratedRGBColorSpace], nil);
    EXPECT_NE([[NSColor controlBackgroundColor] colorUsingColorSpaceName:NSCalibratedRGBColorSpace], nil);
}

} // namespace
