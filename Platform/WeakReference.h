// A zeroing weak reference to an Objective-C object, for code without ARC. AppKitGlue's WeakObjCPtr is built on it.
#pragma once

#import <Foundation/Foundation.h>

#include <memory>

namespace platform {

/// Refers to an object without keeping it alive; reads nil from the moment its last strong reference is gone.
/// Copyable; may be read on any thread.
class WeakReference {
public:
    WeakReference() = default;

    /// Refers to `object`, which may be nil and must not be in the middle of its deallocation.
    explicit WeakReference(id object);

    /// The object with one retain that the caller owns, or nil when it is gone.
    [[nodiscard]] id loadRetained() const;

private:
    struct Control;
    std::shared_ptr<Control> control_;
};

} // namespace platform
