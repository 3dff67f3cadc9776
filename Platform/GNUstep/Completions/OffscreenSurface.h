// Drawing surfaces that no screen shows, kept by the window server beside the windows.
#pragma once

#import <AppKit/AppKit.h>

#include <cstddef>

namespace platform::alpha {

/// A surface with an alpha channel, in points, its origin at the lower left. Owned and movable, not copyable.
class OffscreenSurface {
public:
    OffscreenSurface() = default;
    explicit OffscreenSurface(NSSize size);
    OffscreenSurface(OffscreenSurface &&other) noexcept;
    OffscreenSurface &operator=(OffscreenSurface &&other) noexcept;
    OffscreenSurface(const OffscreenSurface &) = delete;
    OffscreenSurface &operator=(const OffscreenSurface &) = delete;
    ~OffscreenSurface();

    [[nodiscard]] bool isEmpty() const { return image_ == nil; }
    [[nodiscard]] NSSize size() const;
    /// The graphics state that other drawing copies from.
    [[nodiscard]] NSInteger graphicsState() const;
    /// The view that draws onto the surface when it has the focus.
    [[nodiscard]] NSView *canvas() const;

    /// Lays `source` of another graphics state at `point` of this surface.
    void composite(NSInteger graphicsState, NSRect source, NSPoint point, NSCompositingOperation operation);

private:
    NSCachedImageRep *image_ = nil;
};

/// A surface for the time of one drawing, at least as large as asked for. Surfaces are kept for the next drawing: there
/// are as many as drawings were ever nested.
class SurfaceLoan {
public:
    explicit SurfaceLoan(NSSize size);
    SurfaceLoan(const SurfaceLoan &) = delete;
    SurfaceLoan &operator=(const SurfaceLoan &) = delete;
    ~SurfaceLoan();

    [[nodiscard]] OffscreenSurface &operator*() const;
    [[nodiscard]] OffscreenSurface *operator->() const { return &**this; }

private:
    std::size_t index_;
};

/// Gives a view the drawing focus until the end of the scope, also when drawing raises.
class LockedFocus {
public:
    explicit LockedFocus(NSView *view);
    LockedFocus(const LockedFocus &) = delete;
    LockedFocus &operator=(const LockedFocus &) = delete;
    ~LockedFocus();

private:
    NSView *view_;
};

} // namespace platform::alpha
