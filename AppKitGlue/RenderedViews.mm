#import "RenderedViews.h"

#import "RetainPtr.h"
#import "StringBridging.h"
#import "ViewFonts.h"

namespace appkitglue::ui {

void drawShape(const RoundedRectangle &shape, NSRect rect) {
    // A line is drawn inside the edge, not half outside where nothing is drawn.
    const double inset = shape.stroke ? shape.stroke->lineWidth / 2 : 0;
    rect = NSInsetRect(rect, inset, inset);
    const double radius = shape.cornerRadius - inset;
    NSBezierPath *path = [NSBezierPath bezierPathWithRoundedRect:rect xRadius:radius yRadius:radius];
    [shape.stroke ? inkFor(shape.color) : colorFor(shape.color) set];
    if (!shape.stroke) {
        [path fill];
        return;
    }
    [path setLineWidth:shape.stroke->lineWidth];
    [path setMiterLimit:shape.stroke->miterLimit];
    const std::vector<CGFloat> dash(shape.stroke->dash.begin(), shape.stroke->dash.end());
    if (!dash.empty())
        [path setLineDash:dash.data() count:NSInteger(dash.size()) phase:0];
    [path stroke];
}

namespace {

// Draws what a button's label consists of.
void drawLabel(const View &view, const Layout &layout) {
    const auto *decoration = std::get_if<Decoration>(&view.content);
    if (decoration && !decoration->inFront)
        drawShape(decoration->shape, toNSRect(layout.frame));
    if (const auto *text = std::get_if<Text>(&view.content))
        [attributedText(*text) drawInRect:toNSRect(layout.frame)];
    for (std::size_t i = 0; i < view.children.size(); i++)
        drawLabel(view.children[i], layout.children[i]);
    if (decoration && decoration->inFront)
        drawShape(decoration->shape, toNSRect(layout.frame));
}

const Text *firstText(const View &view) {
    if (const auto *text = std::get_if<Text>(&view.content))
        return text;
    for (const View &child : view.children)
        if (const auto *text = firstText(child))
            return text;
    return nullptr;
}

const RoundedRectangle *firstShape(const View &view) {
    if (const auto *decoration = std::get_if<Decoration>(&view.content))
        return &decoration->shape;
    for (const View &child : view.children)
        if (const auto *shape = firstShape(child))
            return shape;
    return nullptr;
}

} // namespace

} // namespace appkitglue::ui

using namespace appkitglue;
using namespace appkitglue::ui;

/// The stock cell would draw the text with margins of its own.
@interface QVTextLabelCell : NSTextFieldCell
@end

@implementation QVTextLabelCell
- (void)drawWithFrame:(NSRect)frame inView:(NSView *)view {
    (void)view;
    [[self attributedStringValue] drawInRect:frame];
}
@end

/// Leaves the drawing to its button.
@interface QVLabelButtonCell : NSButtonCell
@end

@implementation QVLabelButtonCell
- (void)drawWithFrame:(NSRect)frame inView:(NSView *)view {
    (void)frame;
    [static_cast<QVLabelButton *>(view) drawLabelPressed:[self isHighlighted]];
}

// The stock method draws over what is there: the label need not be opaque.
- (void)highlight:(BOOL)flag withFrame:(NSRect)frame inView:(NSView *)view {
    (void)frame;
    if ([self isHighlighted] == flag)
        return;
    [self setHighlighted:flag];
    [view setNeedsDisplay:YES];
    [view displayIfNeeded];
}
@end

@implementation QVFlippedView
- (BOOL)isFlipped {
    return YES;
}
@end

@implementation QVTextLabel

+ (Class)cellClass {
    return [QVTextLabelCell class];
}

- (instancetype)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self) {
        [self setEditable:NO];
        [self setSelectable:NO];
        [self setBordered:NO];
        [self setBezeled:NO];
        [self setDrawsBackground:NO];
    }
    return self;
}

- (BOOL)isFlipped {
    return YES;
}

- (BOOL)isOpaque {
    return NO;
}

- (void)showText:(const Text &)text {
    _text = std::make_unique<Text>(text);
    [self setAttributedStringValue:attributedText(text)];
}

// Colours and fonts are those of the moment: the appearance may have changed.
- (void)drawRect:(NSRect)dirty {
    (void)dirty;
    if (_text)
        [attributedText(*_text) drawInRect:[self bounds]];
}

- (NSString *)accessibilityLabel {
    return [self stringValue];
}

@end

@implementation QVShapeView

- (BOOL)isFlipped {
    return YES;
}

- (void)showShape:(const RoundedRectangle &)shape {
    _shape = std::make_unique<RoundedRectangle>(shape);
    [self setNeedsDisplay:YES];
}

- (void)drawRect:(NSRect)dirty {
    (void)dirty;
    if (_shape)
        drawShape(*_shape, [self bounds]);
}

- (NSView *)hitTest:(NSPoint)point {
    (void)point;
    return nil;
}

@end

@implementation QVLabelButton

+ (Class)cellClass {
    return [QVLabelButtonCell class];
}

- (instancetype)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self) {
        [self setBordered:NO];
        [self setTarget:self];
        [self setAction:@selector(perform:)];
    }
    return self;
}

- (BOOL)isFlipped {
    return YES;
}

- (BOOL)isOpaque {
    return NO;
}

- (BOOL)acceptsFirstResponder {
    return YES;
}

- (BOOL)becomeFirstResponder {
    [self scrollRectToVisible:[self bounds]];
    [self setNeedsDisplay:YES];
    return [super becomeFirstResponder];
}

- (BOOL)resignFirstResponder {
    [self setNeedsDisplay:YES];
    return [super resignFirstResponder];
}

- (void)keyDown:(NSEvent *)event {
    NSString *typed = [event charactersIgnoringModifiers];
    if ([typed isEqualToString:@"\r"] || [typed isEqualToString:@" "])
        [self performClick:self];
    else
        [super keyDown:event];
}

- (void)showLabel:(const View &)label layout:(const Layout &)layout context:(const std::string &)context {
    _label = std::make_unique<View>(label);
    _layout = std::make_unique<Layout>(layout);
    _context = context;
    const Text *text = firstText(label);
    [self setTitle:text ? toNSString(text->text) : @""];
    [self setNeedsDisplay:YES];
}

- (void)setPerform:(std::function<void()>)perform {
    _perform = std::move(perform);
}

- (void)perform:(id)sender {
    (void)sender;
    const auto perform = _perform; // it may replace itself
    if (perform)
        perform();
}

- (NSString *)accessibilityLabel {
    if (_context.empty())
        return [self title];
    return [NSString stringWithFormat:@"%@ %@", [self title], toNSString(_context)];
}

- (void)drawLabelPressed:(BOOL)pressed {
    if (!_label)
        return;
    drawLabel(*_label, *_layout);
    const RoundedRectangle *shape = firstShape(*_label);
    const double radius = shape ? shape->cornerRadius : 0;
    if (pressed) {
        [[[NSColor blackColor] colorWithAlphaComponent:0.25] set];
        [[NSBezierPath bezierPathWithRoundedRect:[self bounds] xRadius:radius yRadius:radius] fill];
    }
    if ([[self window] firstResponder] != self || ![[self window] isKeyWindow])
        return;
    const Text *text = firstText(*_label);
    const auto color = text && text->color ? *text->color : ColorRole::accent;
    drawShape(RoundedRectangle::stroked(std::max(0.0, radius - 1.5), color, 1.5), NSInsetRect([self bounds], 1.5, 1.5));
}

@end
