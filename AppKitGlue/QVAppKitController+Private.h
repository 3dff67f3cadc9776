// The controller's state, for the units that implement it.
#pragma once

#import "Platform.h"

#import "QVAppKitController.h"

#include "MenuItem+Ext.h"
#include "RetainPtr.h"
#include "ToolbarAction.h"
#include "WeakObjCPtr.h"

#include <functional>
#include <vector>

@class MouseMoveManager;

/// The fields of a controller. It is the controller's alone and goes with it.
struct QVAppKitControllerState {
    /// The callbacks to the host. Each holds the delegate from `setupDelegate:` until `clearWindowToolbar`.
    std::function<void(appkitglue::ToolbarAction action)> selectorAction;
    std::function<void(NSString *text)> selectorSearch; // nil: the field is empty
    std::function<void(appkitglue::ToolbarAction action, NSRect rect)> selectorPopover;
    /// The host's document window. What needs it does nothing when it is gone.
    appkitglue::WeakObjCPtr<NSWindow> window;
    /// Owns the tracking area that hides the cursor. Never nil.
    appkitglue::RetainPtr<MouseMoveManager> mouseMoveManager;
    /// Whether the next window that is handed over is closed at once.
    bool shouldCloseOnLoad = false;
    /// The host's slides window while presenter mode runs.
    appkitglue::WeakObjCPtr<NSWindow> currentExternalSlidesWindow;

    /// Call the callbacks; nothing happens while none is set. A host may clear or replace them while it is called.
    void sendAction(appkitglue::ToolbarAction action) const;
    void sendSearch(NSString *text) const;
    void sendPopover(appkitglue::ToolbarAction action, NSRect rect) const;
};

namespace appkitglue {

/// The controller of the startup tutorial that was opened last; null when there is none. Never destroyed.
RetainPtr<NSWindowController> &currentTutorialWindowController();

} // namespace appkitglue

@interface QVAppKitController (Private)

/// The controller's fields. Never null.
@property (nonatomic, readonly) QVAppKitControllerState *state;

/// The document window with a reference of the caller's own; null when it is gone.
- (appkitglue::RetainPtr<NSWindow>)documentWindow;

@end

@interface QVAppKitController (MenuPopUp)

/// Pops a menu of `items` up under `sender`, left-aligned. Shows nothing for an empty list.
- (void)popUpMenu:(const std::vector<appkitglue::MenuItem> &)items sender:(NSView *)sender;

@end
