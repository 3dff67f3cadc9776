// GNUstep 0.29 lacks stack views, and a layout resource with one does not load at all.
#import "NSStackView.h"

#include <algorithm>
#include <utility>
#include <vector>

@interface NSStackView (QVLayout)
- (void)readAttributes:(NSCoder *)coder;
- (void)keepView:(NSView *)view atIndex:(NSUInteger)index;
- (void)forget:(NSView *)view;
- (void)layOut;
- (void)placeView:(NSView *)view at:(CGFloat)position length:(CGFloat)length inArea:(NSRect)area;
@end

namespace {

// Lengths along the stack, first to last, and what is left free between two.
struct Row {
    std::vector<CGFloat> lengths;
    CGFloat gap;
};

// Distributes `room` among the views.
Row distribute(std::vector<CGFloat> lengths, CGFloat spacing, CGFloat room, NSStackViewDistribution distribution) {
    const auto count = static_cast<CGFloat>(lengths.size());
    CGFloat used = spacing * (count - 1);
    for (const CGFloat length : lengths) {
        used += length;
    }
    const CGFloat rest = room - used;
    switch (distribution) {
    case NSStackViewDistributionFill:
        lengths.back() = std::max<CGFloat>(0, lengths.back() + rest);
        break;
    case NSStackViewDistributionFillEqually:
        std::ranges::fill(lengths, std::max<CGFloat>(0, (room - spacing * (count - 1)) / count));
        break;
    case NSStackViewDistributionFillProportionally: {
        const CGFloat natural = used - spacing * (count - 1);
        for (CGFloat &length : lengths) {
            length = natural > 0 ? std::max<CGFloat>(0, length + rest * length / natural) : 0;
        }
        break;
    }
    case NSStackViewDistributionEqualSpacing:
    case NSStackViewDistributionEqualCentering:
        if (count > 1) {
            return {std::move(lengths), std::max(spacing, spacing + rest / (count - 1))};
        }
        break;
    case NSStackViewDistributionGravityAreas:
        break;
    }
    return {std::move(lengths), spacing};
}

// What a layout resource says in words.
NSStackViewDistribution distributionNamed(NSString *name) {
    NSArray *names = @[ @"fill", @"fillEqually", @"fillProportionally", @"equalSpacing", @"equalCentering" ];
    const NSUInteger index = [names indexOfObject:name];
    return index == NSNotFound ? NSStackViewDistributionGravityAreas : static_cast<NSStackViewDistribution>(index);
}

NSLayoutAttribute alignmentNamed(NSString *name) {
    NSDictionary *names = @{
        @"leading" : @(NSLayoutAttributeLeading),
        @"trailing" : @(NSLayoutAttributeTrailing),
        @"left" : @(NSLayoutAttributeLeading),
        @"right" : @(NSLayoutAttributeTrailing),
        @"top" : @(NSLayoutAttributeTop),
        @"bottom" : @(NSLayoutAttributeBottom),
        @"width" : @(NSLayoutAttributeWidth),
        @"height" : @(NSLayoutAttributeHeight),
    };
    NSNumber *found = name != nil ? [names objectForKey:name] : nil;
    return found != nil ? static_cast<NSLayoutAttribute>([found integerValue]) : NSLayoutAttributeCenterY;
}

} // namespace

@implementation NSStackView

@synthesize orientation = _orientation;
@synthesize alignment = _alignment;
@synthesize distribution = _distribution;
@synthesize spacing = _spacing;
@synthesize edgeInsets = _edgeInsets;

+ (instancetype)stackViewWithViews:(NSArray *)views {
    NSStackView *stack = [[[self alloc] initWithFrame:NSZeroRect] autorelease];
    for (NSView *view in views) {
        [stack addArrangedSubview:view];
    }
    [stack setFrameSize:[stack fittingSize]];
    return stack;
}

