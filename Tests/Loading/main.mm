// Loads the bundle into a program that has no application object and no window server, and checks that this starts
// nothing: every method of AppKit's classes stays what it was, no thread and no application object appear.
#import <QVAppKitController.h>
#import <objc/runtime.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

namespace {

int failures = 0;

void check(bool condition, const char *what) {
    if (!condition) {
        std::printf("FAILED: %s\n", what);
        ++failures;
    }
}

/// The implementations of AppKit's methods, by class and selector.
std::map<std::string, IMP> implementations() {
    std::map<std::string, IMP> result;
    // By name: to message a class would initialize it, and some want a window server then.
    for (const char *name : {"NSView", "NSWindow", "NSCursor", "NSAttributedString", "NSMenu", "NSToolbarItem",
                             "NSApplication", "NSWorkspace", "NSViewController", "NSObject"}) {
        const Class aClass = static_cast<Class>(objc_getClass(name));
        unsigned count = 0;
        Method *methods = class_copyMethodList(aClass, &count);
        for (unsigned i = 0; i < count; ++i) {
            const SEL selector = method_getName(methods[i]);
            // The first one of a name is the one in force.
            result.emplace(std::string(name) + " " + sel_getName(selector), method_getImplementation(methods[i]));
        }
        std::free(methods);
    }
    return result;
}

} // namespace

int main(int argc, char **argv) {
    @autoreleasepool {
        if (argc != 2) {
            return 2;
        }
        check(NSClassFromString(@"QVAppKitController") == Nil,
              "the program knows the class before it loads the bundle");
        const auto before = implementations();
        NSBundle *bundle = [NSBundle bundleWithPath:[NSString stringWithUTF8String:argv[1]]];
        check([bundle load], "the bundle loads");
        for (const auto &[name, implementation] : implementations()) {
            const auto known = before.find(name);
            check(known == before.end() || known->second == implementation, name.c_str());
        }
        check(NSApp == nil, "loading makes no application object");
        check(![NSThread isMultiThreaded], "loading starts no thread");

        const Class principal = [bundle principalClass];
        check([NSStringFromClass(principal) isEqualToString:@"QVAppKitController"], "the principal class");
        check([NSBundle bundleForClass:principal] == bundle, "the class belongs to the bundle");
        QVAppKitController *controller = [[[principal alloc] init] autorelease];
        check(controller != nil, "a controller can be made");
        // Without the update framework there is nothing to check, and nothing to fail.
        [controller checkForUpdates:nil];
        check([[principal determineMacOSVersion] isKindOfClass:[NSString class]], "class operations answer");
        check(NSApp == nil, "making a controller makes no application object");
    }
    return failures == 0 ? 0 : 1;
}
