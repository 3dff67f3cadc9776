#import "TabOverviewView.h"

#import "NSColor+Accent.h"
#import "TabOverviewWindow.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr CGFloat margin = 24;
constexpr CGFloat titleHeight = 22;

struct Grid {
    NSUInteger columns, rows;
};

// As square as the number of thumbnails allows.
Grid gridFor(NSUInteger count) {
    const auto columns =
        static_cast<NSUInteger>(std::ceil(std::sqrt(static_cast<double>(std::max<NSUInteger>(count, 1)))));
    return {columns, (std::max<NSUInteger>(count, 1) + columns - 1) / columns};
}

// What the window shows now, with its toolbar and menu; nil when it cannot be read.
NSImage *pictureOf(NSWindow *window) {
    NSView *view = [[window contentView] superview];
    if (view == nil || ![window isVisible] || ![view lockFocusIfCanDraw]) {
        return nil;
    }
    NSBitmapImageRep *bitmap = [[NSBitmapImageRep alloc] initWithFocusedViewRect:[view bounds]];
    [view unlockFocus];
    if (bitmap == nil) {
        return nil;
    }
    NSImage *image = [[[NSImage alloc] initWithSize:[view bounds].size] autorelease];
    [image addRepresentation:bitmap];
    [bitmap release];
    return image;
}

// The largest rectangle of that shape in the middle of `area`.
NSRect fitted(NSSize shape, NSRect area) {
    const CGFloat scale = std::min({NSWidth(area) / shape.width, NSHeight(area) / shape.height, CGFloat{1}});
    const NSSize size = NSMakeSize(shape.width * scale, shape.height * scale);
    return NSMakeRect(NSMidX(area) - size.width / 2, NSMidY(area) - size.height / 2, size.width, size.height);
}

void drawTitle(NSString *title, NSRect area) {
    NSMutableParagraphStyle *style = [[[NSMutableParagraphStyle alloc] init] autorelease];
    [style setAlignment:NSTextAlignmentCenter];
    [style setLineBreakMode:NSLineBreakByTruncatingTail];
    [title drawInRect:area
        withAttributes:@{
            NSFontAttributeName : [NSFont systemFontOfSize:12],
            NSForegroundColorAttributeName : [NSColor controlTextColor],
            NSParagraphStyleAttributeName : style,
        }];
}

} // namespace

@implementation QVTabOverviewView

- (id)initWithFrame:(NSRect)frame {
    if ((self = [super initWithFrame:frame]) != nil) {
        _windows = [[NSMutableArray alloc] init];
        _pictures = [[NSMutableArray alloc] init];
    }
    return self;
}

- (void)dealloc {
    [_windows release];
    [_pictures release];
    [super dealloc];
}

- (BOOL)acceptsFirstResponder {
    return YES;
}

- (BOOL)acceptsFirstMouse:(NSEvent *)event {
    return YES;
}

- (void)setWindows:(NSArray *)windows {
    NSWindow *selected = _selected < [_windows count] ? [_windows objectAtIndex:_selected] : nil;
    [_windows setArray:windows];
    const NSUInteger index = selected != nil ? [_windows indexOfObjectIdenticalTo:selected] : NSNotFound;
    _selected = index != NSNotFound ? index : std::min(_selected, [_windows count] - (([_windows count] > 0) ? 1 : 0));
    [self refresh];
}

- (NSArray *)windows {
    return _windows;
}

- (NSUInteger)selectedIndex {
    return _selected;
}

- (void)setSelectedIndex:(NSUInteger)index {
    if (index < [_windows count]) {
        _selected = index;
        [self setNeedsDisplay:YES];
    }
}

- (NSRect)rectAtIndex:(NSUInteger)index {
    const Grid grid = gridFor([_windows count]);
    const CGFloat width = (NSWidth([self bounds]) - margin) / static_cast<CGFloat>(grid.columns);
    const CGFloat height = (NSHeight([self bounds]) - margin) / static_cast<CGFloat>(grid.rows);
    const NSUInteger column = index % grid.columns;
    const NSUInteger row = index / grid.columns;
    return NSMakeRect(margin + static_cast<CGFloat>(column) * width,
                      NSMaxY([self bounds]) - static_cast<CGFloat>(row + 1) * height, width - margin, height - margin);
}

- (void)refresh {
    [_pictures removeAllObjects];
    for (NSWindow *window in _windows) {
        NSImage *picture = pictureOf(window);
        [_pictures addObject:picture != nil ? static_cast<id>(picture) : static_cast<id>([NSNull null])];
    }
    [self setNeedsDisplay:YES];
}

- (void)drawRect:(NSRect)dirty {
    [[NSColor windowBackgroundColor] set];
    NSRectFill([self bounds]);
    [[NSColor grayColor] set];
    NSFrameRect([self bounds]);
    for (NSUInteger i = 0; i < [_windows count]; i++) {
        [self drawThumbnail:i];
    }
}

- (void)drawThumbnail:(NSUInteger)index {
    NSRect title;
    NSRect area;
    NSDivideRect([self rectAtIndex:index], &title, &area, titleHeight, NSMinYEdge);
    NSWindow *window = [_windows objectAtIndex:index];
    const NSRect shape = fitted([[[window contentView] superview] bounds].size, NSInsetRect(area, 4, 4));
    id picture = index < [_pictures count] ? [_pictures objectAtIndex:index] : nil;
    if ([picture isKindOfClass:[NSImage class]]) {
        [picture drawInRect:shape fromRect:NSZeroRect operation:NSCompositeSourceOver fraction:1];
    }
    const bool selected = index == _selected;
    [selected ? [NSColor controlAccentColor] : [NSColor grayColor] set];
    NSFrameRectWithWidth(NSInsetRect(shape, selected ? -3 : -1, selected ? -3 : -1), selected ? 3 : 1);
    drawTitle([window title], NSInsetRect(title, 0, 2));
}

- (void)mouseDown:(NSEvent *)event {
    const NSPoint point = [self convertPoint:[event locationInWindow] fromView:nil];
    for (NSUInteger i = 0; i < [_windows count]; i++) {
        if (NSPointInRect(point, [self rectAtIndex:i])) {
            [self setSelectedIndex:i];
            [NSApp sendAction:@selector(chooseSelected:) to:[self window] from:self];
            return;
        }
    }
}

- (void)keyDown:(NSEvent *)event {
    const unichar key = [[event characters] length] > 0 ? [[event characters] characterAtIndex:0] : 0;
    const NSUInteger columns = gridFor([_windows count]).columns;
    switch (key) {
    case NSLeftArrowFunctionKey:
        [self setSelectedIndex:_selected - 1];
        break;
    case NSRightArrowFunctionKey:
        [self setSelectedIndex:_selected + 1];
        break;
    case NSUpArrowFunctionKey:
        [self setSelectedIndex:_selected - columns];
        break;
    case NSDownArrowFunctionKey:
        [self setSelectedIndex:_selected + columns];
        break;
    case '\r':
    case NSEnterCharacter:
        [NSApp sendAction:@selector(chooseSelected:) to:[self window] from:self];
        break;
    case 033:
        [[self window] close];
        break;
    default:
        [super keyDown:event];
    }
}

@end