- (void)setDefaults {
    _arrangedSubviews = [[NSMutableArray alloc] init];
    _naturalSizes = [[NSMutableArray alloc] init];
    _orientation = NSUserInterfaceLayoutOrientationHorizontal;
    _alignment = NSLayoutAttributeCenterY;
    _distribution = NSStackViewDistributionGravityAreas;
    _spacing = 8;
}

- (id)initWithFrame:(NSRect)frame {
    if ((self = [super initWithFrame:frame]) != nil) {
        [self setDefaults];
    }
    return self;
}

- (id)initWithCoder:(NSCoder *)coder {
    if ((self = [super initWithCoder:coder]) != nil) {
        [self setDefaults];
        [self readAttributes:coder];
        // In a layout resource all subviews are arranged ones.
        for (NSView *view in [self subviews]) {
            [self keepView:view atIndex:[_arrangedSubviews count]];
        }
        [self layOut];
    }
    return self;
}

- (void)readAttributes:(NSCoder *)coder {
    const auto text = [coder](NSString *key) -> NSString * {
        id value = [coder containsValueForKey:key] ? [coder decodeObjectForKey:key] : nil;
        return [value isKindOfClass:[NSString class]] ? value : nil;
    };
    if ([text(@"orientation") isEqualToString:@"vertical"]) {
        _orientation = NSUserInterfaceLayoutOrientationVertical;
    }
    if (NSString *spacing = text(@"spacing")) {
        _spacing = [spacing doubleValue];
    }
    _alignment = alignmentNamed(text(@"alignment"));
    _distribution = distributionNamed(text(@"distribution"));
}

- (void)dealloc {
    [_arrangedSubviews release];
    _arrangedSubviews = nil; // the superclass tells of each view that goes
    [_naturalSizes release];
    _naturalSizes = nil;
    [super dealloc];
}

- (NSArray *)arrangedSubviews {
    return [[_arrangedSubviews copy] autorelease];
}

- (void)keepView:(NSView *)view atIndex:(NSUInteger)index {
    [_arrangedSubviews insertObject:view atIndex:index];
    [_naturalSizes insertObject:[NSValue valueWithSize:[view frame].size] atIndex:index];
}

- (void)addArrangedSubview:(NSView *)view {
    [self insertArrangedSubview:view atIndex:static_cast<NSInteger>([_arrangedSubviews count])];
}

- (void)insertArrangedSubview:(NSView *)view atIndex:(NSInteger)index {
    [self forget:view];
    [self keepView:view atIndex:std::min(static_cast<NSUInteger>(index), [_arrangedSubviews count])];
    if ([view superview] != self) {
        [self addSubview:view];
    }
    [self layOut];
}

- (void)forget:(NSView *)view {
    const NSUInteger index = [_arrangedSubviews indexOfObjectIdenticalTo:view];
    if (_arrangedSubviews != nil && index != NSNotFound) {
        [_arrangedSubviews removeObjectAtIndex:index];
        [_naturalSizes removeObjectAtIndex:index];
    }
}

- (void)removeArrangedSubview:(NSView *)view {
    [self forget:view];
    [self layOut];
}

- (void)willRemoveSubview:(NSView *)view {
    [super willRemoveSubview:view];
    [self removeArrangedSubview:view];
}

- (void)setOrientation:(NSUserInterfaceLayoutOrientation)orientation {
    _orientation = orientation;
    [self layOut];
}

- (void)setAlignment:(NSLayoutAttribute)alignment {
    _alignment = alignment;
    [self layOut];
}

- (void)setDistribution:(NSStackViewDistribution)distribution {
    _distribution = distribution;
    [self layOut];
}

- (void)setSpacing:(CGFloat)spacing {
    _spacing = spacing;
    [self layOut];
}

- (void)setEdgeInsets:(NSEdgeInsets)insets {
    _edgeInsets = insets;
    [self layOut];
}

- (BOOL)isVertical {
    return _orientation == NSUserInterfaceLayoutOrientationVertical;
}

