#import "Hooks.h"

#include <cstdlib>

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
        return original;
    }
    return class_addMethod(aClass, selector, replacement, method_getTypeEncoding(method)) ? original : nullptr;
}

} // namespace platform
