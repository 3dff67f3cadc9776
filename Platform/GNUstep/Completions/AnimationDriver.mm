#import "AnimationDriver.h"

#import "Retained.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

using platform::animation::AnimationDriver;

/// Called by timers.
@interface QVAnimationClock : NSObject
+ (void)start;
+ (void)tickIn:(NSTimeInterval)seconds;
@end

namespace {

constexpr double frameTime = 1.0 / 60;
NSTimer *clockTimer = nil;

double secondsNow() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

NSTimer *scheduledTimer(NSTimeInterval interval, SEL selector, BOOL repeats) {
    NSTimer *timer = [NSTimer timerWithTimeInterval:interval
                                             target:[QVAnimationClock class]
                                           selector:selector
                                           userInfo:nil
                                            repeats:repeats];
    for (NSString *mode in @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ]) {
        [[NSRunLoop mainRunLoop] addTimer:timer forMode:mode];
    }
    return timer;
}

} // namespace

@implementation QVAnimationClock

+ (void)start {
    if (clockTimer == nil) {
        clockTimer = [scheduledTimer(frameTime, @selector(frame:), YES) retain];
    }
}

+ (void)stop {
    [clockTimer invalidate];
    [clockTimer release];
    clockTimer = nil;
}

+ (void)tickIn:(NSTimeInterval)seconds {
    scheduledTimer(seconds, @selector(moment:), NO);
}

+ (void)frame:(NSTimer *)timer {
    AnimationDriver::shared().tick();
}

+ (void)moment:(NSTimer *)timer {
    AnimationDriver::shared().tick();
}

@end

namespace platform::animation {

struct AnimationDriver::Animation {
    Change change;
    Values from{};
    Values last{}; ///< What was written last.
    double start = 0;
    double duration = 0;
    TimingCurve timing;
    bool overruled = false; ///< Somebody else set the property: that wins.
    GroupHold group;
    Retained keptTarget; ///< Empty for views.
    std::function<void()> finished;

    [[nodiscard]] bool isOver(double now) const { return now >= start + duration; }
    [[nodiscard]] bool meets(const Change &other) const {
        return change.track.isSameAs(other.track) && change.first < other.first + other.count &&
               other.first < change.first + change.count;
    }
    [[nodiscard]] double progress(double now) const { return isOver(now) ? 1 : timing.at((now - start) / duration); }
};

AnimationDriver &AnimationDriver::shared() {
    static auto *const driver = std::make_unique<AnimationDriver>().release();
    return *driver;
}

void AnimationDriver::start(Change change, std::function<void()> finished) {
    const auto group = AnimationGroup::current();
    auto animation = std::make_unique<Animation>();
    const Values now = change.track.read();
    std::copy_n(now.begin() + static_cast<std::ptrdiff_t>(change.first), change.count, animation->from.begin());
    animation->last = animation->from;
    animation->start = secondsNow();
    animation->duration = group->duration;
    animation->timing = group->timing.value_or(TimingCurve{});
    animation->group = group->hold();
    animation->finished = std::move(finished);
    if (![change.track.target isKindOfClass:[NSView class]]) {
        animation->keptTarget = Retained(change.track.target);
    }
    const Animations overtaken = take([&](const Animation &running) { return running.meets(change); });
    animation->change = std::move(change);
    const bool atOnce = animation->duration <= 0;
    animations_.push_back(std::move(animation));
    if (atOnce) {
        tick();
    } else {
        startClock();
    }
}

bool AnimationDriver::isAnimating(const Track &track, std::size_t first) const {
    return std::ranges::any_of(animations_, [&](const auto &running) { return running->meets({track, first, 1}); });
}

void AnimationDriver::stop(id target, SEL name) {
    take([&](const Animation &running) {
        return running.change.track.target == target && running.change.track.name == name;
    });
}

void AnimationDriver::forget(id target) {
    take([&](const Animation &running) { return running.change.track.target == target; });
}

// Setting a property runs any code: others may start or end animations meanwhile, and targets may die. So the
// properties are listed and their owners kept first.
void AnimationDriver::tick() {
    if (animations_.empty()) {
        // Only now, a tick after the last animation: its group's completion may have ended a modal session, which is
        // noticed when the run loop wakes up.
        [QVAnimationClock stop];
        return;
    }
    const double now = secondsNow();
    std::vector<Track> tracks;
    std::vector<Retained> kept;
    for (const auto &animation : animations_) {
        const Track &track = animation->change.track;
        if (std::ranges::none_of(tracks, [&](const Track &listed) { return listed.isSameAs(track); })) {
            tracks.push_back(track);
            kept.emplace_back(track.target);
        }
    }
    {
        const MovingScope moving(*this);
        for (const Track &track : tracks) {
            move(track, now);
        }
    }
    const Animations over = take([now](const Animation &running) { return running.overruled || running.isOver(now); });
    for (const auto &ended : over) {
        if (ended->finished && !ended->overruled) {
            ended->finished();
        }
    }
    tickAtNextEnd(now);
}

// All animated parts of a property are written in one call.
void AnimationDriver::move(const Track &track, double now) {
    Values values = track.read();
    bool anything = false;
    for (const auto &animation : animations_) {
        const Change &change = animation->change;
        if (!change.track.isSameAs(track)) {
            continue;
        }
        for (std::size_t part = 0; part < change.count; ++part) {
            animation->overruled |= !track.mayReadBackDifferently &&
                                    std::abs(values.at(change.first + part) - animation->last.at(part)) > 1e-3;
        }
        if (animation->overruled) {
            continue;
        }
        const double progress = animation->progress(now);
        for (std::size_t part = 0; part < change.count; ++part) {
            const double from = animation->from.at(part);
            const double value = from + (change.values.at(part) - from) * progress;
            animation->last.at(part) = values.at(change.first + part) = value;
        }
        anything = true;
    }
    if (anything) {
        track.write(values);
    }
}

AnimationDriver::Animations AnimationDriver::take(const std::function<bool(const Animation &)> &condition) {
    Animations taken;
    Animations others;
    for (auto &animation : animations_) {
        (condition(*animation) ? taken : others).push_back(std::move(animation));
    }
    animations_ = std::move(others);
    return taken;
}

void AnimationDriver::startClock() {
    [QVAnimationClock start];
    tickAtNextEnd(secondsNow());
}

// What follows an animation is not to wait for the next frame: delays would add up along a chain of groups.
void AnimationDriver::tickAtNextEnd(double now) {
    for (const auto &animation : animations_) {
        const double left = animation->start + animation->duration - now;
        if (left < frameTime) {
            [QVAnimationClock tickIn:std::max(left, 0.0005)];
            return;
        }
    }
}

} // namespace platform::animation
