#import "PopoverWindow.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace platform::popover;

namespace {

// The body without the arrow, in the window's own coordinates.
NSRect bodyOf(const Placement &placement) {
    NSRect body = NSMakeRect(0, 0, placement.frame.width, placement.frame.height);
    switch (placement.edge) {
    case Edge::left:
        body.size.width -= arrowLength;
        break;
    case Edge::right:
        body.size.width -= arrowLength;
        body.origin.x += arrowLength;
        break;
    case Edge::bottom:
        body.size.height -= arrowLength;
        break;
    case Edge::top:
        body.size.height -= arrowLength;
        body.origin.y += arrowLength;
        break;
    }
    return body;
}

// The outline, half a point inside of what the window covers, so that the hairline is drawn whole.
NSBezierPath *outlineOf(const Placement &placement) {
    const NSRect body = NSInsetRect(bodyOf(placement), 0.5, 0.5);
    NSBezierPath *path = [NSBezierPath bezierPath];
    const auto corner = [path](NSPoint via, NSPoint to) {
        [path appendBezierPathWithArcFromPoint:via toPoint:to radius:cornerRadius];
    };
    const NSPoint lowerLeft = body.origin;
    const NSPoint lowerRight = NSMakePoint(NSMaxX(body), NSMinY(body));
    const NSPoint upperRight = NSMakePoint(NSMaxX(body), NSMaxY(body));
    const NSPoint upperLeft = NSMakePoint(NSMinX(body), NSMaxY(body));
    // From foot to tip to foot, in the direction in which the outline runs (anticlockwise).
    const auto arrow = [&](Edge side) {
        if (placement.edge != side || placement.arrow < 0) {
            return;
        }
        const bool upright = side == Edge::bottom || side == Edge::top;
        const CGFloat turn = side == Edge::bottom || side == Edge::left ? 1 : -1;
        const CGFloat base = side == Edge::bottom ? NSMaxY(body)
                             : side == Edge::top  ? NSMinY(body)
                             : side == Edge::left ? NSMaxX(body)
                                                  : NSMinX(body);
        const CGFloat along = upright ? turn : -turn;
        const auto point = [&](CGFloat offset, CGFloat out) {
            return upright ? NSMakePoint(placement.arrow + offset, base + turn * out)
                           : NSMakePoint(base + turn * out, placement.arrow + offset);
        };
        [path lineToPoint:point(along * arrowHalfWidth, 0)];
        [path lineToPoint:point(0, arrowLength - 0.5)];
        [path lineToPoint:point(-along * arrowHalfWidth, 0)];
    };
    [path moveToPoint:NSMakePoint(NSMidX(body) - 0.1, NSMinY(body))];
    arrow(Edge::top);
    corner(lowerRight, upperRight);
    arrow(Edge::left);
    corner(upperRight, upperLeft);
    arrow(Edge::bottom);
    corner(upperLeft, lowerLeft);
    arrow(Edge::right);
    corner(lowerLeft, lowerRight);
    [path closePath];
    return path;
}

XRectangle row(double x, double y, double width) {
    return {.x = static_cast<short>(x),
            .y = static_cast<short>(y),
            .width = static_cast<unsigned short>(std::max(0.0, width)),
            .height = 1};
}

// What the window covers, as rows of pixels from the top.
std::vector<XRectangle> rowsOf(const Placement &placement) {
    std::vector<XRectangle> rows;
    const NSRect body = bodyOf(placement);
    const double top = placement.frame.height - NSMaxY(body);
    for (int y = 0; y < static_cast<int>(NSHeight(body)); y++) {
        const double fromEnd = std::min(y + 0.5, NSHeight(body) - y - 0.5);
        const double rise = std::max(0.0, cornerRadius - fromEnd);
        const double inset = std::floor(cornerRadius - std::sqrt(cornerRadius * cornerRadius - rise * rise));
        rows.push_back(row(NSMinX(body) + inset, top + y, NSWidth(body) - 2 * inset));
    }
    if (placement.arrow < 0) {
        return rows;
    }
    const double tip = placement.edge == Edge::bottom || placement.edge == Edge::top
                           ? placement.arrow
                           : placement.frame.height - placement.arrow;
    for (int i = 0; i <= static_cast<int>(arrowLength); i++) {
        const double half = std::ceil(arrowHalfWidth * i / arrowLength) + 1;
        switch (placement.edge) {
        case Edge::bottom:
            rows.push_back(row(tip - half, i, 2 * half));
            break;
        case Edge::top:
            rows.push_back(row(tip - half, placement.frame.height - 1 - i, 2 * half));
            break;
        case Edge::left:
        case Edge::right: {
            const double x = placement.edge == Edge::right ? i : placement.frame.width - 1 - i;
            XRectangle column = row(x, tip - half, 1);
            column.height = static_cast<unsigned short>(2 * half);
            rows.push_back(column);
            break;
        }
        }
    }
    return rows;
}

void shapeWindow(NSWindow *window, const Placement &placement) {
    GSDisplayServer *server = GSServerForWindow(window);
    auto *display = static_cast<Display *>([server serverDevice]);
    const auto xWindow = reinterpret_cast<uintptr_t>([server windowDevice:static_cast<int>([window windowNumber])]);
    if (display == nullptr || xWindow == 0) {
        return;
    }
    std::vector<XRectangle> rows = rowsOf(placement);
    const XserverRegion region = XFixesCreateRegion(display, rows.data(), static_cast<int>(rows.size()));
    constexpr int boundingShape = 0;
    XFixesSetWindowShapeRegion(display, xWindow, boundingShape, 0, 0, region);
    XFixesDestroyRegion(display, region);
}

} // namespace

