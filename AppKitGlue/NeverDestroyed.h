// Objects that live until the process ends: nothing is torn down at exit, when AppKit may already be gone.
#pragma once

#include <cstddef>
#include <memory>
#include <utility>

namespace appkitglue {

/// Holds a `T` that is never destroyed. Meant for function-local statics.
template <typename T> class NeverDestroyed {
public:
    template <typename... Arguments>
    explicit NeverDestroyed(Arguments&&... arguments)
        : object_(std::construct_at(reinterpret_cast<T*>(storage_), std::forward<Arguments>(arguments)...)) {}
    NeverDestroyed(const NeverDestroyed&) = delete;
    NeverDestroyed& operator=(const NeverDestroyed&) = delete;

    [[nodiscard]] T& get() { return *object_; }

private:
    alignas(T) std::byte storage_[sizeof(T)];
    T* object_;
};

} // namespace appkitglue
