// Everything can be done with the keyboard: real keys on a window with one of each control.
#import "FlatTheme.h"
#import "Gallery.h"
#import "Input.h"
#import "MenuKeyboard.h"
#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

#include <set>

@interface KeyRecorder : NSObject {
@public
    NSMutableArray *actions;
}
- (void)pressed:(id)sender;
- (void)chooseOne:(id)sender;
- (void)chooseTwo:(id)sender;
@end

@implementation KeyRecorder
- (id)init {
    if ((self = [super init]) != nil) {
        actions = [[NSMutableArray alloc] init];
    }
    return self;
}
- (void)dealloc {
    [actions release];
    [super dealloc];
}
- (void)pressed:(id)sender {
    [actions addObject:@"pressed"];
}
- (void)chooseOne:(id)sender {
    [actions addObject:[(NSMenuItem *)sender title]];
}
- (void)chooseTwo:(id)sender {
    [actions addObject:[(NSMenuItem *)sender title]];
}
@end

namespace {

class KeyboardTest : public testing::Test {
protected:
    void SetUp() override {
        pool = [[NSAutoreleasePool alloc] init];
        platform::prepareAppKit();
        flattheme::registerDefaults();
        flattheme::install();
        flattheme::setLook(flattheme::Look::light);
        recorder = [[KeyRecorder alloc] init];
        [NSApp setDelegate:(id)recorder];
        gallery = [[Gallery alloc] init];
        ASSERT_TRUE(test::giveKeyboard([gallery window]));
    }

    void TearDown() override {
        [NSApp setDelegate:nil];
        [gallery release];
        [recorder release];
        [pool release];
    }

    // The control that has the keyboard: an editor belongs to its field.
    NSView *focused() const {
        NSResponder *responder = [[gallery window] firstResponder];
        if ([responder isKindOfClass:[NSTextView class]] && [(NSTextView *)responder isFieldEditor]) {
            return (NSView *)[(NSTextView *)responder delegate];
        }
        return [responder isKindOfClass:[NSView class]] ? (NSView *)responder : nil;
    }

    void focus(NSString *name) {
        [[gallery window] makeFirstResponder:[gallery control:name]];
        ASSERT_TRUE(test::runUntil([&] { return focused() == [gallery control:name]; }));
    }

    bool did(NSString *action) {
        return test::runUntil([&] { return static_cast<bool>([recorder->actions containsObject:action]); }, 5);
    }

    NSAutoreleasePool *pool = nil;
    Gallery *gallery = nil;
    KeyRecorder *recorder = nil;
};

} // namespace

TEST_F(KeyboardTest, TabVisitsEveryControl) {
    std::set<NSView *> visited;
    focus(@"cancel");
    for (int i = 0; i < 40; i++) {
        NSView *before = focused();
        visited.insert(before);
        test::pressKey([before isKindOfClass:[NSTextView class]] ? "Control+Tab" : "Tab");
        ASSERT_TRUE(test::runUntil([&] { return focused() != before; }, 5))
            << "stuck at " << [[before description] UTF8String];
        if (focused() == [gallery control:@"cancel"]) {
            break;
        }
    }
    EXPECT_EQ(focused(), [gallery control:@"cancel"]) << "the walk ends where it began";
    for (NSString *name in @[
             @"cancel",  @"default",  @"toggle", @"help",  @"checkBox",    @"uncheckedBox", @"radio",
             @"popUp",   @"pullDown", @"combo",  @"field", @"placeholder", @"slider",       @"segments",
             @"stepper", @"table",    @"text",   @"tabs",  @"boxed",       @"search"
         ]) {
        EXPECT_TRUE(visited.contains([gallery control:name])) << [name UTF8String];
    }
    for (NSString *name in @[ @"disabledButton", @"disabledBox", @"disabledField", @"label", @"progress" ]) {
        EXPECT_FALSE(visited.contains([gallery control:name])) << [name UTF8String];
    }
}

