// Strong references to Objective-C objects, for code that counts references itself. For .mm files only.
#pragma once

#import <Foundation/Foundation.h>

#include <cstddef>
#include <utility>

namespace appkitglue {

/// The pointer type of an Objective-C class: `NSWindow *` for `NSWindow`, `id` for `id`.
template <typename T> struct ObjCPointer {
    using type = T *;
};
template <> struct ObjCPointer<id> {
    using type = id;
};

/// Keeps an Objective-C object alive. `T` is the class without its star: `RetainPtr<NSWindow>`; `RetainPtr<id>` holds
/// any object. May be empty. Copying retains, moving does not.
template <typename T> class RetainPtr {
public:
    using Pointer = typename ObjCPointer<T>::type;

    RetainPtr() = default;
    RetainPtr(std::nullptr_t) {}

    /// Retains `object`, which may be nil. See also `retainPtr` and `adoptNS`.
    explicit RetainPtr(Pointer object) : object_([object retain]) {}

    RetainPtr(const RetainPtr &other) : object_([other.object_ retain]) {}
    RetainPtr(RetainPtr &&other) noexcept : object_(std::exchange(other.object_, nil)) {}

    /// From a reference to a subclass.
    template <typename U> RetainPtr(const RetainPtr<U> &other) : object_([other.get() retain]) {}
    template <typename U> RetainPtr(RetainPtr<U> &&other) : object_(other.leak()) {}

    ~RetainPtr() { [object_ release]; }

    RetainPtr &operator=(RetainPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    /// The object, not retained for the caller; nil when empty.
    [[nodiscard]] Pointer get() const noexcept { return object_; }

    explicit operator bool() const noexcept { return object_ != nil; }

    /// Gives the reference up: the caller owns one retain. Empty afterwards.
    [[nodiscard]] Pointer leak() noexcept { return std::exchange(object_, nil); }

    /// Gives the reference to the current autorelease pool and returns the object: what a method that returns an object
    /// it made ends with. Empty afterwards.
    Pointer autorelease() noexcept { return [leak() autorelease]; }

    /// Takes over a reference that the caller owns (of `alloc`, `copy`, `mutableCopy`, `new` or `retain`).
    [[nodiscard]] static RetainPtr adopt(Pointer object) noexcept {
        RetainPtr result;
        result.object_ = object;
        return result;
    }

private:
    Pointer object_ = nil;
};

template <typename T, typename U> bool operator==(const RetainPtr<T> &a, const RetainPtr<U> &b) noexcept {
    return a.get() == b.get();
}
template <typename T> bool operator==(const RetainPtr<T> &a, typename RetainPtr<T>::Pointer b) noexcept {
    return a.get() == b;
}

/// Takes over the reference that `alloc`, `copy`, `mutableCopy`, `new` or `retain` returned:
/// `adoptNS([[NSWindow alloc] init])` is a `RetainPtr<NSWindow>`.
template <typename T> [[nodiscard]] RetainPtr<T> adoptNS(T *object) noexcept {
    return RetainPtr<T>::adopt(object);
}
[[nodiscard]] inline RetainPtr<id> adoptNS(id object) noexcept {
    return RetainPtr<id>::adopt(object);
}

/// Retains an object that somebody else owns.
template <typename T> [[nodiscard]] RetainPtr<T> retainPtr(T *object) {
    return RetainPtr<T>(object);
}
[[nodiscard]] inline RetainPtr<id> retainPtr(id object) {
    return RetainPtr<id>(object);
}

} // namespace appkitglue
