#import "SHPresenterView.h"

#import "Clock.h"
#import "Fonts.h"

#include <algorithm>
#include <cmath>

using namespace samplehost;

namespace {

constexpr unsigned ground = 0x17181C;
constexpr unsigned panel = 0x22242A;
constexpr unsigned bright = 0xF2F3F5;
constexpr unsigned dim = 0xA9AEB9;
constexpr unsigned accent = 0xF4B740;

NSDictionary<NSString *, id> *attributes(double size, bool bold, unsigned color) {
    return @{
        NSFontAttributeName : fontOf(Family::sans, size, bold, false),
        NSForegroundColorAttributeName : toNSColor(color)
    };
}

} // namespace

@implementation SHPresenterView

- (id)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self != nil) {
        [self setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
        _current = own([[SHSlideView alloc] initWithFrame:NSZeroRect]);
        _next = own([[SHSlideView alloc] initWithFrame:NSZeroRect]);
        _notes = own([[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 100, 100)]);
        _notesScroll = own([[NSScrollView alloc] initWithFrame:NSMakeRect(0, 0, 100, 100)]);
        [_current.get() setGround:ground];
        [_next.get() setGround:ground];
        [self prepareNotes];
        [self addSubview:_current.get()];
        [self addSubview:_next.get()];
        [self addSubview:_notesScroll.get()];
        _started = keep([NSDate date]);
        _timer = keep([NSTimer timerWithTimeInterval:1 target:self selector:@selector(tick:) userInfo:nil repeats:YES]);
        for (NSString *mode in @[ NSDefaultRunLoopMode, NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode ]) {
            [[NSRunLoop currentRunLoop] addTimer:_timer.get() forMode:mode];
        }
        [self layOut];
    }
    return self;
}

- (void)dealloc {
    [_position release];
    [_digits release];
    [_nextTitle release];
    [super dealloc];
}

- (void)prepareNotes {
    [_notes.get() setEditable:NO];
    [_notes.get() setSelectable:NO];
    [_notes.get() setRichText:NO];
    [_notes.get() setBackgroundColor:toNSColor(panel)];
    [_notes.get() setMaxSize:NSMakeSize(1e7, 1e7)];
    [_notes.get() setVerticallyResizable:YES];
    [_notes.get() setHorizontallyResizable:NO];
    [_notes.get() setAutoresizingMask:NSViewWidthSizable];
    [[_notes.get() textContainer] setWidthTracksTextView:YES];
    [_notes.get() setTextContainerInset:NSMakeSize(18, 16)];
    [_notesScroll.get() setHasVerticalScroller:YES];
    [_notesScroll.get() setAutohidesScrollers:YES];
    [_notesScroll.get() setBorderType:NSNoBorder];
    [_notesScroll.get() setBackgroundColor:toNSColor(panel)];
    [_notesScroll.get() setDocumentView:_notes.get()];
}

- (void)stop {
    // The timer holds the view.
    [_timer.get() invalidate];
    _keyHandler = nullptr;
}

- (void)setKeyHandler:(std::function<bool(NSEvent *)>)handler {
    _keyHandler = std::move(handler);
}

- (void)setMuted:(bool)muted {
    _muted = muted;
}

- (BOOL)isOpaque {
    return YES;
}

- (BOOL)acceptsFirstResponder {
    return YES;
}

- (void)keyDown:(NSEvent *)event {
    if (!_keyHandler || !_keyHandler(event)) {
        [super keyDown:event];
    }
}

- (void)mouseDown:(NSEvent *)event {
    (void)event;
}

#pragma mark Content

- (void)showSlide:(const ShownSlide &)current
             next:(const std::optional<ShownSlide> &)next
            black:(bool)black
           digits:(NSString *)digits {
    [_current.get() show:current];
    [_next.get() show:next];
    _black = black;
    [_position release];
    _position = [[NSString alloc] initWithFormat:@"Slide %lu of %lu", static_cast<unsigned long>(current.style.number),
                                                 static_cast<unsigned long>(current.style.count)];
    [_digits release];
    _digits = [digits copy];
    [_nextTitle release];
    _nextTitle = [(next ? @"Next" : @"End of the talk") copy];
    [_notes.get() setString:toNSString(current.slide.notes)];
    [_notes.get() setFont:fontOf(Family::sans, 20, false, false)];
    [_notes.get() setTextColor:toNSColor(bright)];
    [self setNeedsDisplay:YES];
}

- (void)tick:(NSTimer *)timer {
    (void)timer;
    [self setNeedsDisplayInRect:NSMakeRect(0, 0, NSWidth([self bounds]), [self footHeight])];
}

#pragma mark Layout

- (double)footHeight {
    return 84;
}

- (double)leftWidth {
    return std::round((NSWidth([self bounds]) - 72) * 0.62);
}

- (void)layOut {
    const NSRect all = [self bounds];
    const double left = [self leftWidth];
    const double right = NSWidth(all) - left - 72;
    const double foot = [self footHeight];
    const double height = std::max(NSHeight(all) - foot - 68, 10.0);
    const double nextHeight = std::round(std::min(right * 9 / 16, height * 0.45));
    [_current.get() setFrame:NSMakeRect(24, foot, left, height)];
    [_next.get() setFrame:NSMakeRect(left + 48, foot + height - nextHeight, right, nextHeight)];
    [_notesScroll.get() setFrame:NSMakeRect(left + 48, foot, right, std::max(height - nextHeight - 52, 10.0))];
}

- (void)resizeSubviewsWithOldSize:(NSSize)size {
    (void)size;
    [self layOut];
    [self setNeedsDisplay:YES];
}

#pragma mark Drawing

- (void)drawRightAligned:(NSString *)text at:(double)right y:(double)y with:(NSDictionary<NSString *, id> *)look {
    [text drawAtPoint:NSMakePoint(right - [text sizeWithAttributes:look].width, y) withAttributes:look];
}

- (NSString *)elapsed {
    const auto seconds = static_cast<long>(std::max(0.0, secondsSince(_started.get())));
    return [NSString stringWithFormat:@"%02ld:%02ld:%02ld", seconds / 3600, seconds / 60 % 60, seconds % 60];
}

- (void)drawRect:(NSRect)dirty {
    [toNSColor(ground) set];
    NSRectFill(dirty);
    const NSRect all = [self bounds];
    const double top = NSHeight(all) - 46;
    NSDictionary<NSString *, id> *heading = attributes(18, true, dim);
    const double rightColumn = [self leftWidth] + 48;
    [(_position == nil ? @"" : _position) drawAtPoint:NSMakePoint(24, top) withAttributes:attributes(18, true, bright)];
    [(_nextTitle == nil ? @"" : _nextTitle) drawAtPoint:NSMakePoint(rightColumn, top) withAttributes:heading];
    [@"Notes" drawAtPoint:NSMakePoint(rightColumn, NSMaxY([_notesScroll.get() frame]) + 12) withAttributes:heading];

    NSString *state = _black ? @"Screen is black – press b to show the slide" : @"";
    if ([_digits length] > 0) {
        state = [NSString stringWithFormat:@"Go to slide %@ ⏎", _digits];
    } else if (!_black && _muted) {
        state = @"Videos are muted";
    }
    [[self elapsed] drawAtPoint:NSMakePoint(24, 22) withAttributes:attributes(30, true, bright)];
    [state drawAtPoint:NSMakePoint(210, 28) withAttributes:attributes(18, false, accent)];
    [self drawRightAligned:timeOfDay() at:NSWidth(all) - 24 y:22 with:attributes(30, true, bright)];
}

@end
