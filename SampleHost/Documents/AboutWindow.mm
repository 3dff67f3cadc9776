#import "AboutWindow.h"

#import "PlugIn.h"
#import "QVAboutScreen.h"

#include "FlatTheme.h"

namespace samplehost {

namespace {

NSWindow *makeAboutWindow(Class screenController) {
    const auto controller = own(static_cast<QVAboutScreenViewController *>([[screenController alloc] init]));
    QVAboutScreenView *const screen = [controller.get() aboutScreenView];
    NSWindow *const window =
        [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 480, 560)
                                    styleMask:NSTitledWindowMask | NSClosableWindowMask | NSResizableWindowMask
                                      backing:NSBackingStoreBuffered
                                        defer:YES];
    [window setReleasedWhenClosed:NO];
    [window setTitle:@"About Quorvel"];
    [window setContentView:screen];
    [window setContentMinSize:NSMakeSize(400, 320)];
    [window center];
    flattheme::setShowsMenuBar(window, false);
    [screen setDismissTarget:window];
    [screen setDismissAction:@selector(performClose:)];
    return window;
}

} // namespace

bool showAboutWindow() {
    const Class screenController = plugInClass() == Nil ? Nil : NSClassFromString(@"QVAboutScreenViewController");
    if (screenController == Nil) {
        return false;
    }
    static NSWindow *const window = makeAboutWindow(screenController);
    [window makeKeyAndOrderFront:nil];
    return true;
}

} // namespace samplehost
