// What an animation moves: a property of an object that is made of numbers.
#pragma once

#import <Foundation/Foundation.h>

#include <array>
#include <cstddef>
#include <functional>
#include <optional>

namespace platform::animation {

/// The numbers of a property; rectangles are x, y, width, height. A property uses as many as it has.
constexpr std::size_t maximumParts = 6;
using Values = std::array<double, maximumParts>;

/// A property of one object. It does not keep the object alive.
struct Track {
    id target = nil;
    SEL name = nullptr; ///< Tells the properties of one object apart; the getter where there is one.
    std::size_t parts = 0;
    std::function<Values()> read;
    std::function<void(const Values&)> write;
    /// The target's own idea of the value may differ from what was written (a window manager has its say).
    bool mayReadBackDifferently = false;

    [[nodiscard]] bool isSameAs(const Track& other) const { return target == other.target && name == other.name; }
};

/// A change of some parts of a property.
struct Change {
    Track track;
    std::size_t first = 0;
    std::size_t count = 0;
    Values values{}; ///< `count` of them, for the parts from `first` on.
};

/// The number of doubles that a value of an Objective-C type encoding consists of; 0 when it has anything else in it.
std::size_t partsOfType(const char* encoding);

/// The change that a call of `setter` on `target` with the numbers at `argument` would make. Nothing when that is no
/// setter of a readable property made of numbers.
std::optional<Change> changeBySetter(id target, SEL setter, const double* argument);

} // namespace platform::animation
