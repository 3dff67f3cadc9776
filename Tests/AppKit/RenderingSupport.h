// What tests of rendered declarative views share.
#pragma once

#import "RenderedViews.h"
#import "RetainPtr.h"
#import "TestSupport.h"

#include <vector>

namespace test {

using appkitglue::adoptNS;
using appkitglue::RetainPtr;

/// All views of a class inside a view, in the order of the tree.
template <class T> void collect(NSView *view, std::vector<T *> &found) {
    for (NSView *child in [view subviews]) {
        if ([child isKindOfClass:[T class]])
            found.push_back(static_cast<T *>(child));
        collect(child, found);
    }
}

template <class T> std::vector<T *> all(NSView *view) {
    std::vector<T *> found;
    collect(view, found);
    return found;
}

/// The first button with this title; nil without one.
inline QVLabelButton *buttonTitled(NSView *view, NSString *title) {
    for (QVLabelButton *button : all<QVLabelButton>(view))
        if ([[button title] isEqualToString:title])
            return button;
    return nil;
}

/// A window with a view that fills it.
struct Shown {
    explicit Shown(NSView *view, NSSize size = NSMakeSize(480, 560))
        : window(adoptNS([[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, size.width, size.height)
                                                     styleMask:NSTitledWindowMask | NSResizableWindowMask
                                                       backing:NSBackingStoreBuffered
                                                         defer:NO])) {
        [window.get() setReleasedWhenClosed:NO];
        [window.get() setContentView:view];
        [window.get() makeKeyAndOrderFront:nil];
        runUntil([&] { return [window.get() isKeyWindow]; }, 2);
        runUntilQuiet(window.get());
    }
    ~Shown() { [window.get() close]; }
    RetainPtr<NSWindow> window;
};

} // namespace test
