// Symbols under the flat theme, whose colours tell text from chosen text and light from dark.
#import "FlatTheme.h"
#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

@interface QVTestCellView : NSView {
@public
    NSMenuItemCell *cell;
}
@end
@implementation QVTestCellView
- (void)drawRect:(NSRect)rect {
    [cell calcSize];
    [cell drawWithFrame:[self bounds] inView:self];
}
@end

namespace {

unsigned rgb(NSColor *colour) {
    colour = [colour colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
    const auto byte = [](CGFloat v) { return static_cast<unsigned>(v * 255 + 0.5); };
    return byte([colour redComponent]) << 16 | byte([colour greenComponent]) << 8 | byte([colour blueComponent]);
}

class SymbolColours : public testing::Test {
protected:
    void SetUp() override {
        pool_ = [[NSAutoreleasePool alloc] init];
        platform::prepareAppKit();
        flattheme::registerDefaults();
        flattheme::install();
        flattheme::setLook(flattheme::Look::light);
        window_ = [[NSWindow alloc] initWithContentRect:NSMakeRect(200, 200, 200, 100)
                                              styleMask:NSTitledWindowMask
                                                backing:NSBackingStoreBuffered
                                                  defer:NO];
        [window_ setReleasedWhenClosed:NO];
        [window_ setBackgroundColor:[NSColor redColor]];
        item_ = [[[NSMenuItem alloc] initWithTitle:@"" action:nullptr keyEquivalent:@""] autorelease];
        [item_ setImage:[NSImage imageWithSystemSymbolName:@"stop.fill" accessibilityDescription:nil]];
        menu_ = [[[NSMenu alloc] initWithTitle:@""] autorelease];
        [menu_ addItem:item_];
        view_ = [[[QVTestCellView alloc] initWithFrame:NSMakeRect(20, 20, 60, 30)] autorelease];
        view_->cell = [static_cast<NSMenuView *>([menu_ menuRepresentation]) menuItemCellForItemAtIndex:0];
        [[window_ contentView] addSubview:view_];
        [window_ orderFront:nil];
    }
    void TearDown() override {
        [window_ close];
        [window_ release];
        [pool_ release];
    }
    // Whether the colour comes to be seen where the symbol is drawn.
    bool isDrawnIn(NSColor *colour) {
        [view_ setNeedsDisplay:YES];
        const unsigned expected = rgb(colour);
        return test::runUntil([&] {
            bool found = false;
            for (int x = 20; x < 80 && !found; x += 4) {
                found = test::pixel(window_, NSMakePoint(x, 35)) == expected;
            }
            return found;
        });
    }

    NSAutoreleasePool *pool_ = nil;
    NSWindow *window_ = nil;
    NSMenu *menu_ = nil;
    NSMenuItem *item_ = nil;
    QVTestCellView *view_ = nil;
};

TEST_F(SymbolColours, TheChosenMenuItemsSymbolHasTheColourOfItsTitle) {
    ASSERT_NE(rgb([NSColor selectedMenuItemTextColor]), rgb([NSColor controlTextColor]));
    EXPECT_TRUE(isDrawnIn([NSColor controlTextColor]));
    [view_->cell setHighlighted:YES];
    EXPECT_TRUE(isDrawnIn([NSColor selectedMenuItemTextColor]));
    [view_->cell setHighlighted:NO];
    EXPECT_TRUE(isDrawnIn([NSColor controlTextColor]));
}

TEST_F(SymbolColours, FollowTheThemeFromLightToDark) {
    const unsigned light = rgb([NSColor controlTextColor]);
    EXPECT_TRUE(isDrawnIn([NSColor controlTextColor]));
    flattheme::setLook(flattheme::Look::dark);
    ASSERT_NE(rgb([NSColor controlTextColor]), light);
    EXPECT_TRUE(isDrawnIn([NSColor controlTextColor]));
}

} // namespace
