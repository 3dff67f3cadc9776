// The main function of test programs with windows: a real application object, as a host has it, then the tests.
#import <AppKit/AppKit.h>
#import <objc/runtime.h>

#include <dlfcn.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

// A program that links the bundle's library instead of loading it would be told that the bundle's classes belong to the
// program itself. Their resources lie in the bundle all the same.
@interface NSBundle (ClassesOfALinkedBundle)
@end

static Class (*originalBundleForClass)(id, SEL, Class);

static id bundleForClassByImage(id self, SEL command, Class aClass) {
    Dl_info image{};
    if (aClass != Nil && dladdr(static_cast<const void *>(aClass), &image) != 0 && image.dli_fname != nullptr) {
        const std::string path = image.dli_fname;
        const auto end = path.rfind("/AppKitGlue.bundle/AppKitGlue");
        if (end != std::string::npos) {
            static NSBundle *bundle = [[NSBundle alloc] initWithPath:@QV_BUNDLE_PATH];
            return bundle;
        }
    }
    return originalBundleForClass(self, command, aClass);
}

// Each test has an autorelease pool of its own, as each event of an application has.
class PoolOfEachTest : public testing::EmptyTestEventListener {
public:
    void OnTestStart(const testing::TestInfo &) override { pool_ = [[NSAutoreleasePool alloc] init]; }
    void OnTestEnd(const testing::TestInfo &) override { [pool_ drain]; }

private:
    NSAutoreleasePool *pool_ = nil;
};

int main(int argc, char **argv) {
    @autoreleasepool {
        testing::InitGoogleTest(&argc, argv);
        testing::UnitTest::GetInstance()->listeners().Append(std::make_unique<PoolOfEachTest>().release());
        Method method = class_getClassMethod([NSBundle class], @selector(bundleForClass:));
        originalBundleForClass = reinterpret_cast<Class (*)(id, SEL, Class)>(
            method_setImplementation(method, reinterpret_cast<IMP>(bundleForClassByImage)));
        [[NSUserDefaults standardUserDefaults] registerDefaults:@{
            @"GSSuppressAppIcon" : @"YES",
            @"NSMenuInterfaceStyle" : @"NSWindows95InterfaceStyle",
            @"NSScrollViewInterfaceStyle" : @"NSMacintoshInterfaceStyle",
        }];
        [NSApplication sharedApplication];
        [NSApp finishLaunching];
        [NSApp activateIgnoringOtherApps:YES];
    }
    return RUN_ALL_TESTS();
}