- (NSArray *)shownViews {
    NSMutableArray *shown = [NSMutableArray array];
    for (NSView *view in _arrangedSubviews) {
        if (![view isHidden]) {
            [shown addObject:view];
        }
    }
    return shown;
}

- (NSSize)naturalSize:(NSView *)view {
    return [[_naturalSizes objectAtIndex:[_arrangedSubviews indexOfObjectIdenticalTo:view]] sizeValue];
}

- (NSSize)fittingSize {
    CGFloat along = 0;
    CGFloat across = 0;
    NSArray *views = [self shownViews];
    for (NSView *view in views) {
        const NSSize size = [self naturalSize:view];
        along += [self isVertical] ? size.height : size.width;
        across = std::max(across, [self isVertical] ? size.width : size.height);
    }
    if ([views count] > 1) {
        along += _spacing * static_cast<CGFloat>([views count] - 1);
    }
    const NSSize size = [self isVertical] ? NSMakeSize(across, along) : NSMakeSize(along, across);
    return NSMakeSize(size.width + _edgeInsets.left + _edgeInsets.right,
                      size.height + _edgeInsets.top + _edgeInsets.bottom);
}

// The views fill the stack themselves, whatever their autoresizing masks say.
- (void)resizeSubviewsWithOldSize:(NSSize)oldSize {
    [self layOut];
}

- (void)layOut {
    NSArray *views = [self shownViews];
    if ([views count] == 0) {
        return;
    }
    const BOOL vertical = [self isVertical];
    const NSRect bounds = [self bounds];
    const NSRect area =
        NSMakeRect(_edgeInsets.left, _edgeInsets.bottom, NSWidth(bounds) - _edgeInsets.left - _edgeInsets.right,
                   NSHeight(bounds) - _edgeInsets.top - _edgeInsets.bottom);
    std::vector<CGFloat> lengths;
    for (NSView *view in views) {
        const NSSize size = [self naturalSize:view];
        lengths.push_back(vertical ? size.height : size.width);
    }
    const Row row = distribute(std::move(lengths), _spacing, vertical ? NSHeight(area) : NSWidth(area), _distribution);
    CGFloat position = 0;
    for (NSUInteger i = 0; i < [views count]; i++) {
        [self placeView:[views objectAtIndex:i] at:position length:row.lengths[i] inArea:area];
        position += row.lengths[i] + row.gap;
    }
}

- (void)placeView:(NSView *)view at:(CGFloat)position length:(CGFloat)length inArea:(NSRect)area {
    const NSSize natural = [self naturalSize:view];
    if ([self isVertical]) {
        const CGFloat width = _alignment == NSLayoutAttributeWidth ? NSWidth(area) : natural.width;
        CGFloat x = NSMidX(area) - width / 2;
        if (_alignment == NSLayoutAttributeLeading || _alignment == NSLayoutAttributeLeft) {
            x = NSMinX(area);
        } else if (_alignment == NSLayoutAttributeTrailing || _alignment == NSLayoutAttributeRight) {
            x = NSMaxX(area) - width;
        }
        const CGFloat y = [self isFlipped] ? NSMinY(area) + position : NSMaxY(area) - position - length;
        [view setFrame:NSIntegralRect(NSMakeRect(x, y, width, length))];
        return;
    }
    const CGFloat height = _alignment == NSLayoutAttributeHeight ? NSHeight(area) : natural.height;
    CGFloat y = NSMidY(area) - height / 2;
    if (_alignment == NSLayoutAttributeTop || _alignment == NSLayoutAttributeBottom) {
        const BOOL high = (_alignment == NSLayoutAttributeTop) != [self isFlipped];
        y = high ? NSMaxY(area) - height : NSMinY(area);
    }
    [view setFrame:NSIntegralRect(NSMakeRect(NSMinX(area) + position, y, length, height))];
}

@end
