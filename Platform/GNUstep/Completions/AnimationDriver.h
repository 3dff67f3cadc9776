// Moves everything that is animated, sixty times a second.
#pragma once

#include "AnimationGroup.h"
#include "Track.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace platform::animation {

/// The one clock of all animations. It runs in the default, modal and event tracking modes of the main run loop, and
/// only while something is animated. Main thread only.
class AnimationDriver {
public:
    class MovingScope;

    static AnimationDriver& shared();

    /// Moves the change's parts from their present values to the change's, in the time of the current group, which does
    /// not complete before. An animation of the same parts that is under way ends where it is. `finished` runs when the
    /// values are reached, and not when the animation ends in another way. Views are not kept alive; other targets are.
    void start(Change change, std::function<void()> finished = nullptr);

    /// Whether parts from `first` on of the property are being animated.
    [[nodiscard]] bool isAnimating(const Track& track, std::size_t first) const;

    /// Ends the animations of one property where they are.
    void stop(id target, SEL name);

    /// Ends all animations of an object that is being deallocated.
    void forget(id target);

    /// Whether the values being set now come from an animation.
    [[nodiscard]] bool isMoving() const { return moving_; }

    /// Moves everything to where it is to be now. The clock calls it.
    void tick();

private:
    struct Animation;
    using Animations = std::vector<std::unique_ptr<Animation>>;

    void move(const Track& track, double now);
    /// Takes the animations that `condition` names off the list. Their end may release their targets, which may end
    /// further animations: never inside a walk along the list.
    Animations take(const std::function<bool(const Animation&)>& condition);
    void startClock();
    void tickAtNextEnd(double now);

    Animations animations_;
    bool moving_ = false;
};

/// Has setters act at once until the end of the scope, also when one of them raises.
class AnimationDriver::MovingScope {
public:
    explicit MovingScope(AnimationDriver& driver) : driver_(driver), before_(std::exchange(driver.moving_, true)) {}
    MovingScope(const MovingScope&) = delete;
    MovingScope& operator=(const MovingScope&) = delete;
    ~MovingScope() { driver_.moving_ = before_; }

private:
    AnimationDriver& driver_;
    bool before_;
};

} // namespace platform::animation
