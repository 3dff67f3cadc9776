// Zeroing weak references on an object runtime that has none.
//
// An object with weak references has one control block, found through a table that is split into shards, each with its
// lock. The class of such an object gets a `release` of its own, which decides under the shard's lock whether the
// object died and then clears the control block; a load retains under the same lock. So no load ever hands out a dying
// object, whichever thread it runs on. (A hook into `dealloc` comes too late for that, and one into NSObject costs
// every object.)
#import "WeakReference.h"

#import <objc/runtime.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace platform {

struct WeakControl {
    id object;
    std::mutex &lock;
};

namespace {

using Release = void (*)(id, SEL);

struct Shard {
    std::mutex lock;
    std::unordered_map<void *, std::shared_ptr<WeakControl>> controls;
};

Shard &shardOf(const void *object) {
    // Objects may die after the destructors of statics have run.
    [[clang::no_destroy]] static std::array<Shard, 64> shards;
    const auto address = reinterpret_cast<std::uintptr_t>(object) >> 4;
    return shards[(address ^ (address >> 12)) % shards.size()];
}

// A class without an own `release` hooks that one. The others hook `dealloc`, and as a method implementation has no
// closure, each takes one of these numbered slots with its own function.
struct DeallocHook {
    Class hookedClass;
    IMP original; // null when the class inherits its dealloc
};
constexpr std::size_t maximalDeallocHooks = 64;

struct Hooks {
    std::mutex lock;
    std::array<DeallocHook, maximalDeallocHooks> dealloc;
    std::size_t deallocCount = 0;
};

Hooks &hooks() {
    [[clang::no_destroy]] static Hooks instance;
    return instance;
}

// Takes the object out of the table, under the shard's lock; the control block is returned so that it dies outside the
// lock.
std::shared_ptr<WeakControl> forget(Shard &shard, id object) {
    const auto found = shard.controls.find(object);
    if (found == shard.controls.end()) {
        return nullptr;
    }
    auto control = std::move(found->second);
    control->object = nil;
    shard.controls.erase(found);
    return control;
}

bool definesMethod(Class aClass, SEL selector) {
    unsigned count = 0;
    Method *const methods = class_copyMethodList(aClass, &count);
    bool found = false;
    for (unsigned i = 0; i < count && !found; i++) {
        found = sel_isEqual(method_getName(methods[i]), selector);
    }
    std::free(methods);
    return found;
}

void weakRelease(id self, SEL) {
    std::shared_ptr<WeakControl> control;
    bool died = false;
    {
        auto &shard = shardOf(self);
        const std::lock_guard guard(shard.lock);
        died = NSDecrementExtraRefCountWasZero(self);
        if (died) {
            control = forget(shard, self);
        }
    }
    if (died) {
        [self dealloc];
    }
}

template <std::size_t N> void weakDealloc(id self, SEL selector) {
    std::shared_ptr<WeakControl> control;
    {
        auto &shard = shardOf(self);
        const std::lock_guard guard(shard.lock);
        control = forget(shard, self);
    }
    const DeallocHook &hook = hooks().dealloc[N];
    const IMP original = hook.original != nullptr
                             ? hook.original
                             : class_getMethodImplementation(class_getSuperclass(hook.hookedClass), selector);
    reinterpret_cast<Release>(original)(self, selector);
}

template <std::size_t... N> constexpr std::array<Release, sizeof...(N)> deallocs(std::index_sequence<N...>) {
    return {weakDealloc<N>...};
}
constexpr auto deallocFunctions = deallocs(std::make_index_sequence<maximalDeallocHooks>());

bool hookDealloc(Class aClass) {
    Hooks &known = hooks();
    for (std::size_t i = 0; i < known.deallocCount; i++) {
        if (known.dealloc[i].hookedClass == aClass) {
            return true;
        }
    }
    if (known.deallocCount == maximalDeallocHooks) {
        return false;
    }
    const std::size_t slot = known.deallocCount++;
    const IMP function = reinterpret_cast<IMP>(deallocFunctions[slot]);
    known.dealloc[slot] = {aClass, nullptr};
    if (definesMethod(aClass, @selector(dealloc))) {
        const Method method = class_getInstanceMethod(aClass, @selector(dealloc));
        known.dealloc[slot].original = method_getImplementation(method);
        method_setImplementation(method, function);
        return true;
    }
    return class_addMethod(aClass, @selector(dealloc), function, "v@:");
}

bool isOrdinaryObject(Class aClass) {
    Class const root = [NSObject class];
    for (Class ancestor = class_getSuperclass(aClass); ancestor != Nil; ancestor = class_getSuperclass(ancestor)) {
        if (ancestor == root) {
            return true;
        }
    }
    return false;
}

// Makes the class tell of the deaths of its instances. Whether it can.
bool hookClass(Class aClass) {
    const IMP current = class_getMethodImplementation(aClass, @selector(release));
    if (current == reinterpret_cast<IMP>(weakRelease)) {
        return true;
    }
    if (!isOrdinaryObject(aClass)) {
        return false;
    }
    const std::lock_guard guard(hooks().lock);
    if (current == class_getMethodImplementation([NSObject class], @selector(release))) {
        return class_addMethod(aClass, @selector(release), reinterpret_cast<IMP>(weakRelease), "v@:") ||
               class_getMethodImplementation(aClass, @selector(release)) == reinterpret_cast<IMP>(weakRelease);
    }
    return hookDealloc(aClass);
}

} // namespace

WeakReference::WeakReference(id object) {
    // The class that the object says it has: an observed object's real one is made and unmade by key-value observing.
    if (object == nil || !hookClass([object class])) {
        return;
    }
    auto &shard = shardOf(object);
    const std::lock_guard guard(shard.lock);
    auto &control = shard.controls[object];
    if (control == nullptr) {
        control = std::make_shared<WeakControl>(object, shard.lock);
    }
    control_ = control;
}

id WeakReference::loadRetained() const {
    if (control_ == nullptr) {
        return nil;
    }
    const std::lock_guard guard(control_->lock);
    return [control_->object retain];
}

} // namespace platform
