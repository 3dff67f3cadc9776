#import "SHSlideListView.h"

#import "Fonts.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace samplehost;

namespace {

constexpr double gap = 16;
constexpr double captionHeight = 20;
constexpr double gridCellWidth = 250;
constexpr std::size_t nowhere = static_cast<std::size_t>(-1);
constexpr std::size_t picturesKept = 300;
constexpr double dragDistance = 5;

/// What makes one small picture differ from another.
std::string pictureKey(const ShownSlide &shown, double width) {
    const auto &style = shown.style;
    return std::string(style.theme.name) + "\n" + std::string(style.size.name) + "\n" + style.footer + "\n" +
           style.directory + "\n" + std::to_string(style.number) + " " + std::to_string(width) + "\n" +
           shown.slide.markdown;
}

} // namespace

@implementation SHSlideListView

- (id)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self != nil) {
        _dragged = nowhere;
        _dropAt = nowhere;
    }
    return self;
}

- (BOOL)isFlipped {
    return YES;
}

- (void)setGrid:(bool)grid {
    _grid = grid;
}

- (void)setSlides:(std::vector<ShownSlide>)slides
          visible:(std::vector<std::size_t>)visible
      highlighted:(std::set<std::size_t>)highlighted {
    _slides = std::move(slides);
    _visible = std::move(visible);
    _highlighted = std::move(highlighted);
    if (_pictures.size() > picturesKept) {
        _pictures.clear();
    }
    [self fit];
    [self setNeedsDisplay:YES];
}

- (void)select:(std::size_t)slide {
    if (slide == _selected) {
        return;
    }
    _selected = slide;
    [self setNeedsDisplay:YES];
    const auto place = std::ranges::find(_visible, slide);
    if (place != _visible.end()) {
        const auto index = static_cast<std::size_t>(place - _visible.begin());
        [self scrollRectToVisible:NSInsetRect([self frameOfPlace:index], -4, -gap / 2)];
    }
}

- (void)setSelectHandler:(std::function<void(std::size_t)>)handler {
    _selectHandler = std::move(handler);
}

- (void)setOpenHandler:(std::function<void(std::size_t)>)handler {
    _openHandler = std::move(handler);
}

- (void)setMoveHandler:(std::function<void(std::size_t, std::size_t)>)handler {
    _moveHandler = std::move(handler);
}

#pragma mark Places

- (std::size_t)columns {
    return _grid ? static_cast<std::size_t>(
                       std::max(1.0, std::floor((NSWidth([self bounds]) - gap) / (gridCellWidth + gap))))
                 : 1;
}

- (double)pictureWidth {
    const auto columns = static_cast<double>([self columns]);
    return std::floor((NSWidth([self bounds]) - gap * (columns + 1)) / columns);
}

- (double)pictureHeight {
    const SlideSize size = _slides.empty() ? slideSizes().front() : _slides.front().style.size;
    return std::floor([self pictureWidth] * size.height / size.width);
}

/// The picture's frame with its caption below.
- (NSRect)frameOfPlace:(std::size_t)place {
    const double height = [self pictureHeight] + captionHeight;
    const std::size_t row = place / [self columns];
    const std::size_t column = place % [self columns];
    return NSMakeRect(gap + static_cast<double>(column) * ([self pictureWidth] + gap),
                      gap + static_cast<double>(row) * (height + gap), [self pictureWidth], height);
}

- (void)fit {
    NSClipView *clip = [[self enclosingScrollView] contentView];
    if (clip == nil) {
        return;
    }
    const NSSize visible = [clip bounds].size;
    if (std::abs(NSWidth([self frame]) - visible.width) > 0.5) {
        [super setFrameSize:NSMakeSize(visible.width, NSHeight([self frame]))];
    }
    const auto rows = (_visible.size() + [self columns] - 1) / [self columns];
    const double wanted = static_cast<double>(rows) * ([self pictureHeight] + captionHeight + gap) + gap;
    const double height = std::max(wanted, visible.height);
    if (std::abs(height - NSHeight([self frame])) > 0.5) {
        [super setFrameSize:NSMakeSize(visible.width, height)];
    }
}

- (void)resizeWithOldSuperviewSize:(NSSize)size {
    [super resizeWithOldSuperviewSize:size];
    [self fit];
}

- (std::size_t)placeAt:(NSPoint)point {
    for (std::size_t place = 0; place < _visible.size(); ++place) {
        if (NSPointInRect(point, NSInsetRect([self frameOfPlace:place], -gap / 2, -gap / 2))) {
            return place;
        }
    }
    return nowhere;
}

#pragma mark Drawing

- (NSImage *)pictureOf:(std::size_t)slide {
    const double width = [self pictureWidth];
    auto &picture = _pictures[pictureKey(_slides[slide], width)];
    if (!picture) {
        picture = keep(slideImage(_slides[slide].slide, _slides[slide].style, width));
    }
    return picture.get();
}

- (void)drawCaptionOf:(std::size_t)slide in:(NSRect)frame {
    NSMutableParagraphStyle *paragraph = [[[NSMutableParagraphStyle alloc] init] autorelease];
    [paragraph setLineBreakMode:NSLineBreakByTruncatingTail];
    NSDictionary<NSString *, id> *attributes = @{
        NSFontAttributeName : fontOf(Family::sans, 11, slide == _selected, false),
        NSForegroundColorAttributeName : [NSColor controlTextColor],
        NSParagraphStyleAttributeName : paragraph
    };
    const auto caption = std::to_string(slide + 1) + "  " + _slides[slide].slide.title;
    [toNSString(caption)
            drawInRect:NSMakeRect(NSMinX(frame), NSMaxY(frame) - captionHeight + 3, NSWidth(frame), captionHeight - 3)
        withAttributes:attributes];
}

