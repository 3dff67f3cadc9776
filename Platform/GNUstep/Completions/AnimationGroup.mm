#import "AnimationGroup.h"

#import "Platform.h"

#include <utility>
#include <vector>

namespace platform::animation {

namespace {

struct OpenGroup {
    std::shared_ptr<AnimationGroup> group;
    GroupHold hold;
};

struct OpenGroups {
    std::vector<OpenGroup> stack;
    OpenGroup ofThisTurn;
};

OpenGroups &openGroups() {
    static auto *const shared = std::make_unique<OpenGroups>().release();
    return *shared;
}

} // namespace

std::shared_ptr<AnimationGroup> AnimationGroup::inside(const std::shared_ptr<AnimationGroup> &parent) {
    auto group = std::make_shared<AnimationGroup>();
    if (parent != nullptr) {
        group->duration = parent->duration;
        group->animatesImplicitly = parent->animatesImplicitly;
        group->timing = parent->timing;
        group->holdOfParent_ = parent->hold();
    }
    return group;
}

bool AnimationGroup::currentAnimatesImplicitly() {
    const auto &[stack, ofThisTurn] = openGroups();
    const AnimationGroup *group = stack.empty() ? ofThisTurn.group.get() : stack.back().group.get();
    return group != nullptr && group->animatesImplicitly;
}

std::shared_ptr<AnimationGroup> AnimationGroup::current() {
    auto &[stack, ofThisTurn] = openGroups();
    if (!stack.empty()) {
        return stack.back().group;
    }
    if (ofThisTurn.group == nullptr) {
        ofThisTurn.group = inside(nullptr);
        ofThisTurn.hold = ofThisTurn.group->hold();
        async([] { openGroups().ofThisTurn = {}; });
    }
    return ofThisTurn.group;
}

void AnimationGroup::open() {
    auto group = inside(current());
    auto hold = group->hold();
    openGroups().stack.push_back({std::move(group), std::move(hold)});
}

void AnimationGroup::close() {
    auto &stack = openGroups().stack;
    if (!stack.empty()) {
        const OpenGroup closed = std::move(stack.back());
        stack.pop_back();
    }
}

GroupHold AnimationGroup::hold() {
    ++holds_;
    return {static_cast<void *>(this), [group = shared_from_this()](void *) { group->letGo(); }};
}

// Never inside the caller, be that the end of a group without animations, a frame or a view's deallocation: what
// completes may open modal panels or close windows.
void AnimationGroup::letGo() {
    if (--holds_ == 0) {
        async([group = shared_from_this()] { group->complete(); });
    }
}

void AnimationGroup::complete() {
    if (holds_ != 0) {
        return;
    }
    if (const auto work = std::exchange(completion, nullptr)) {
        work();
    }
    holdOfParent_ = nullptr;
}

} // namespace platform::animation
