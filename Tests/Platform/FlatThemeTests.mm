// The flat theme in light and dark, on a window with one of each control.
#import "DesktopLook.h"
#import "FlatTheme.h"
#import "Gallery.h"
#import "Platform.h"
#import "TestSupport.h"

#import <GNUstepGUI/GSTheme.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sys/stat.h>

@interface LookObserver : NSObject {
@public
    int changes;
}
- (void)lookChanged:(NSNotification *)notification;
@end

@implementation LookObserver
- (void)lookChanged:(NSNotification *)notification {
    changes++;
}
@end

namespace {

// A desktop whose settings portal answers `scheme`, as long as it lives.
class Desktop {
public:
    explicit Desktop(const std::string &scheme) : path_(std::getenv("PATH")) {
        const std::string folder = test::binaryDirectory() + "/test-output/desktop-" + scheme;
        std::system(("mkdir -p '" + folder + "'").c_str());
        std::ofstream(folder + "/gdbus") << "#!/bin/sh\necho '(<<uint32 " << scheme << ">>,)'\n";
        chmod((folder + "/gdbus").c_str(), 0755);
        setenv("PATH", (folder + ":" + path_).c_str(), 1);
    }
    ~Desktop() { setenv("PATH", path_.c_str(), 1); }
    Desktop(const Desktop &) = delete;
    Desktop &operator=(const Desktop &) = delete;

private:
    std::string path_;
};

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

TEST_F(FlatThemeTest, FollowsTheDesktopWhenAutomatic) {
    {
        const Desktop dark("1");
        flattheme::setLook(flattheme::Look::automatic);
        EXPECT_TRUE(test::runUntil([] { return flattheme::isDark(); }));
        EXPECT_EQ(flattheme::currentLook(), flattheme::Look::automatic);
    }
    const Desktop light("2");
    flattheme::setLook(flattheme::Look::automatic);
    EXPECT_TRUE(test::runUntil([] { return !flattheme::isDark(); }));
}

TEST_F(FlatThemeTest, AnAnswerOfTheDesktopComesTooLateForAnotherLook) {
    const Desktop dark("1");
    flattheme::setLook(flattheme::Look::automatic);
    flattheme::setLook(flattheme::Look::light);
    test::spin(0.3);
    EXPECT_FALSE(flattheme::isDark());
}

TEST_F(FlatThemeTest, FollowsTheAppearanceOfWindows) {
    NSWindow *window = [gallery window];
    [window setAppearance:[NSAppearance appearanceNamed:NSAppearanceNameDarkAqua]];
    EXPECT_EQ(flattheme::currentLook(), flattheme::Look::dark);
    EXPECT_TRUE(flattheme::isDark());
    [window setAppearance:[NSAppearance appearanceNamed:NSAppearanceNameAqua]];
    EXPECT_EQ(flattheme::currentLook(), flattheme::Look::light);
    EXPECT_FALSE(flattheme::isDark());
    [window setAppearance:nil];
    EXPECT_EQ(flattheme::currentLook(), flattheme::Look::automatic);
}

TEST_F(FlatThemeTest, TellsWhenTheLookHasChanged) {
    LookObserver *observer = [[[LookObserver alloc] init] autorelease];
    [[NSNotificationCenter defaultCenter] addObserver:observer
                                             selector:@selector(lookChanged:)
                                                 name:flattheme::lookDidChangeNotification
                                               object:nil];
    flattheme::setLook(flattheme::Look::dark);
    flattheme::setLook(flattheme::Look::dark);
    EXPECT_EQ(observer->changes, 1);
    [[NSNotificationCenter defaultCenter] removeObserver:observer];
}

TEST_F(FlatThemeTest, KeepsItsLookWhenTheUsersDefaultsChange) {
    flattheme::setLook(flattheme::Look::dark);
    [[NSUserDefaults standardUserDefaults] setObject:@"anything" forKey:@"FlatThemeTest"];
    test::spin(0.05);
    EXPECT_TRUE([[[GSTheme theme] name] isEqualToString:@"Flat"]);
    EXPECT_EQ(test::pixel([gallery window], NSMakePoint(8, 8)), 0x2b2c2fU);
    [[NSUserDefaults standardUserDefaults] removeObjectForKey:@"FlatThemeTest"];
}

TEST(ColourSchemeTest, ReadsWhatDesktopsAnswer) {
    EXPECT_EQ(flattheme::parseColorScheme("(<<uint32 1>>,)"), true);
    EXPECT_EQ(flattheme::parseColorScheme("(<<uint32 2>>,)"), false);
    EXPECT_EQ(flattheme::parseColorScheme("(<<uint32 0>>,)"), std::nullopt);
    EXPECT_EQ(flattheme::parseColorScheme("'prefer-dark'"), true);
    EXPECT_EQ(flattheme::parseColorScheme("'prefer-light'"), false);
    EXPECT_EQ(flattheme::parseColorScheme("'default'"), false);
    EXPECT_EQ(flattheme::parseColorScheme(""), std::nullopt);
}

TEST_F(FlatThemeTest, PutsAPopUpsPictureBeforeItsTitle) {
    NSImage *red = [[[NSImage alloc] initWithSize:NSMakeSize(12, 12)] autorelease];
    [red lockFocus];
    [[NSColor redColor] set];
    NSRectFill(NSMakeRect(0, 0, 12, 12));
    [red unlockFocus];
    NSPopUpButton *popUp = [gallery control:@"popUp"];
    [[popUp selectedItem] setImage:red];
    [popUp setNeedsDisplay:YES];
    const NSRect frame = [popUp convertRect:[popUp bounds] toView:nil];
    const auto isRedAt = [&](CGFloat x) {
        return test::pixel([gallery window], NSMakePoint(x, NSMidY(frame))) == 0xff0000U;
    };
    EXPECT_TRUE(test::runUntil([&] { return isRedAt(NSMinX(frame) + 14); }));
    EXPECT_FALSE(isRedAt(NSMaxX(frame) - 10)) << "the arrows stay where they are";
}
