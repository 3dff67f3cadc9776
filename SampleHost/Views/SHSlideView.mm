#import "SHSlideView.h"

#import "Bridge.h"
#import "Fonts.h"

#include <utility>

using namespace samplehost;

@implementation SHSlideView

- (void)dealloc {
    [_caption release];
    [super dealloc];
}

- (void)show:(std::optional<ShownSlide>)slide {
    _shown = std::move(slide);
    [self setNeedsDisplay:YES];
}

- (void)setGround:(unsigned)color {
    _ground = color;
    [self setNeedsDisplay:YES];
}

- (void)setFramed:(bool)framed {
    _framed = framed;
    [self setNeedsDisplay:YES];
}

- (void)setCaption:(NSString *)caption {
    if (caption != _caption) {
        [_caption release];
        _caption = [caption copy];
        [self setNeedsDisplay:YES];
    }
}

- (void)setKeyHandler:(std::function<bool(NSEvent *)>)handler {
    _keyHandler = std::move(handler);
}

- (void)setClickHandler:(std::function<void()>)handler {
    _clickHandler = std::move(handler);
}

- (BOOL)isOpaque {
    return !_framed;
}

- (BOOL)acceptsFirstResponder {
    return _keyHandler ? YES : NO;
}

- (void)keyDown:(NSEvent *)event {
    if (!_keyHandler || !_keyHandler(event)) {
        [super keyDown:event];
    }
}

// A press alone does nothing: what starts a presentation presses the mouse to get hold of the window.
- (void)mouseDown:(NSEvent *)event {
    if (!_clickHandler) {
        [super mouseDown:event];
    }
}

- (void)mouseUp:(NSEvent *)event {
    if (_clickHandler && [event clickCount] > 0) {
        _clickHandler();
    } else {
        [super mouseUp:event];
    }
}

- (void)drawCaption {
    NSDictionary<NSString *, id> *attributes = @{
        NSFontAttributeName : fontOf(Family::sans, 22, true, false),
        NSForegroundColorAttributeName : [NSColor whiteColor]
    };
    const NSSize size = [_caption sizeWithAttributes:attributes];
    const NSRect plate = NSMakeRect(NSWidth([self bounds]) - size.width - 56, 24, size.width + 32, size.height + 16);
    [[NSColor colorWithCalibratedWhite:0 alpha:0.7] set];
    [[NSBezierPath bezierPathWithRoundedRect:plate xRadius:8 yRadius:8] fill];
    [_caption drawAtPoint:NSMakePoint(NSMinX(plate) + 16, NSMinY(plate) + 8) withAttributes:attributes];
}

- (void)drawRect:(NSRect)dirty {
    const NSRect area = _framed ? NSInsetRect([self bounds], 12, 12) : [self bounds];
    if (_framed) {
        [[NSColor windowBackgroundColor] set];
    } else {
        [toNSColor(_ground) set];
    }
    NSRectFill(dirty);
    if (_shown) {
        const NSRect place = slideRect(_shown->style.size, area);
        drawSlide(_shown->slide, _shown->style, place);
        if (_framed) {
            [[NSColor colorWithCalibratedWhite:0.5 alpha:0.5] set];
            NSFrameRect(NSInsetRect(place, -1, -1));
        }
    }
    if ([_caption length] > 0) {
        [self drawCaption];
    }
}

@end
