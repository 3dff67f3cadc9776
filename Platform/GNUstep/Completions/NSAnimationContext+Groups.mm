// In GNUstep 0.29 animation contexts keep a duration and nothing else: groups run neither their changes nor their
// completion.
#import "NSAnimationContext+Groups.h"

#import "AnimationGroup.h"

#import <Block.h>

#include <memory>

using platform::animation::AnimationGroup;

/// The context of one group. GNUstep's class has no place for what a group needs to know.
@interface QVAnimationContext : NSAnimationContext {
    std::shared_ptr<AnimationGroup> _group;
}
- (instancetype)initWithGroup:(std::shared_ptr<AnimationGroup>)group;
@end

namespace {

std::function<void()> functionOfBlock(GSAnimationContextCompletionHandler block) {
    if (block == nullptr) {
        return nullptr;
    }
    const std::shared_ptr<const void> copy(Block_copy(reinterpret_cast<const void *>(block)),
                                           [](const void *held) { Block_release(held); });
    return [copy] { reinterpret_cast<GSAnimationContextCompletionHandler>(const_cast<void *>(copy.get()))(); };
}

/// Closes the group that it opened, also when the changes raise.
struct OpenGroup {
    OpenGroup() { AnimationGroup::open(); }
    OpenGroup(const OpenGroup &) = delete;
    OpenGroup &operator=(const OpenGroup &) = delete;
    ~OpenGroup() { AnimationGroup::close(); }
};

} // namespace

@implementation QVAnimationContext

- (instancetype)initWithGroup:(std::shared_ptr<AnimationGroup>)group {
    if ((self = [super init]) != nil) {
        _group = std::move(group);
    }
    return self;
}

- (NSTimeInterval)duration {
    return _group->duration;
}

- (void)setDuration:(NSTimeInterval)duration {
    _group->duration = duration;
}

- (BOOL)allowsImplicitAnimation {
    return _group->animatesImplicitly;
}

- (void)setAllowsImplicitAnimation:(BOOL)allows {
    _group->animatesImplicitly = allows;
}

- (CAMediaTimingFunction *)timingFunction {
    const auto timing = _group->timing;
    return timing
               ? [CAMediaTimingFunction
                     functionWithControlPoints:
                         static_cast<float>(timing->x1
                                            ):static_cast<float>(timing->y1
                                                                 ):static_cast<float>(timing->x2
                                                                                      ):static_cast<float>(timing->y2)]
               : nil;
}

- (void)setTimingFunction:(CAMediaTimingFunction *)function {
    _group->timing = function != nil ? std::optional([function curve]) : std::nullopt;
}

- (void)setCompletionHandler:(GSAnimationContextCompletionHandler)handler {
    _group->completion = functionOfBlock(handler);
}

@end

#pragma clang diagnostic push
// These take the place of the class's own, knowingly; the instance methods are QVAnimationContext's.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
#pragma clang diagnostic ignored "-Wincomplete-implementation"

@implementation NSAnimationContext (Groups)

@dynamic allowsImplicitAnimation, timingFunction;

+ (NSAnimationContext *)currentContext {
    return [[[QVAnimationContext alloc] initWithGroup:AnimationGroup::current()] autorelease];
}

+ (void)beginGrouping {
    AnimationGroup::open();
}

+ (void)endGrouping {
    AnimationGroup::close();
}

+ (void)runAnimationGroup:(void (^)(NSAnimationContext *))changes {
    [self runAnimationGroup:changes completionHandler:nullptr];
}

+ (void)runAnimationGroup:(GSAnimationContextChanges)changes
        completionHandler:(GSAnimationContextCompletionHandler)completionHandler {
    const OpenGroup open;
    NSAnimationContext *context = [self currentContext];
    [context setCompletionHandler:completionHandler];
    if (changes != nullptr) {
        changes(context);
    }
}

@end

#pragma clang diagnostic pop
