// Outlets of interface files: their accessors, and the stop when one that is needed is not connected. For .mm files
// only.
#pragma once

#import "Platform.h"

#include "FatalError.h"
#include "RetainPtr.h"
#include "WeakObjCPtr.h"

#include <source_location>
#include <string>
#include <string_view>

namespace appkitglue {

/// `element` itself; ends the process if it is nil, naming the outlet `name` of `unit` (a source unit) and the line of
/// the call.
template <typename T>
[[nodiscard]] T* requiredOutlet(T* element, std::string_view unit, std::string_view name,
                                const std::source_location& location = std::source_location::current()) {
    if (element == nil) {
        fatalError(unit, static_cast<int>(location.line()),
                   std::string("The outlet ").append(name) + " is not connected");
    }
    return element;
}

/// The same for what the opening code hands over instead of the interface file.
template <typename T>
[[nodiscard]] const T& requiredValue(const T& value, std::string_view unit, std::string_view name,
                                     const std::source_location& location = std::source_location::current()) {
    if (!value) {
        fatalError(unit, static_cast<int>(location.line()), std::string("The field ").append(name) + " is not set");
    }
    return value; // NOLINT(bugprone-return-const-ref-from-parameter): temporaries are refused below
}

/// A temporary would be gone before its value is used.
template <typename T> void requiredValue(const T&& value, std::string_view unit, std::string_view name) = delete;

} // namespace appkitglue

/// The accessors of an outlet that does not keep its element alive, over an instance variable `_getter` of type
/// `WeakObjCPtr<Type>`.
#define QV_WEAK_OUTLET(Type, getter, setter)                                                                           \
    -(Type*)getter {                                                                                                   \
        return _##getter.get().autorelease();                                                                          \
    }                                                                                                                  \
    -(void)setter : (Type*)element {                                                                                   \
        _##getter = element;                                                                                           \
    }

/// The same for an outlet that keeps its element alive, over a `RetainPtr<Type>`.
#define QV_STRONG_OUTLET(Type, getter, setter)                                                                         \
    -(Type*)getter {                                                                                                   \
        return _##getter.get();                                                                                        \
    }                                                                                                                  \
    -(void)setter : (Type*)element {                                                                                   \
        _##getter = appkitglue::retainPtr(element);                                                                    \
    }
