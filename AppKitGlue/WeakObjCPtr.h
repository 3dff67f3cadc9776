// Weak references to Objective-C objects, for code that counts references itself. For .mm files only.
#pragma once

#import "Platform.h"
#import "RetainPtr.h"

namespace appkitglue {

/// Refers to an Objective-C object without keeping it alive: empty from the moment its last strong reference is gone.
/// `T` is the class without its star: `WeakObjCPtr<NSWindow>`; `WeakObjCPtr<id>` refers to any object. Copyable; may be
/// read on any thread. See `platform::WeakReference` for the objects that it can refer to.
template <typename T> class WeakObjCPtr {
public:
    using Pointer = typename ObjCPointer<T>::type;

    WeakObjCPtr() = default;

    /// Refers to `object`, which may be nil and must not be in the middle of its deallocation.
    explicit WeakObjCPtr(Pointer object) : reference_(object) {}

    WeakObjCPtr& operator=(Pointer object) {
        reference_ = platform::WeakReference(object);
        return *this;
    }

    /// The object, kept alive by the returned reference; empty when it is gone. Hold it in a local for as long as the
    /// object is used.
    [[nodiscard]] RetainPtr<T> get() const {
        return RetainPtr<T>::adopt(static_cast<Pointer>(reference_.loadRetained()));
    }

    /// Whether the object still lives: by the time of the next line it may not; `get` holds it.
    explicit operator bool() const { return static_cast<bool>(get()); }

private:
    platform::WeakReference reference_;
};

} // namespace appkitglue
