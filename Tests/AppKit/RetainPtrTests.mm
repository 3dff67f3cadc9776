#import "RetainPtr.h"
#import "WeakObjCPtr.h"

#include <gtest/gtest.h>

#include <utility>

using appkitglue::adoptNS;
using appkitglue::RetainPtr;
using appkitglue::retainPtr;
using appkitglue::WeakObjCPtr;

namespace {

TEST(RetainPtr, RetainsWhatItIsGivenAndAdoptsWhatItOwns) {
    NSObject *object = [[NSObject alloc] init];
    {
        const RetainPtr<NSObject> strong = retainPtr(object);
        EXPECT_EQ([object retainCount], 2U);
        const RetainPtr<NSObject> copy = strong; // NOLINT(performance-unnecessary-copy-initialization)
        EXPECT_EQ([object retainCount], 3U);
        EXPECT_TRUE(copy == strong);
    }
    EXPECT_EQ([object retainCount], 1U);
    const RetainPtr<NSObject> adopted = adoptNS(object);
    EXPECT_EQ([object retainCount], 1U);
    EXPECT_EQ(adopted.get(), object);
}

TEST(RetainPtr, MovingKeepsTheCountAndEmptiesTheSource) {
    RetainPtr<NSMutableArray> first = adoptNS([[NSMutableArray alloc] init]);
    const RetainPtr<NSArray> second = std::move(first);
    EXPECT_FALSE(first); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ([second.get() retainCount], 1U);
}

TEST(RetainPtr, AssignmentReleasesTheOldObjectEvenForItself) {
    RetainPtr<NSObject> pointer = adoptNS([[NSObject alloc] init]);
    pointer = RetainPtr<NSObject>(pointer);
    EXPECT_EQ([pointer.get() retainCount], 1U);
    const RetainPtr<NSObject> other = pointer;
    pointer = nullptr;
    EXPECT_FALSE(pointer);
    EXPECT_EQ([other.get() retainCount], 1U);
}

TEST(RetainPtr, AutoreleaseHandsTheReferenceToThePool) {
    NSObject *object = [[NSObject alloc] init];
    @autoreleasepool {
        RetainPtr<NSObject> pointer = retainPtr(object);
        EXPECT_EQ(pointer.autorelease(), object);
        EXPECT_FALSE(pointer);
        EXPECT_EQ([object retainCount], 2U);
    }
    EXPECT_EQ([object retainCount], 1U);
    [object release];
}

TEST(WeakObjCPtr, IsEmptyOnceTheObjectIsGone) {
    WeakObjCPtr<NSMutableArray> weak;
    EXPECT_FALSE(weak);
    {
        const auto strong = adoptNS([[NSMutableArray alloc] init]);
        weak = strong.get();
        EXPECT_TRUE(weak);
        EXPECT_EQ(weak.get().get(), strong.get());
        EXPECT_EQ([strong.get() retainCount], 1U);
    }
    EXPECT_FALSE(weak);
    EXPECT_EQ(weak.get().get(), nil);
}

TEST(WeakObjCPtr, WhatItReturnsKeepsTheObjectAlive) {
    auto strong = adoptNS([[NSMutableArray alloc] init]);
    const WeakObjCPtr<NSMutableArray> weak(strong.get());
    const RetainPtr<NSMutableArray> held = weak.get();
    strong = nullptr;
    EXPECT_TRUE(weak);
    EXPECT_EQ([held.get() retainCount], 1U);
}

} // namespace
