#import <Block.h>
#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace {

using IntBlock = int (^)();

// The block's literal lies on the stack of a function that has returned by the time the copy is called.
[[gnu::noinline]] IntBlock copiedBlockReturning(int value) {
    return Block_copy(^{
        return value;
    });
}
[[gnu::noinline]] int overwriteStack() {
    volatile int rubbish[256];
    for (int i = 0; i < 256; i++) {
        rubbish[i] = -1;
    }
    return rubbish[17];
}

TEST(Blocks, ACopyOutlivesTheFunctionThatMadeTheBlock) {
    IntBlock block = copiedBlockReturning(42);
    EXPECT_EQ(overwriteStack(), -1);
    EXPECT_EQ(block(), 42);
    Block_release(block);
}

TEST(Blocks, ACopyOfACopyIsTheSameBlockAndCountsItsReferences) {
    auto captured = std::make_shared<int>(7);
    IntBlock first = nil;
    {
        auto inBlock = captured;
        first = Block_copy(^{
            return *inBlock;
        });
    }
    IntBlock second = Block_copy(first);
    EXPECT_EQ(static_cast<const void *>(first), static_cast<const void *>(second));
    Block_release(first);
    EXPECT_EQ(second(), 7);
    EXPECT_EQ(captured.use_count(), 2);
    Block_release(second);
    EXPECT_EQ(captured.use_count(), 1) << "the captured C++ value is destroyed with the last reference";
}

TEST(Blocks, GlobalBlocksAndNilNeedNoCopy) {
    IntBlock global = ^{
        return 3;
    };
    IntBlock copy = Block_copy(global);
    EXPECT_EQ(static_cast<const void *>(global), static_cast<const void *>(copy));
    Block_release(copy);
    EXPECT_EQ(global(), 3);
    EXPECT_EQ(_Block_copy(nullptr), nullptr);
    _Block_release(nullptr);
}

TEST(Blocks, ABlockVariableIsSharedByCopiesAndItsScope) {
    __block int counter = 0;
    IntBlock increment = Block_copy(^{
        return ++counter;
    });
    IntBlock decrement = Block_copy(^{
        return --counter;
    });
    EXPECT_EQ(increment(), 1);
    EXPECT_EQ(increment(), 2);
    EXPECT_EQ(decrement(), 1);
    EXPECT_EQ(counter, 1);
    counter = 10;
    EXPECT_EQ(increment(), 11);
    Block_release(increment);
    EXPECT_EQ(decrement(), 10) << "the variable lives as long as one block that uses it";
    Block_release(decrement);
    EXPECT_EQ(counter, 10);
}

TEST(Blocks, ABlockVariableOfACxxTypeIsDestroyedOnce) {
    auto alive = std::make_shared<int>(0);
    {
        __block std::shared_ptr<int> held = alive;
        IntBlock block = Block_copy(^{
            return static_cast<int>(held.use_count());
        });
        EXPECT_GE(block(), 2);
        Block_release(block);
    }
    EXPECT_EQ(alive.use_count(), 1);
}

TEST(Blocks, ANestedBlockIsCopiedWithItsOwner) {
    auto alive = std::make_shared<std::string>("inner");
    std::size_t (^outer)() = nil;
    {
        auto captured = alive;
        std::size_t (^inner)() = ^{
            return captured->size();
        };
        outer = Block_copy(^{
            return inner() + 1;
        });
    }
    EXPECT_EQ(overwriteStack(), -1);
    EXPECT_EQ(outer(), 6U);
    Block_release(outer);
    EXPECT_EQ(alive.use_count(), 1);
}

TEST(Blocks, CapturedObjectsAreRetainedThoseOfBlockVariablesAreNot) {
    NSObject *object = [[NSObject alloc] init];
    __block NSObject *notRetained = object;
    IntBlock block = Block_copy(^{
        return [object retainCount] == [notRetained retainCount] ? 1 : 0;
    });
    EXPECT_EQ([object retainCount], 2U);
    EXPECT_EQ(block(), 1);
    Block_release(block);
    EXPECT_EQ([object retainCount], 1U);
    [object release];
}

TEST(Blocks, AFunctionObjectKeepsABlockThatItWasGivenACopyOf) {
    int sum = 0;
    std::function<void()> stored;
    {
        int *target = &sum;
        void (^block)() = Block_copy(^{
            *target += 5;
        });
        stored = [block = std::shared_ptr<void>(reinterpret_cast<void *>(block), [](void *b) { _Block_release(b); })] {
            reinterpret_cast<void (^)()>(block.get())();
        };
    }
    stored();
    stored();
    EXPECT_EQ(sum, 10);
}

} // namespace
