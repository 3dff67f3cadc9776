// Replaces methods of AppKit's own classes and keeps the originals: how a completion changes what GNUstep already has.
#pragma once

#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include <utility>

namespace platform {

/// Makes `replacement` the implementation of the class's instance method (of its class method, if `aClass` is a
/// metaclass) and returns what the class answered with before, be it its own or inherited. A method that the class only
/// inherits is added to the class itself: its superclass stays as it is (for class methods only of classes that GCC
/// compiled, as AppKit's are). Returns null, and changes nothing, when the class has no such method or `replacement` is
/// in place already.
IMP replaceMethod(Class aClass, SEL selector, IMP replacement);

/// One replaced method with its type: `Result` and `Arguments` are those after `self` and `_cmd`.
///
///     Hook<void, NSRect> drawRect;                       // a static variable of the completion
///     void newDrawRect(id self, SEL selector, NSRect r) { … drawRect.original(self, selector, r); … }
///     drawRect.install([NSView class], @selector(drawRect:), newDrawRect);
///
/// Main thread only.
template <typename Result, typename... Arguments> class Hook {
public:
    using Function = Result (*)(id, SEL, Arguments...);

    /// Replaces the instance method of `aClass`, once: a second call does nothing. Whether it is replaced.
    bool install(Class aClass, SEL selector, Function replacement) {
        if (original_ == nullptr) {
            original_ = reinterpret_cast<Function>(replaceMethod(aClass, selector, reinterpret_cast<IMP>(replacement)));
        }
        return original_ != nullptr;
    }

    /// The same for a class method.
    bool installOnClass(Class aClass, SEL selector, Function replacement) {
        return install(object_getClass(aClass), selector, replacement);
    }

    /// What the method did before. Only after it was installed.
    Result original(id self, SEL selector, Arguments... arguments) const {
        return original_(self, selector, std::forward<Arguments>(arguments)...);
    }

private:
    Function original_ = nullptr;
};

} // namespace platform
