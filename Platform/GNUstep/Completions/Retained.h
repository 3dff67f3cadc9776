// A strong reference to an object.
#pragma once

#import <Foundation/Foundation.h>

#include <utility>

namespace platform {

/// Keeps an object alive; movable, not copyable.
class Retained {
public:
    Retained() = default;
    explicit Retained(id object) : object_([object retain]) {}
    Retained(Retained &&other) noexcept : object_(std::exchange(other.object_, nil)) {}
    Retained &operator=(Retained &&other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    Retained(const Retained &) = delete;
    Retained &operator=(const Retained &) = delete;
    ~Retained() { [object_ release]; }

    [[nodiscard]] id get() const { return object_; }

private:
    id object_ = nil;
};

} // namespace platform