TEST_F(KeyboardTest, ShiftTabGoesBack) {
    focus(@"field");
    test::pressKey("Tab");
    ASSERT_TRUE(test::runUntil([&] { return focused() == [gallery control:@"placeholder"]; }));
    test::pressKey("Shift+Tab");
    EXPECT_TRUE(test::runUntil([&] { return focused() == [gallery control:@"field"]; }));
}

TEST_F(KeyboardTest, SpacePressesTheFocusedButton) {
    focus(@"uncheckedBox");
    test::pressKey("space");
    EXPECT_TRUE(test::runUntil([&] { return [[gallery control:@"uncheckedBox"] state] == NSOnState; }));
}

TEST_F(KeyboardTest, ReturnPressesTheDefaultButtonAndEscapeCancel) {
    for (NSString *name in @[ @"default", @"cancel" ]) {
        [[gallery control:name] setTarget:recorder];
        [[gallery control:name] setAction:@selector(pressed:)];
    }
    focus(@"field");
    test::pressKey("Return");
    EXPECT_TRUE(did(@"pressed"));
    [recorder->actions removeAllObjects];
    test::pressKey("Escape");
    EXPECT_TRUE(did(@"pressed"));
}

TEST_F(KeyboardTest, SpaceOpensAPopUpAndArrowsChoose) {
    focus(@"popUp");
    test::pressKeys({"space", "Down", "Return"});
    EXPECT_TRUE(test::runUntil([&] { return [[gallery control:@"popUp"] indexOfSelectedItem] == 1; }));
    test::pressKeys({"space", "Down", "Escape"});
    test::runUntilQuiet([gallery window]);
    EXPECT_EQ([[gallery control:@"popUp"] indexOfSelectedItem], 1) << "Escape leaves the choice as it was";
}

TEST_F(KeyboardTest, ArrowsMoveSlidersTabsSegmentsAndRows) {
    focus(@"slider");
    const double value = [[gallery control:@"slider"] doubleValue];
    test::pressKey("Right");
    EXPECT_TRUE(test::runUntil([&] { return [[gallery control:@"slider"] doubleValue] > value; }));
    focus(@"tabs");
    test::pressKey("Right");
    NSTabView *tabs = [gallery control:@"tabs"];
    EXPECT_TRUE(test::runUntil([&] { return [tabs indexOfTabViewItem:[tabs selectedTabViewItem]] == 1; }));
    focus(@"segments");
    test::pressKey("Left");
    EXPECT_TRUE(test::runUntil([&] { return [[gallery control:@"segments"] selectedSegment] == 0; }));
    focus(@"stepper");
    test::pressKey("Up");
    EXPECT_TRUE(test::runUntil([&] { return [[gallery control:@"stepper"] doubleValue] > 0; }));
    focus(@"table");
    test::pressKey("Down");
    EXPECT_TRUE(test::runUntil([&] { return [[gallery control:@"table"] selectedRow] == 3; }));
}

TEST_F(KeyboardTest, F10OpensTheMenuBar) {
    test::pressKeys({"F10", "Down", "Return"});
    EXPECT_TRUE(did(@"File Two"));
    test::pressKeys({"F10", "Right", "Return"});
    EXPECT_TRUE(did(@"Edit One"));
    EXPECT_EQ([platform::menuBarOf([gallery window]) highlightedItemIndex], -1) << "closed again";
}

TEST_F(KeyboardTest, AltOpensTheMenuBarAndEscapeLeavesIt) {
    test::pressKeys({"Alt", "Up", "Right", "Return"});
    EXPECT_TRUE(did(@"Checked")) << "the last item of File is a submenu";
    [recorder->actions removeAllObjects];
    test::pressKeys({"Alt", "Escape", "Escape"});
    focus(@"uncheckedBox");
    test::pressKey("space");
    EXPECT_TRUE(test::runUntil([&] { return [[gallery control:@"uncheckedBox"] state] == NSOnState; }))
        << "the keys belong to the window again";
    EXPECT_EQ([recorder->actions count], 0U);
}

TEST_F(KeyboardTest, ControlIsTheKeyOfMenuShortcuts) {
    test::pressKey("Control+1");
    EXPECT_TRUE(did(@"File One"));
}