- (void)drawPlace:(std::size_t)place {
    const auto slide = _visible[place];
    const NSRect frame = [self frameOfPlace:place];
    const NSRect picture = NSMakeRect(NSMinX(frame), NSMinY(frame), NSWidth(frame), NSHeight(frame) - captionHeight);
    const bool found = _highlighted.contains(slide);
    if (slide == _selected || found) {
        [found ? toNSColor(0xE8A317) : [NSColor selectedControlColor] set];
        const NSRect ring = NSInsetRect(picture, -4, -4);
        [[NSBezierPath bezierPathWithRoundedRect:ring xRadius:5 yRadius:5] fill];
    }
    [[self pictureOf:slide] drawInRect:picture
                              fromRect:NSZeroRect
                             operation:NSCompositeSourceOver
                              fraction:_dragging && place == _dragged ? 0.4 : 1
                        respectFlipped:YES
                                 hints:nil];
    [[NSColor colorWithCalibratedWhite:0.5 alpha:0.45] set];
    NSFrameRect(picture);
    [self drawCaptionOf:slide in:frame];
}

- (void)drawDropMark {
    const NSRect frame = [self frameOfPlace:std::min(_dropAt, _visible.size() - 1)];
    const double x = _dropAt > _dragged ? NSMaxX(frame) + gap / 2 : NSMinX(frame) - gap / 2;
    const double y = _dropAt > _dragged ? NSMaxY(frame) + gap / 2 : NSMinY(frame) - gap / 2;
    [toNSColor(0x2F6FDE) set];
    NSRectFill(_grid ? NSMakeRect(x - 2, NSMinY(frame), 4, NSHeight(frame))
                     : NSMakeRect(NSMinX(frame), y - 2, NSWidth(frame), 4));
}

- (void)drawRect:(NSRect)dirty {
    [[NSColor windowBackgroundColor] set];
    NSRectFill(dirty);
    for (std::size_t place = 0; place < _visible.size(); ++place) {
        if (NSIntersectsRect(NSInsetRect([self frameOfPlace:place], -6, -6), dirty)) {
            [self drawPlace:place];
        }
    }
    if (_visible.empty()) {
        NSDictionary<NSString *, id> *attributes = @{
            NSFontAttributeName : [NSFont systemFontOfSize:12],
            NSForegroundColorAttributeName : [NSColor controlTextColor]
        };
        [@"No slide found" drawAtPoint:NSMakePoint(gap, gap) withAttributes:attributes];
    }
    if (_dragging && _dropAt != nowhere && _dropAt != _dragged) {
        [self drawDropMark];
    }
}

#pragma mark Mouse and keys

- (BOOL)acceptsFirstResponder {
    return YES;
}

- (void)mouseDown:(NSEvent *)event {
    [[self window] makeFirstResponder:self];
    _pressedAt = [self convertPoint:[event locationInWindow] fromView:nil];
    const auto place = [self placeAt:_pressedAt];
    _dragged = place;
    _dropAt = nowhere;
    if (place == nowhere) {
        return;
    }
    const auto slide = _visible[place];
    [self select:slide];
    if (_selectHandler) {
        _selectHandler(slide);
    }
    if ([event clickCount] == 2 && _openHandler) {
        _openHandler(slide);
    }
}

- (void)mouseDragged:(NSEvent *)event {
    const NSPoint point = [self convertPoint:[event locationInWindow] fromView:nil];
    // A filtered list has no order to change.
    if (_dragged == nowhere || !_moveHandler || _visible.size() != _slides.size()) {
        return;
    }
    _dragging = _dragging || std::hypot(point.x - _pressedAt.x, point.y - _pressedAt.y) > dragDistance;
    if (_dragging) {
        _dropAt = [self placeAt:point];
        [self autoscroll:event];
        [self setNeedsDisplay:YES];
    }
}

- (void)mouseUp:(NSEvent *)event {
    const auto from = std::exchange(_dragged, nowhere);
    const auto to = std::exchange(_dropAt, nowhere);
    const bool dragged = std::exchange(_dragging, false);
    [self setNeedsDisplay:YES];
    if (dragged && from != nowhere && to != nowhere && from != to && from < _visible.size() && to < _visible.size()) {
        _moveHandler(_visible[from], _visible[to]);
    }
    (void)event;
}

- (void)selectPlace:(std::ptrdiff_t)place {
    if (_visible.empty()) {
        return;
    }
    const auto last = static_cast<std::ptrdiff_t>(_visible.size()) - 1;
    const auto slide = _visible[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(place, 0, last))];
    [self select:slide];
    if (_selectHandler) {
        _selectHandler(slide);
    }
}

- (void)keyDown:(NSEvent *)event {
    NSString *characters = [event characters];
    const unichar key = [characters length] > 0 ? [characters characterAtIndex:0] : 0;
    const auto found = std::ranges::find(_visible, _selected);
    const auto place = found == _visible.end() ? 0 : found - _visible.begin();
    const auto columns = static_cast<std::ptrdiff_t>([self columns]);
    switch (key) {
    case NSUpArrowFunctionKey:
        return [self selectPlace:place - columns];
    case NSDownArrowFunctionKey:
        return [self selectPlace:place + columns];
    case NSLeftArrowFunctionKey:
        return [self selectPlace:place - 1];
    case NSRightArrowFunctionKey:
        return [self selectPlace:place + 1];
    case NSHomeFunctionKey:
        return [self selectPlace:0];
    case NSEndFunctionKey:
        return [self selectPlace:static_cast<std::ptrdiff_t>(_visible.size()) - 1];
    case NSCarriageReturnCharacter:
        if (_openHandler) {
            _openHandler(_selected);
        }
        return;
    default:
        [super keyDown:event];
    }
}

@end
