// What an animation context stands for: animations that belong together and what follows when all have ended.
#pragma once

#include "TimingCurve.h"

#include <functional>
#include <memory>
#include <optional>

namespace platform::animation {

class AnimationGroup;

/// Keeps a group from completing while it lives.
using GroupHold = std::shared_ptr<void>;

/// A group completes when the last hold on it is gone, on a later turn of the main run loop; then it lets go of the
/// group that it lies in. Main thread only.
class AnimationGroup : public std::enable_shared_from_this<AnimationGroup> {
public:
    static constexpr double defaultDuration = 0.25;

    /// A group inside `parent` (which may be null), with its duration, timing and implicitness.
    static std::shared_ptr<AnimationGroup> inside(const std::shared_ptr<AnimationGroup>& parent);

    /// Whether setters called now animate.
    static bool currentAnimatesImplicitly();
    /// The group that an animation started now belongs to: the innermost one or, outside of all groups, one that lasts
    /// until the end of this turn of the run loop.
    static std::shared_ptr<AnimationGroup> current();

    /// Opens a group inside the current one; `close` must follow. Closing without an open group does nothing.
    static void open();
    static void close();

    [[nodiscard]] GroupHold hold();

    double duration = defaultDuration; ///< Seconds.
    bool animatesImplicitly = false;   ///< Setters called directly animate as well.
    std::optional<TimingCurve> timing; ///< Nothing: "ease in, ease out".
    std::function<void()> completion;  ///< Runs once, on the main thread.

private:
    void letGo();
    void complete();

    int holds_ = 0;
    GroupHold holdOfParent_;
};

} // namespace platform::animation
