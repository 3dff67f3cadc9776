// Values that a category keeps for objects whose instance variables it cannot add to.
#pragma once

#import "WeakReference.h"

#include <cstddef>
#include <unordered_map>
#include <utility>

namespace platform {

/// One value of type `T` for each object that has one. A value goes some time after its object is gone; an object that
/// comes to lie at the same address does not inherit it. Main thread only.
template <typename T> class AttachedValues {
public:
    /// The object's value, or null when it has none. Valid until the next call of `set`.
    T *find(id object) {
        const auto found = entries_.find(object);
        if (found == entries_.end()) {
            return nullptr;
        }
        id living = found->second.owner.loadRetained();
        [living release];
        return living == object ? &found->second.value : nullptr;
    }

    /// The object's value, or `fallback`.
    T value(id object, T fallback) {
        T *const found = find(object);
        return found != nullptr ? *found : fallback;
    }

    void set(id object, T value) {
        if (entries_.size() >= pruneAt_) {
            prune();
        }
        entries_.insert_or_assign(object, Entry{WeakReference(object), std::move(value)});
    }

private:
    struct Entry {
        WeakReference owner;
        T value;
    };

    void prune() {
        std::erase_if(entries_, [](const auto &entry) {
            id living = entry.second.owner.loadRetained();
            [living release];
            return living == nil;
        });
        pruneAt_ = entries_.size() * 2 + 16;
    }

    std::unordered_map<const void *, Entry> entries_;
    std::size_t pruneAt_ = 16;
};

} // namespace platform
