// A zeroing weak reference to an Objective-C object, for code without ARC. AppKitGlue's WeakObjCPtr is built on it.
#pragma once

#import <Foundation/Foundation.h>

#include <memory>

namespace platform {

struct WeakControl;

/// Refers to an object without keeping it alive; reads nil from the moment its last strong reference is gone, its own
/// `dealloc` included. Copyable; may be read on any thread.
///
/// On GNUstep, objects whose class counts its references itself (NSToolbar does) are followed on the main thread only;
/// and a reference to an instance of exactly NSObject or NSProxy reads nil at once, since following it would slow down
/// every object of the process.
class WeakReference {
public:
    WeakReference() = default;

    /// Refers to `object`, which may be nil and must not be in the middle of its deallocation.
    explicit WeakReference(id object);

    /// The object with one retain that the caller owns, or nil when it is gone.
    [[nodiscard]] id loadRetained() const;

private:
    std::shared_ptr<WeakControl> control_;
};

} // namespace platform
