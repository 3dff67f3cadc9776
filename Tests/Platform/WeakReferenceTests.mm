#import "Platform.h"
#import "TestSupport.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

using platform::WeakReference;

namespace {
WeakReference seenByDealloc;
bool wasReadableInDealloc = false;

void readInDealloc() {
    id object = seenByDealloc.loadRetained();
    wasReadableInDealloc = object != nil;
}
} // namespace

@interface QVTestPlain : NSObject {
    int _value;
}
@property (nonatomic, assign) int value;
@end
@implementation QVTestPlain
@synthesize value = _value;
@end

@interface QVTestPlainSubclass : QVTestPlain
@end
@implementation QVTestPlainSubclass
@end

@interface QVTestOwnDealloc : NSObject
@end
@implementation QVTestOwnDealloc
- (void)dealloc {
    readInDealloc();
    [super dealloc];
}
@end

@interface QVTestOwnDeallocSubclass : QVTestOwnDealloc
@end
@implementation QVTestOwnDeallocSubclass
- (void)dealloc {
    readInDealloc();
    [super dealloc];
}
@end

@interface QVTestOwnRelease : NSObject
@end
@implementation QVTestOwnRelease
- (oneway void)release {
    [super release];
}
@end

@interface QVTestObserver : NSObject
@end
@implementation QVTestObserver
- (void)observeValueForKeyPath:(NSString *)keyPath
                      ofObject:(id)object
                        change:(NSDictionary *)change
                       context:(void *)context {
}
@end

