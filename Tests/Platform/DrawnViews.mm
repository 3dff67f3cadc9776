#import "DrawnViews.h"

#import "Platform.h"

#include <cmath>
#include <cstdlib>

@implementation DrawnView

- (void)dealloc {
    if (_whenDeallocated) {
        _whenDeallocated();
    }
    [_color release];
    [super dealloc];
}

- (BOOL)isFlipped {
    return _flipped;
}

- (BOOL)isOpaque {
    return _opaque;
}

- (void)drawRect:(NSRect)rect {
    ++_drawCount;
    if (_color != nil) {
        NSRect filled = [self bounds];
        if (_leftHalfOnly) {
            filled.size.width /= 2;
        }
        [_color set];
        NSRectFill(filled);
    }
    if (_raises) {
        [NSException raise:NSGenericException format:@"drawing failed"];
    }
}

@end

namespace test {

const Color red{255, 0, 0};
const Color green{0, 255, 0};
const Color blue{0, 0, 255};
const Color white{255, 255, 255};

bool operator==(const Color &a, const Color &b) {
    return std::abs(a.red - b.red) <= 1 && std::abs(a.green - b.green) <= 1 && std::abs(a.blue - b.blue) <= 1;
}

std::ostream &operator<<(std::ostream &stream, const Color &color) {
    return stream << color.red << ',' << color.green << ',' << color.blue;
}

Color mix(const Color &over, double alpha, const Color &below) {
    const auto part = [&](int a, int b) { return static_cast<int>(std::lround(a * alpha + b * (1 - alpha))); };
    return {part(over.red, below.red), part(over.green, below.green), part(over.blue, below.blue)};
}

NSColor *colorOf(const Color &color) {
    return [NSColor colorWithCalibratedRed:color.red / 255.0 green:color.green / 255.0 blue:color.blue / 255.0 alpha:1];
}

Canvas::Canvas() : pool_([[NSAutoreleasePool alloc] init]) {
    platform::prepareAppKit();
    window = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 500, 400)
                                         styleMask:NSTitledWindowMask
                                           backing:NSBackingStoreBuffered
                                             defer:NO];
    [window setReleasedWhenClosed:NO];
    background = [[DrawnView alloc] initWithFrame:NSMakeRect(0, 0, 500, 400)];
    background->_color = [colorOf(white) retain];
    background->_opaque = YES;
    [window setContentView:background];
    [window orderFront:nil];
}

Canvas::~Canvas() {
    [window close];
    [background release];
    [window release];
    [pool_ drain];
}

Color Canvas::at(NSView *view, NSPoint point) {
    [window displayIfNeeded];
    const NSPoint p = [background convertPoint:point fromView:view];
    [background lockFocus];
    NSBitmapImageRep *picture =
        [[NSBitmapImageRep alloc] initWithFocusedViewRect:NSMakeRect(std::floor(p.x), std::floor(p.y), 1, 1)];
    [background unlockFocus];
    const unsigned char *bytes = [picture bitmapData];
    const Color color{bytes[0], bytes[1], bytes[2]};
    [picture release];
    return color;
}

DrawnView *addEmptyView(NSView *parent, NSRect frame, double alpha) {
    DrawnView *view = [[[DrawnView alloc] initWithFrame:frame] autorelease];
    [parent addSubview:view];
    [view setAlphaValue:alpha];
    return view;
}

DrawnView *addView(NSView *parent, NSRect frame, const Color &color, double alpha) {
    DrawnView *view = addEmptyView(parent, frame, alpha);
    view->_color = [colorOf(color) retain];
    return view;
}

} // namespace test
