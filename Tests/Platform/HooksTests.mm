#import "Hooks.h"

#include <gtest/gtest.h>

#include <string>

@interface QVTestHooked : NSObject
- (int)addTwo:(int)value;
+ (NSString *)title;
@end
@implementation QVTestHooked
- (int)addTwo:(int)value {
    return value + 2;
}
+ (NSString *)title {
    return @"original";
}
@end

@interface QVTestHookedSubclass : QVTestHooked
@end
@implementation QVTestHookedSubclass
@end

@interface QVTestUsed : NSObject
- (int)number;
+ (int)classNumber;
@end
@implementation QVTestUsed
- (int)number {
    return 1;
}
+ (int)classNumber {
    return 1;
}
@end

@interface QVTestUsedSubclass : QVTestUsed
@end
@implementation QVTestUsedSubclass
@end

namespace {

platform::Hook<int> number;
int doubledNumber(id self, SEL selector) {
    return 2 * number.original(self, selector);
}

platform::Hook<int> classNumber;
int doubledClassNumber(id self, SEL selector) {
    return 2 * classNumber.original(self, selector);
}

platform::Hook<int, int> addTwo;
int addTwoAndHundred(id self, SEL selector, int value) {
    return addTwo.original(self, selector, value) + 100;
}

platform::Hook<NSString *> title;
NSString *longTitle(id self, SEL selector) {
    return [title.original(self, selector) stringByAppendingString:@" and more"];
}

platform::Hook<int, int> missing;

TEST(Hooks, AnInheritedMethodIsReplacedForTheSubclassOnly) {
    EXPECT_TRUE(addTwo.install([QVTestHookedSubclass class], @selector(addTwo:), addTwoAndHundred));
    QVTestHooked *base = [[QVTestHooked alloc] init];
    QVTestHookedSubclass *derived = [[QVTestHookedSubclass alloc] init];
    EXPECT_EQ([base addTwo:1], 3);
    EXPECT_EQ([derived addTwo:1], 103);
    EXPECT_TRUE(addTwo.install([QVTestHookedSubclass class], @selector(addTwo:), addTwoAndHundred));
    EXPECT_EQ([derived addTwo:1], 103) << "installing twice does not wrap twice";
    [base release];
    [derived release];
}

TEST(Hooks, AnOwnClassMethodIsReplacedAndItsOriginalKept) {
    EXPECT_TRUE(title.installOnClass([QVTestHooked class], @selector(title), longTitle));
    @autoreleasepool {
        EXPECT_STREQ([[QVTestHooked title] UTF8String], "original and more");
    }
    EXPECT_EQ(platform::replaceMethod(object_getClass([QVTestHooked class]), @selector(title),
                                      reinterpret_cast<IMP>(longTitle)),
              nullptr);
}

TEST(Hooks, ReachSubclassesThatWereUsedBefore) {
    QVTestUsedSubclass *used = [[QVTestUsedSubclass alloc] init];
    EXPECT_EQ([used number], 1);
    EXPECT_EQ([QVTestUsedSubclass classNumber], 1);
    EXPECT_TRUE(number.install([QVTestUsed class], @selector(number), doubledNumber));
    EXPECT_TRUE(classNumber.installOnClass([QVTestUsed class], @selector(classNumber), doubledClassNumber));
    EXPECT_EQ([used number], 2);
    EXPECT_EQ([QVTestUsedSubclass classNumber], 2);
    [used release];
}

TEST(Hooks, AMethodThatIsNotThereIsNotReplaced) {
    EXPECT_FALSE(missing.install([QVTestHooked class], @selector(isEqualToValue:), addTwoAndHundred));
}

} // namespace
