#import "SHPopoverForm.h"

#import "DocumentLayout.h"

#include <cmath>
#include <memory>
#include <utility>

using namespace samplehost;

namespace {

constexpr double margin = 16;
constexpr double rowGap = 10;

// Controls take the user's font size: with a larger one than usual they need more room.
double scaled(double length) {
    constexpr double usualSize = 12;
    constexpr double largestUsualSize = 13;
    const double size = [NSFont systemFontSize];
    return size > largestUsualSize ? std::ceil(length * size / usualSize) : length;
}

double labelWidth() {
    return scaled(74);
}

double controlHeight() {
    return scaled(26);
}

} // namespace

@implementation SHPopoverForm

- (instancetype)initWithWidth:(double)width document:(SHDocument *)document application:(SHAppDelegate *)application {
    self = [super initWithFrame:NSMakeRect(0, 0, scaled(width), 100)];
    if (self != nil) {
        _document = document;
        _application = application;
        _y = margin;
        [self build];
        [self setFrameSize:NSMakeSize(scaled(width), _y - rowGap + margin)];
    }
    return self;
}

- (BOOL)isFlipped {
    return YES;
}

- (void)build {
}

- (void)setCloser:(std::function<void()>)closer {
    _closer = std::move(closer);
}

- (void)closePopover {
    // A later turn: the control that asks for it is still at work.
    const auto form = std::make_shared<Owned<SHPopoverForm>>(keep(self));
    platform::async([form] {
        if (form->get()->_closer) {
            form->get()->_closer();
        }
    });
}

- (NSView *)firstControl {
    return nil;
}

- (void)cancelOperation:(id)sender {
    (void)sender;
    [self closePopover];
}

#pragma mark Rows

- (double)contentWidth {
    return NSWidth([self frame]) - 2 * margin;
}

- (void)addView:(NSView *)view height:(double)height {
    [view setFrame:NSMakeRect(margin, _y, [self contentWidth], height)];
    [self addSubview:view];
    _y += height + rowGap;
}

- (void)addTitle:(NSString *)title {
    [self addView:labelWith(title, NSZeroRect, [NSFont boldSystemFontOfSize:14]) height:20];
}

- (void)addNote:(NSString *)text {
    NSFont *font = [NSFont systemFontOfSize:11];
    NSTextField *label = labelWith(text, NSZeroRect, font);
    [[label cell] setWraps:YES];
    const auto styled = own([[NSAttributedString alloc] initWithString:text attributes:@{NSFontAttributeName : font}]);
    // A cell's own margins leave the text a little less than the width.
    const NSRect bounds = [styled.get() boundingRectWithSize:NSMakeSize([self contentWidth] - 8, 1000)
                                                     options:NSStringDrawingUsesLineFragmentOrigin];
    [self addView:label height:std::ceil(NSHeight(bounds)) + 6];
}

- (NSRect)addLabel:(NSString *)text {
    NSTextField *label = labelWith(text, NSMakeRect(margin, _y + 4, labelWidth(), 18), [NSFont systemFontOfSize:12]);
    [self addSubview:label];
    const NSRect rest = NSMakeRect(margin + labelWidth(), _y, [self contentWidth] - labelWidth(), controlHeight());
    _y += controlHeight() + rowGap;
    return rest;
}

- (NSTextField *)addField:(NSString *)label value:(NSString *)value {
    NSTextField *field = [[[NSTextField alloc] initWithFrame:NSInsetRect([self addLabel:label], 0, 1)] autorelease];
    [field setStringValue:value];
    [[field cell] setScrollable:YES];
    [self addSubview:field];
    return field;
}

- (NSPopUpButton *)addPopUp:(NSString *)label titles:(NSArray<NSString *> *)titles selected:(NSString *)selected {
    NSPopUpButton *button = [[[NSPopUpButton alloc] initWithFrame:[self addLabel:label] pullsDown:NO] autorelease];
    [button addItemsWithTitles:titles];
    [button selectItemWithTitle:selected];
    [self addSubview:button];
    return button;
}

- (NSButton *)addCheckBox:(NSString *)title on:(bool)on {
    NSButton *box = [[[NSButton alloc] initWithFrame:NSZeroRect] autorelease];
    [box setButtonType:NSSwitchButton];
    [box setTitle:title];
    [box setState:on ? NSOnState : NSOffState];
    [self addView:box height:scaled(20)];
    return box;
}

- (NSArray<NSButton *> *)addButtons:(NSArray<NSString *> *)titles {
    NSMutableArray<NSButton *> *buttons = [NSMutableArray array];
    constexpr double gap = 8;
    const auto count = static_cast<double>([titles count]);
    const double width = std::floor(([self contentWidth] - gap * (count - 1)) / count);
    double x = margin;
    for (NSString *title in titles) {
        NSButton *button = [[[NSButton alloc] initWithFrame:NSMakeRect(x, _y, width, controlHeight() + 2)] autorelease];
        [button setTitle:title];
        [button setBezelStyle:NSRoundedBezelStyle];
        [self addSubview:button];
        [buttons addObject:button];
        x += width + gap;
    }
    _y += controlHeight() + 2 + rowGap;
    return buttons;
}

#pragma mark Work

- (void)wire:(NSControl *)control to:(std::function<void()>)work {
    [control setTag:static_cast<NSInteger>(_works.size())];
    [control setTarget:self];
    [control setAction:@selector(doWork:)];
    _works.push_back(std::move(work));
}

- (void)doWork:(id)sender {
    const auto index = static_cast<std::size_t>([sender tag]);
    if (index < _works.size()) {
        const auto work = _works[index];
        work();
    }
}

@end
