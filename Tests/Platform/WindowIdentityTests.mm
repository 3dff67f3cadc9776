#import "Platform.h"
#import "TestSupport.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <gtest/gtest.h>

// After GoogleTest, whose names X's macros would replace.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <unistd.h>

#include <string>

namespace {

TEST(WindowIdentity, NamesTheProgramBeforeTheWindowIsShown) {
    @autoreleasepool {
        platform::prepareAppKit();
        NSWindow *window = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 200, 100)
                                                       styleMask:NSTitledWindowMask
                                                         backing:NSBackingStoreBuffered
                                                           defer:NO];
        [window setReleasedWhenClosed:NO];
        GSDisplayServer *server = GSServerForWindow(window);
        auto *display = static_cast<Display *>([server serverDevice]);
        const auto xWindow = static_cast<Window>(
            reinterpret_cast<uintptr_t>([server windowDevice:static_cast<int>([window windowNumber])]));
        XClassHint hint = {};
        ASSERT_NE(XGetClassHint(display, xWindow, &hint), 0);
        EXPECT_EQ(std::string(hint.res_class), [[[NSProcessInfo processInfo] processName] UTF8String]);
        XFree(hint.res_name);
        XFree(hint.res_class);

        Atom type = 0;
        int format = 0;
        unsigned long count = 0;
        unsigned long rest = 0;
        unsigned char *data = nullptr;
        XGetWindowProperty(display, xWindow, XInternAtom(display, "_NET_WM_PID", False), 0, 1, False, XA_CARDINAL,
                           &type, &format, &count, &rest, &data);
        ASSERT_EQ(count, 1U);
        EXPECT_EQ(*reinterpret_cast<const unsigned long *>(data), static_cast<unsigned long>(getpid()));
        XFree(data);
        XGetWindowProperty(display, xWindow, XInternAtom(display, "_NET_WM_ICON", False), 0, 2, False, XA_CARDINAL,
                           &type, &format, &count, &rest, &data);
        EXPECT_EQ(count, 2U) << "the window has an icon";
        XFree(data);
        [window close];
        [window release];
    }
}

} // namespace
