// The flat theme in light and dark, on a window with one of each control.
#import "FlatTheme.h"
#import "Gallery.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

namespace {

class FlatThemeTest : public testing::Test {
protected:
    void SetUp() override {
        pool = [[NSAutoreleasePool alloc] init];
        flattheme::registerDefaults();
        flattheme::install();
        flattheme::setLook(flattheme::Look::light);
        gallery = [[Gallery alloc] init];
        test::runUntilQuiet([gallery window]);
    }

    void TearDown() override {
        [gallery release];
        flattheme::setLook(flattheme::Look::light);
        [pool release];
    }

    NSAutoreleasePool *pool = nil;
    Gallery *gallery = nil;
};

} // namespace

TEST_F(FlatThemeTest, RecoloursWindowsAtRunTime) {
    const NSPoint nowhere = NSMakePoint(8, 8);
    EXPECT_EQ(test::pixel([gallery window], nowhere), 0xf3f3f4U);
    test::savePicture(nil, "gallery-light");

    flattheme::setLook(flattheme::Look::dark);
    EXPECT_TRUE(flattheme::isDark());
    EXPECT_TRUE(test::runUntil([&] { return test::pixel([gallery window], nowhere) == 0x2b2c2fU; }));
    test::savePicture(nil, "gallery-dark");
}

TEST_F(FlatThemeTest, PutsTheMenuBarInDocumentWindowsOnly) {
    EXPECT_EQ([[gallery window] menu], [NSApp mainMenu]);
    EXPECT_EQ(NSHeight([[[gallery window] contentView] frame]), 470) << "the content keeps its height";
    NSWindow *fixed = [[[NSWindow alloc] initWithContentRect:NSMakeRect(900, 300, 300, 200)
                                                   styleMask:NSTitledWindowMask | NSClosableWindowMask
                                                     backing:NSBackingStoreBuffered
                                                       defer:NO] autorelease];
    [fixed setReleasedWhenClosed:NO];
    [fixed makeKeyAndOrderFront:nil];
    EXPECT_NE([fixed menu], [NSApp mainMenu]);
    flattheme::setShowsMenuBar(fixed, true);
    EXPECT_EQ([fixed menu], [NSApp mainMenu]);
    flattheme::setShowsMenuBar(fixed, false);
    EXPECT_EQ([fixed menu], nil);
    EXPECT_EQ(NSHeight([[fixed contentView] frame]), 200);
    [fixed close];
}
