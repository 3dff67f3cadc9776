// Drawing surfaces that no screen shows: windows that are never mapped.
#import "OffscreenSurface.h"

#import <AppKit/DPSOperators.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <memory>
#include <utility>

namespace platform::alpha {

namespace {

// A deque: a nested loan that adds a surface must not move the outer ones.
struct SurfacePool {
    std::deque<OffscreenSurface> surfaces;
    std::size_t lent = 0;
};

SurfacePool &pool() {
    static auto *const shared = std::make_unique<SurfacePool>().release();
    return *shared;
}

double roundedUp(double length) {
    constexpr double step = 64;
    return std::ceil(length / step) * step;
}

} // namespace

OffscreenSurface::OffscreenSurface(NSSize size)
    : image_([[NSCachedImageRep alloc] initWithSize:size
                                         pixelsWide:static_cast<NSInteger>(size.width)
                                         pixelsHigh:static_cast<NSInteger>(size.height)
                                              depth:NSBestDepth(NSDeviceRGBColorSpace, 8, 32, NO, nullptr)
                                           separate:YES
                                              alpha:YES]) {}

OffscreenSurface::OffscreenSurface(OffscreenSurface &&other) noexcept : image_(std::exchange(other.image_, nil)) {}

OffscreenSurface &OffscreenSurface::operator=(OffscreenSurface &&other) noexcept {
    std::swap(image_, other.image_);
    return *this;
}

OffscreenSurface::~OffscreenSurface() {
    [image_ release];
}

NSSize OffscreenSurface::size() const {
    return image_ == nil ? NSZeroSize : [image_ size];
}

NSInteger OffscreenSurface::graphicsState() const {
    return [[image_ window] gState];
}

NSView *OffscreenSurface::canvas() const {
    return [[image_ window] contentView];
}

void OffscreenSurface::composite(NSInteger graphicsState, NSRect source, NSPoint point,
                                 NSCompositingOperation operation) {
    const LockedFocus focus(canvas());
    DPScomposite(GSCurrentContext(), source.origin.x, source.origin.y, source.size.width, source.size.height,
                 graphicsState, point.x, point.y, operation);
}

SurfaceLoan::SurfaceLoan(NSSize size) : index_(pool().lent++) {
    if (pool().surfaces.size() <= index_) {
        pool().surfaces.resize(index_ + 1);
    }
    const NSSize held = (**this).size();
    if (held.width < size.width || held.height < size.height) {
        **this = OffscreenSurface(
            NSMakeSize(roundedUp(std::max(held.width, size.width)), roundedUp(std::max(held.height, size.height))));
    }
}

SurfaceLoan::~SurfaceLoan() {
    pool().lent = index_;
}

OffscreenSurface &SurfaceLoan::operator*() const {
    return pool().surfaces[index_];
}

LockedFocus::LockedFocus(NSView *view) : view_(view) {
    [view_ lockFocus];
}

LockedFocus::~LockedFocus() {
    [view_ unlockFocus];
}

} // namespace platform::alpha
