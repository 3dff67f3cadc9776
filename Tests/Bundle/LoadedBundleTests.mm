// The bundle as a host gets it: loaded through NSBundle, its classes known by name only.
#import "TestSupport.h"

#import <AppKit/AppKit.h>

#include <dlfcn.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// The operations used here, as a host that does not import the public header would declare them.
@interface NSObject (HostController)
- (void)setupDelegate:(id)delegate;
- (void)setupToolbarInWindow:(NSWindow *)window;
- (void)toolbarTargetActionWithSender:(id)sender;
- (void)checkForUpdates:(id)sender;
@end

/// What a host's delegate is asked, and nothing more.
@interface BareHost : NSObject {
@public
    std::vector<int> actions;
}
@end

@implementation BareHost
- (void)toolbarActionForAction:(NSNumber *)action {
    actions.push_back([action intValue]);
}
- (void)toolbarActionForSearch:(NSString *)text {
}
- (void)toolbarActionForPopover:(NSNumber *)action CGRect:(NSValue *)rect {
}
@end

class LoadedBundle : public testing::Test {
protected:
    NSBundle *bundle = [NSBundle bundleWithPath:[NSString stringWithUTF8String:test::bundlePath().c_str()]];
    Class principal = [bundle principalClass];
};

TEST_F(LoadedBundle, HasTheControllerAsItsPrincipalClass) {
    ASSERT_NE(bundle, nil);
    EXPECT_TRUE([bundle isLoaded]);
    EXPECT_EQ(std::string([NSStringFromClass(principal) UTF8String]), "QVAppKitController");
    EXPECT_EQ([NSBundle bundleForClass:principal], bundle);
    EXPECT_TRUE([principal isSubclassOfClass:[NSObject class]]);
    EXPECT_TRUE([principal conformsToProtocol:NSProtocolFromString(@"NSToolbarDelegate")]);
}

TEST_F(LoadedBundle, SaysWhoItIs) {
    NSDictionary *information = [bundle infoDictionary];
    EXPECT_TRUE([[information objectForKey:@"CFBundleIdentifier"] isEqual:@"com.quorvel.AppKitGlue"]);
    EXPECT_TRUE([[information objectForKey:@"CFBundleShortVersionString"] isEqual:@"1.0"]);
}

TEST_F(LoadedBundle, AnswersEveryOperationOfAnInstance) {
    for (NSString *name in @[
             @"init",
             @"setupDelegate:",
             @"checkForUpdates:",
             @"setForceClose",
             @"setupToolbarInWindow:",
             @"setupToolbarURL:",
             @"clearWindowToolbar",
             @"showToolbar",
             @"hideToolbar",
             @"beginFullscreen",
             @"endFullscreen",
             @"beginFullscreenSetupWithExternalSlides:",
             @"endFullscreenSetup",
             @"multipleWindowConfiguration",
             @"slideshowWindowBounds",
             @"highlightSearch",
             @"forceUserInterfaceStyle:",
             @"toolbar:itemForItemIdentifier:willBeInsertedIntoToolbar:",
             @"toolbarDefaultItemIdentifiers:",
             @"toolbarAllowedItemIdentifiers:",
             @"toolbarInsertMenuActionWithSender:",
             @"toolbarMediaMenuActionWithSender:",
             @"toolbarTabOverviewActionWithSender:",
             @"toolbarPopoverActionWithSender:",
             @"toolbarTargetActionWithSender:",
             @"searchFieldDidChangeWithSender:",
             @"didTapMenuItem:"
         ]) {
        EXPECT_TRUE([principal instancesRespondToSelector:NSSelectorFromString(name)]) << [name UTF8String];
    }
}

TEST_F(LoadedBundle, AnswersEveryOperationOfTheClass) {
    for (NSString *name in @[
             @"terminateApp", @"terminateApplication", @"setupPreferencesDelegate:", @"showPreferences",
             @"showAboutScreen", @"showTutorialWindow", @"increaseFontSize", @"decreaseFontSize",
             @"determineMacOSVersion"
         ]) {
        EXPECT_TRUE([principal respondsToSelector:NSSelectorFromString(name)]) << [name UTF8String];
    }
}

TEST_F(LoadedBundle, ExportsTheNotificationNames) {
    void *image = dlopen((test::bundlePath() + "/AppKitGlue").c_str(), RTLD_LAZY | RTLD_NOLOAD);
    ASSERT_NE(image, nullptr);
    for (const char *name :
         {"OpenSampleDocumentNotification", "MetricsFromAppKitNotification", "ShowMacOSTutorialScreenNotification"}) {
        auto *constant = static_cast<NSString *const *>(dlsym(image, name));
        ASSERT_NE(constant, nullptr) << name;
        EXPECT_EQ(std::string([*constant UTF8String]), name);
    }
    dlclose(image);
}

TEST_F(LoadedBundle, ServesAHostThatDoesNotLinkIt) {
    @autoreleasepool {
        NSWindow *window = [[[NSWindow alloc] initWithContentRect:NSMakeRect(50, 50, 600, 400)
                                                        styleMask:NSTitledWindowMask
                                                          backing:NSBackingStoreBuffered
                                                            defer:NO] autorelease];
        [window setReleasedWhenClosed:NO];
        BareHost *host = [[[BareHost alloc] init] autorelease];
        id controller = [[[principal alloc] init] autorelease];
        [controller setupDelegate:host];
        [controller setupToolbarInWindow:window];
        NSToolbar *toolbar = [[[NSToolbar alloc] initWithIdentifier:@"loaded"] autorelease];
        [toolbar setDelegate:controller];
        [window setToolbar:toolbar];
        [window orderFront:nil];
        [toolbar insertItemWithItemIdentifier:@"arrange" atIndex:0];
        EXPECT_EQ([[toolbar items] count], 7U);
        [controller toolbarTargetActionWithSender:[[toolbar items] objectAtIndex:0]];
        EXPECT_EQ(host->actions, std::vector<int>{17});
        [toolbar setDelegate:nil];
        [window close];
    }
}

TEST_F(LoadedBundle, ChecksForNoUpdatesInAHostWithoutTheFramework) {
    ASSERT_EQ(NSClassFromString(@"SPUStandardUpdaterController"), Nil);
    id controller = [[[principal alloc] init] autorelease];
    [controller checkForUpdates:nil];
    [controller checkForUpdates:nil];
}
