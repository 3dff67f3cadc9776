// Replacing methods of AppKit where the theme class has no say.
#pragma once

#import <Foundation/Foundation.h>

#import <objc/runtime.h>

namespace flattheme {

/// Gives `className` the implementation for `selector` and returns the one that was in effect before, its superclass's
/// included; nullptr when there is no such class or method, and then nothing is replaced.
template <typename Function> Function replaceMethod(const char *className, SEL selector, Function implementation) {
    Class target = objc_getClass(className);
    Method method = target != Nil ? class_getInstanceMethod(target, selector) : nullptr;
    if (method == nullptr) {
        return nullptr;
    }
    const auto original = reinterpret_cast<Function>(method_getImplementation(method));
    const auto replacement = reinterpret_cast<IMP>(implementation);
    if (!class_addMethod(target, selector, replacement, method_getTypeEncoding(method))) {
        method_setImplementation(method, replacement);
    }
    return original;
}

// Each of these replaces the methods of its element, and is called once, by install().
void installFieldHooks();
void installButtonHooks();
void installToolbarHooks();
void installScrollerHooks();
void installMenuHooks();
void installWindowHooks();

} // namespace flattheme