@interface QVPopoverFrame : NSView {
    NSBezierPath *_outline;
}
- (void)setOutline:(NSBezierPath *)outline;
@end

@implementation QVPopoverFrame

- (void)setOutline:(NSBezierPath *)outline {
    [outline retain];
    [_outline release];
    _outline = outline;
    [self setNeedsDisplay:YES];
}

- (void)dealloc {
    [_outline release];
    [super dealloc];
}

- (BOOL)isOpaque {
    return YES;
}

- (void)drawRect:(NSRect)rect {
    [[NSColor windowBackgroundColor] set];
    NSRectFill(rect);
    [[NSColor controlShadowColor] set];
    [_outline stroke];
}

@end

@implementation QVPopoverWindow

- (instancetype)initWithPopover:(NSPopover *)popover
                        content:(NSView *)content
                         anchor:(NSView *)anchor
                      placement:(const Placement &)placement {
    const NSRect frame =
        NSMakeRect(placement.frame.x, placement.frame.y, placement.frame.width, placement.frame.height);
    if ((self = [super initWithContentRect:frame
                                 styleMask:NSBorderlessWindowMask
                                   backing:NSBackingStoreBuffered
                                     defer:NO]) != nil) {
        _popover = [popover retain];
        _anchor = [anchor retain];
        [self setReleasedWhenClosed:NO];
        [self setLevel:NSPopUpMenuWindowLevel];
        [self setHidesOnDeactivate:NO];
        QVPopoverFrame *view = [[[QVPopoverFrame alloc] initWithFrame:NSZeroRect] autorelease];
        [self setContentView:view];
        [view addSubview:content];
        [self setPlacement:placement];
    }
    return self;
}

- (void)dealloc {
    [_popover release];
    [_anchor release];
    [super dealloc];
}

- (void)setPlacement:(const Placement &)placement {
    _placement = placement;
    [self setFrame:NSMakeRect(placement.frame.x, placement.frame.y, placement.frame.width, placement.frame.height)
           display:NO];
    QVPopoverFrame *view = [self contentView];
    [view setOutline:outlineOf(placement)];
    [[[view subviews] lastObject] setFrame:NSInsetRect(bodyOf(placement), 1, 1)];
    shapeWindow(self, placement);
}

- (NSView *)anchor {
    return _anchor;
}

- (Edge)edge {
    return _placement.edge;
}

- (BOOL)holds:(NSWindow *)window {
    while ([window isKindOfClass:[QVPopoverWindow class]]) {
        if (window == self) {
            return YES;
        }
        window = [[(QVPopoverWindow *)window anchor] window];
    }
    return NO;
}

- (BOOL)beginClosing {
    const BOOL before = _closing;
    _closing = YES;
    return before;
}

- (BOOL)canBecomeKeyWindow {
    return YES;
}

- (BOOL)canBecomeMainWindow {
    return NO;
}

// Escape closes it wherever the keyboard is in it, unless a button of it wants Escape.
- (void)sendEvent:(NSEvent *)event {
    const bool isEscape = [event type] == NSKeyDown && [[event characters] isEqualToString:@"\033"];
    if (isEscape && [_popover behavior] != NSPopoverBehaviorApplicationDefined) {
        if (![self performKeyEquivalent:event]) {
            [_popover performClose:nil];
        }
        return;
    }
    [super sendEvent:event];
}

@end
