#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

@interface QVTestMenuTarget : NSObject {
@public
    NSString *chosen;
}
- (void)choose:(NSMenuItem *)item;
@end
@implementation QVTestMenuTarget
- (void)choose:(NSMenuItem *)item {
    chosen = [item title];
}
@end

namespace {

class MenuPopUp : public testing::Test {
protected:
    void SetUp() override {
        pool_ = [[NSAutoreleasePool alloc] init];
        platform::prepareAppKit();
        target_ = [[[QVTestMenuTarget alloc] init] autorelease];
        window_ = [[NSWindow alloc] initWithContentRect:NSMakeRect(300, 400, 400, 200)
                                              styleMask:NSTitledWindowMask
                                                backing:NSBackingStoreBuffered
                                                  defer:NO];
        [window_ setReleasedWhenClosed:NO];
        button_ = [NSButton buttonWithTitle:@"Insert" target:nil action:nullptr];
        [button_ setFrameOrigin:NSMakePoint(40, 80)];
        [[window_ contentView] addSubview:button_];
        [window_ makeKeyAndOrderFront:nil];
        test::runUntilQuiet(window_);
        menu_ = [[[NSMenu alloc] initWithTitle:@""] autorelease];
        for (NSString *title in @[ @"One", @"Two", @"Three" ]) {
            [[menu_ addItemWithTitle:title action:@selector(choose:) keyEquivalent:@""] setTarget:target_];
        }
    }
    void TearDown() override {
        [window_ close];
        [window_ release];
        [pool_ release];
    }

    // Pops the menu up under the button and does something once it is open.
    BOOL popUp(std::function<void()> whenOpen) {
        platform::asyncAfter(0.1, std::move(whenOpen));
        return [menu_ popUpMenuPositioningItem:[menu_ itemAtIndex:0]
                                    atLocation:NSMakePoint(0, NSHeight([button_ frame]) + 5)
                                        inView:button_];
    }
    NSRect menuFrame() { return [[static_cast<NSView *>([menu_ menuRepresentation]) window] frame]; }

    NSAutoreleasePool *pool_ = nil;
    QVTestMenuTarget *target_ = nil;
    NSWindow *window_ = nil;
    NSButton *button_ = nil;
    NSMenu *menu_ = nil;
};

TEST_F(MenuPopUp, OpensJustUnderTheButtonAndClosesWithoutAChoice) {
    NSRect frame = NSZeroRect;
    bool visible = false;
    const BOOL chosen = popUp([&] {
        frame = menuFrame();
        visible = [[static_cast<NSView *>([menu_ menuRepresentation]) window] isVisible];
        test::savePicture(nil, "menu");
        [menu_ cancelTracking];
    });
    EXPECT_FALSE(chosen);
    EXPECT_EQ(target_->chosen, nil);
    EXPECT_TRUE(visible);
    const NSPoint corner =
        [window_ convertBaseToScreen:[button_ convertPoint:NSMakePoint(0, NSHeight([button_ frame]) + 5) toView:nil]];
    EXPECT_NEAR(NSMinX(frame), corner.x, 2);
    EXPECT_NEAR(NSMaxY(frame), corner.y, 4);
    EXPECT_FALSE([[static_cast<NSView *>([menu_ menuRepresentation]) window] isVisible]);
}

TEST_F(MenuPopUp, SaysWhetherAnEntryWasChosen) {
    const BOOL chosen = popUp([&] {
        [menu_ performActionForItemAtIndex:1];
        [menu_ cancelTracking];
    });
    EXPECT_TRUE(chosen);
    EXPECT_TRUE([target_->chosen isEqualToString:@"Two"]);
}

TEST_F(MenuPopUp, EscapeClosesIt) {
    EXPECT_FALSE(popUp([&] {
        [NSApp postEvent:[NSEvent keyEventWithType:NSKeyDown
                                                location:NSZeroPoint
                                           modifierFlags:0
                                               timestamp:0
                                            windowNumber:[window_ windowNumber]
                                                 context:nil
                                              characters:@"\033"
                             charactersIgnoringModifiers:@"\033"
                                               isARepeat:NO
                                                 keyCode:9]
                 atStart:NO];
    }));
}

TEST_F(MenuPopUp, StaysOnTheScreen) {
    NSRect frame = NSZeroRect;
    platform::asyncAfter(0.1, [&] {
        frame = menuFrame();
        [menu_ cancelTracking];
    });
    const NSRect screen = [[NSScreen mainScreen] visibleFrame];
    [menu_ popUpMenuPositioningItem:nil atLocation:NSMakePoint(NSMaxX(screen) - 5, NSMinY(screen) + 5) inView:nil];
    EXPECT_LE(NSMaxX(frame), NSMaxX(screen));
    EXPECT_GE(NSMinY(frame), NSMinY(screen));
}

TEST_F(MenuPopUp, AnEmptyMenuDoesNotOpen) {
    NSMenu *empty = [[[NSMenu alloc] initWithTitle:@""] autorelease];
    EXPECT_FALSE([empty popUpMenuPositioningItem:nil atLocation:NSMakePoint(300, 300) inView:nil]);
}

} // namespace
