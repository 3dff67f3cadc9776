#import "Hooks.h"

#include <cstdlib>
#include <string>

namespace platform {

namespace {

// class_addMethod cannot tell: it takes the metaclasses that clang compiled for unfinished ones and adds to them what
// is there.
bool isOwnMethod(Class aClass, Method method) {
    unsigned count = 0;
    Method *const methods = class_copyMethodList(aClass, &count);
    bool found = false;
    for (unsigned i = 0; i < count && !found; i++) {
        found = methods[i] == method;
    }
    std::free(methods);
    return found;
}

// A changed implementation reaches only the class itself: subclasses that were used before keep what they looked up. A
// method that is added makes them all look again.
void forgetCachedMethods(Class aClass, SEL selector, IMP original) {
    const std::string name = std::string("original:") + sel_getName(selector);
    class_addMethod(aClass, sel_registerName(name.c_str()), original,
                    method_getTypeEncoding(class_getInstanceMethod(aClass, selector)));
}

} // namespace

IMP replaceMethod(Class aClass, SEL selector, IMP replacement) {
    const Method method = class_getInstanceMethod(aClass, selector);
    if (method == nullptr) {
        return nullptr;
    }
    const IMP original = method_getImplementation(method);
    if (original == replacement) {
        return nullptr;
    }
    if (isOwnMethod(aClass, method)) {
        method_setImplementation(method, replacement);
        forgetCachedMethods(aClass, selector, original);
        return original;
    }
    return class_addMethod(aClass, selector, replacement, method_getTypeEncoding(method)) ? original : nullptr;
}

} // namespace platform