namespace {

bool reads(const WeakReference &reference, id expected) {
    id object = reference.loadRetained();
    const bool same = object == expected;
    [object release];
    return same;
}

// Whether a reference reads the object while it lives and nil once it is released.
template <typename Make> bool isFollowed(Make make) {
    WeakReference reference;
    @autoreleasepool {
        id object = make();
        reference = WeakReference(object);
        if (!reads(reference, object)) {
            return false;
        }
        [object release];
    }
    return reads(reference, nil);
}

TEST(WeakReference, ADeadObjectReadsNil) {
    EXPECT_TRUE(isFollowed([] { return [[QVTestPlain alloc] init]; }));
}

TEST(WeakReference, NilAndAnEmptyReferenceReadNil) {
    EXPECT_TRUE(reads(WeakReference(), nil));
    EXPECT_TRUE(reads(WeakReference(nil), nil));
}

TEST(WeakReference, ReadingDoesNotKeepTheObjectAlive) {
    QVTestPlain *object = [[QVTestPlain alloc] init];
    const WeakReference reference(object);
    EXPECT_EQ([object retainCount], 1U);
    EXPECT_TRUE(reads(reference, object));
    EXPECT_EQ([object retainCount], 1U);
    [object release];
}

TEST(WeakReference, SeveralReferencesToOneObjectAllReadNilWhenItDies) {
    QVTestPlain *object = [[QVTestPlain alloc] init];
    const WeakReference first(object);
    const WeakReference second(object);
    const WeakReference copy = first; // NOLINT(performance-unnecessary-copy-initialization)
    [object release];
    EXPECT_TRUE(reads(first, nil));
    EXPECT_TRUE(reads(second, nil));
    EXPECT_TRUE(reads(copy, nil));
}

TEST(WeakReference, AReferenceMayGoBeforeItsObject) {
    QVTestPlain *object = [[QVTestPlain alloc] init];
    auto first = std::make_unique<WeakReference>(object);
    const WeakReference second(object);
    first.reset();
    EXPECT_TRUE(reads(second, object));
    [object release];
    EXPECT_TRUE(reads(second, nil));
}

TEST(WeakReference, ANewObjectAtTheSameAddressIsNotTakenForTheOldOne) {
    for (int i = 0; i < 100; i++) {
        QVTestPlain *object = [[QVTestPlain alloc] init];
        const WeakReference old(object);
        [object release];
        QVTestPlain *next = [[QVTestPlain alloc] init];
        EXPECT_TRUE(reads(old, nil));
        [next release];
    }
}

TEST(WeakReference, CannotBeReadInsideTheObjectsOwnDealloc) {
    for (Class aClass : {[QVTestOwnDealloc class], [QVTestOwnDeallocSubclass class]}) {
        id object = [[aClass alloc] init];
        seenByDealloc = WeakReference(object);
        wasReadableInDealloc = true;
        [object release];
        EXPECT_FALSE(wasReadableInDealloc);
        EXPECT_TRUE(reads(seenByDealloc, nil));
    }
}

TEST(WeakReference, FollowsSubclassesOfFollowedClasses) {
    EXPECT_TRUE(isFollowed([] { return [[QVTestPlain alloc] init]; }));
    EXPECT_TRUE(isFollowed([] { return [[QVTestPlainSubclass alloc] init]; }));
}

TEST(WeakReference, FollowsClassesThatCountTheirReferencesThemselves) {
    EXPECT_TRUE(isFollowed([] { return [[QVTestOwnRelease alloc] init]; }));
    EXPECT_TRUE(isFollowed([] { return [[QVTestOwnRelease alloc] init]; }));
}

TEST(WeakReference, FollowsClassClusters) {
    EXPECT_TRUE(isFollowed([] { return [[NSMutableArray alloc] init]; }));
    EXPECT_TRUE(isFollowed([] { return [[NSArray alloc] initWithObjects:@"a", @"b", nil]; }));
    EXPECT_TRUE(isFollowed([] { return [[NSMutableString alloc] initWithString:@"changeable"]; }));
    EXPECT_TRUE(isFollowed([] { return [[NSMutableDictionary alloc] init]; }));
    EXPECT_TRUE(isFollowed([] { return [[NSData alloc] initWithBytes:"some bytes" length:10]; }));
}

TEST(WeakReference, FollowsObservedObjectsInWhateverOrder) {
    QVTestObserver *observer = [[QVTestObserver alloc] init];
    const auto observe = [&](QVTestPlain *object) {
        [object addObserver:observer forKeyPath:@"value" options:0 context:nullptr];
    };
    @autoreleasepool {
        QVTestPlain *first = [[QVTestPlain alloc] init];
        const WeakReference before(first);
        observe(first);
        [first setValue:3];
        [first removeObserver:observer forKeyPath:@"value"];
        [first release];
        EXPECT_TRUE(reads(before, nil));

        QVTestPlain *second = [[QVTestPlain alloc] init];
        observe(second);
        const WeakReference after(second);
        EXPECT_TRUE(reads(after, second));
        [second removeObserver:observer forKeyPath:@"value"];
        [second release];
        EXPECT_TRUE(reads(after, nil));
    }
    [observer release];
}

TEST(WeakReference, AnObjectOfTheRootClassItselfIsRefused) {
    NSObject *object = [[NSObject alloc] init];
    EXPECT_TRUE(reads(WeakReference(object), nil));
    [object release];
}

TEST(WeakReference, FollowsWindowsToolbarsAndViews) {
    EXPECT_TRUE(isFollowed([] { return [[NSToolbar alloc] initWithIdentifier:@"weak"]; }));
    EXPECT_TRUE(isFollowed([] { return [[NSTextField alloc] initWithFrame:NSMakeRect(0, 0, 9, 9)]; }));
    WeakReference closed;
    @autoreleasepool {
        NSWindow *window = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 200, 100)
                                                       styleMask:NSTitledWindowMask | NSClosableWindowMask
                                                         backing:NSBackingStoreBuffered
                                                           defer:NO];
        closed = WeakReference(window);
        [window orderFront:nil];
        EXPECT_TRUE(reads(closed, window));
        [window close]; // releases the window, as a new window is wont to
    }
    EXPECT_TRUE(test::runUntil([&] { return reads(closed, nil); }));
}

TEST(WeakReference, AnotherThreadReadsWholeObjectsOrNil) {
    std::mutex lock;
    std::shared_ptr<WeakReference> shared;
    std::atomic<bool> stop{false};
    std::atomic<int> loads{0};
    std::atomic<int> wrong{0};
    std::thread reader([&] {
        GSRegisterCurrentThread();
        while (!stop) {
            std::shared_ptr<WeakReference> current;
            {
                const std::lock_guard guard(lock);
                current = shared;
            }
            if (current == nullptr) {
                continue;
            }
            QVTestPlain *object = current->loadRetained();
            loads++;
            if (object != nil && [object value] != 7) {
                wrong++;
            }
            [object release];
        }
        GSUnregisterCurrentThread();
    });
    for (int i = 0; i < 20000 || loads < 100; i++) {
        QVTestPlain *object = [[QVTestPlain alloc] init];
        [object setValue:7];
        auto reference = std::make_shared<WeakReference>(object);
        {
            const std::lock_guard guard(lock);
            shared = reference;
        }
        if (i % 3 == 0) {
            std::this_thread::yield();
        }
        [object release];
    }
    stop = true;
    reader.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
