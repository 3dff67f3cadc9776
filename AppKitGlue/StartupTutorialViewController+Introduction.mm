#import "StartupTutorialViewController+Private.h"

#import "StringBridging.h"

#include <memory>
#include <utility>

using appkitglue::required;
using appkitglue::Steps;

namespace {

constexpr double headlineTime = 0.8; // seconds, as all times here
constexpr double slideTime = 0.7;
constexpr double labelTime = 0.45;
constexpr double headlineScale = 0.7;

} // namespace

@implementation StartupTutorialViewController (Introduction)

- (void)startIntro {
    [self setCurrentStep:Steps::animateDrawing];
    [required([self nextActionButton]) setEnabled:NO];
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext *context) {
            [context setDuration:headlineTime];
            [context setAllowsImplicitAnimation:YES];
            const auto scaled = CGAffineTransformScale(CGAffineTransformIdentity, headlineScale, headlineScale);
            [[[required([self headlinesContainer]) animator] layer]
                setAffineTransform:CGAffineTransformTranslate(scaled, -10, 130)];
            [[required([self bluebar]) animator] setAlphaValue:1];
        }
        completionHandler:^{
            [self slideInDrawing:[self] { [required([self nextActionButton]) setEnabled:YES]; }];
            [self setCurrentStep:Steps([self currentStep]).advanced()];
        }];
}

- (void)slideInDrawing:(std::function<void()>)completion {
    NSView *box = required([self contentBoxEmpty]);
    NSView *drawing = required([self contentBoxDrawing]);
    const NSRect bounds = [box bounds];
    [drawing setFrame:NSMakeRect(bounds.origin.x, -bounds.size.height, bounds.size.width, bounds.size.height)];
    [box addSubview:drawing];
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext *context) {
            [context setDuration:slideTime];
            [[drawing animator] setFrame:bounds];
        }
        completionHandler:^{
            [self revealDrawingLabels:completion];
        }];
}

- (void)revealDrawingLabels:(std::function<void()>)completion {
    NSMutableArray *labels = [NSMutableArray array];
    for (NSView *subview in [required([self contentBoxDrawing]) subviews]) {
        if ([subview isKindOfClass:[NSTextField class]]) {
            [labels addObject:subview];
        }
    }
    [self fadeInSequentially:labels completion:std::move(completion)];
    [self swapDescription:appkitglue::toNSString(Steps(Steps::tm1).description())];
}

- (void)fadeInSequentially:(NSArray *)views completion:(std::function<void()>)completion {
    if ([views count] == 0) {
        [self setCurrentStep:Steps::tm1];
        [self setCurrentView:required([self contentBoxEmpty])];
        [[required([self pagerStackView]) animator] setAlphaValue:1];
        completion();
        return;
    }
    NSView *label = [views objectAtIndex:0];
    [label setAlphaValue:0];
    [label setHidden:NO];
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext *context) {
            [context setDuration:labelTime];
            [context setAllowsImplicitAnimation:YES];
            [label setAlphaValue:1];
        }
        completionHandler:^{
            [self fadeInSequentially:[views subarrayWithRange:NSMakeRange(1, [views count] - 1)] completion:completion];
        }];
}

@end
