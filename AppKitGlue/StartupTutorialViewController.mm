#import "StartupTutorialViewController+Private.h"

#import "QVAppKitController.h"
#import "StringBridging.h"

#include <array>
#include <optional>

using appkitglue::required;
using appkitglue::retainPtr;
using appkitglue::Steps;

namespace {

constexpr double introductionDelay = 1.1; // seconds, as all times here
constexpr double pageSwapTime = 0.5;
constexpr double descriptionFadeTime = 0.65;

/// What a step shows.
struct StepContent {
    NSView *box;
    NSButton *pagerButton;
};

NSImage *imageNamed(NSString *name) {
    NSString *path = [[NSBundle bundleForClass:[StartupTutorialViewController class]] pathForImageResource:name];
    return path != nil ? appkitglue::adoptNS([[NSImage alloc] initWithContentsOfFile:path]).autorelease() : nil;
}

} // namespace

@implementation StartupTutorialViewController

@synthesize containerView = _containerView;
@synthesize headline = _headline;
@synthesize subline = _subline;
@synthesize descriptionField = _descriptionField;
@synthesize nextActionButton = _nextActionButton;
@synthesize exitActionButton = _exitActionButton;
@synthesize bluebar = _bluebar;
@synthesize headlinesContainer = _headlinesContainer;
@synthesize contentBoxEmpty = _contentBoxEmpty;
@synthesize contentBoxDrawing = _contentBoxDrawing;
@synthesize contentBoxTm2 = _contentBoxTm2;
@synthesize contentBoxTm3 = _contentBoxTm3;
@synthesize contentBoxTm4 = _contentBoxTm4;
@synthesize contentBoxTm5 = _contentBoxTm5;
@synthesize contentBoxTm6 = _contentBoxTm6;
@synthesize contentBoxTm7 = _contentBoxTm7;
@synthesize currentStep = _currentStep;
@synthesize currentView = _currentView;
@synthesize pagerStackView = _pagerStackView;
@synthesize pagerButton1 = _pagerButton1;
@synthesize pagerButton2 = _pagerButton2;
@synthesize pagerButton3 = _pagerButton3;
@synthesize pagerButton4 = _pagerButton4;
@synthesize buttonSampleDocument = _buttonSampleDocument;
@synthesize buttonFinish = _buttonFinish;
@synthesize didTapSampleDocumentBeforeClose = _didTapSampleDocumentBeforeClose;

- (void)dealloc {
    for (NSString *outlet in @[
             @"containerView",
             @"headline",
             @"subline",
             @"descriptionField",
             @"nextActionButton",
             @"exitActionButton",
             @"bluebar",
             @"headlinesContainer",
             @"contentBoxEmpty",
             @"contentBoxDrawing",
             @"contentBoxTm2",
             @"contentBoxTm3",
             @"contentBoxTm4",
             @"contentBoxTm5",
             @"contentBoxTm6",
             @"contentBoxTm7",
             @"currentView",
             @"pagerStackView",
             @"pagerButton1",
             @"pagerButton2",
             @"pagerButton3",
             @"pagerButton4",
             @"buttonSampleDocument",
             @"buttonFinish"
         ]) {
        [self setValue:nil forKey:outlet];
    }
    [super dealloc];
}

- (void)viewDidLoad {
    [super viewDidLoad];
    [required(_descriptionField) setStringValue:@""];
    [required(_containerView) addSubview:required(_contentBoxEmpty)];
    [_contentBoxEmpty setFrame:[_containerView bounds]];
    [required(_bluebar) setAlphaValue:0];
    [required(_pagerStackView) setAlphaValue:0];
    platform::asyncAfter(introductionDelay, [self_ = retainPtr(self)] { [self_.get() startIntro]; });
    [required(_buttonSampleDocument) setHidden:NO];
    [required(_buttonFinish) setHidden:NO];
    // The window controller may be released while the tutorial is open.
    _openWindow = retainPtr([[self view] window]);
}

// MARK: Actions

- (void)doNextWithSender:(id)sender {
    [self goToStep:std::nullopt];
}

- (void)doSpecificWithSender:(id)sender {
    const auto step = Steps::forPagerTag([sender tag]);
    if (step && *step != _currentStep) {
        [self goToStep:step];
    }
}

- (void)doSampleDocumentWithSender:(id)sender {
    _didTapSampleDocumentBeforeClose = YES;
    [[NSNotificationCenter defaultCenter] postNotificationName:OpenSampleDocumentNotification object:nil];
    [[[self view] window] close];
}

- (void)doFinishWithSender:(id)sender {
    [[[self view] window] close];
}

// MARK: Pages

- (void)goToStep:(std::optional<Steps>)step {
    const Steps target = step.value_or(Steps(_currentStep).next());
    if (target == _currentStep) {
        return;
    }
    const auto content = [self contentForStep:target];
    if (!content || _currentView == nil) {
        return;
    }
    if (target == Steps::tm4) {
        [required(_nextActionButton) setHidden:YES];
        [required(_pagerStackView) setHidden:YES];
        [required(_buttonSampleDocument) setHidden:NO];
        [required(_buttonFinish) setHidden:NO];
    }
    [required(_nextActionButton) setEnabled:NO];
    [self setPagerEnabled:NO selected:nil];
    [self swapDescription:appkitglue::toNSString(target.description())];
    [self showContent:*content ofStep:target];
}

- (std::optional<StepContent>)contentForStep:(Steps)step {
    const auto page = step.pageIndex();
    if (!page) {
        return std::nullopt;
    }
    const std::array boxes{_contentBoxEmpty, _contentBoxTm2, _contentBoxTm3, _contentBoxTm4};
    return StepContent{required(boxes.at(*page)), [self pagerButtons].at(*page)};
}

- (std::array<NSButton *, 4>)pagerButtons {
    return {required(_pagerButton1), required(_pagerButton2), required(_pagerButton3), required(_pagerButton4)};
}

- (void)setPagerEnabled:(BOOL)enabled selected:(NSButton *)selected {
    NSImage *unselectedImage = imageNamed(@"pager_unselected");
    for (NSButton *button : [self pagerButtons]) {
        [button setEnabled:enabled];
        [button setImage:unselectedImage];
    }
    [selected setImage:imageNamed(@"pager_selected")];
}

- (void)showContent:(StepContent)content ofStep:(Steps)step {
    NSView *box = content.box;
    NSButton *pagerButton = content.pagerButton;
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext *context) {
            [context setDuration:pageSwapTime];
            [context setAllowsImplicitAnimation:YES];
            [[required(_containerView) animator] replaceSubview:_currentView with:box];
        }
        completionHandler:^{
            [self setCurrentView:box];
            _currentStep = step;
            [self setPagerEnabled:YES selected:pagerButton];
            [required(_nextActionButton) setEnabled:YES];
        }];
}

- (void)swapDescription:(NSString *)text {
    [self fadeDescriptionTo:0
                 completion:^{
                     [required(_descriptionField) setStringValue:text];
                     [self fadeDescriptionTo:1
                                  completion:^{
                                  }];
                 }];
}

- (void)fadeDescriptionTo:(CGFloat)alpha completion:(void (^)(void))completion {
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext *context) {
            [context setDuration:descriptionFadeTime];
            [context setAllowsImplicitAnimation:YES];
            [required(_descriptionField) setAlphaValue:alpha];
        }
        completionHandler:completion];
}

// MARK: Closing

- (void)windowWillClose:(NSNotification *)notification {
    const Steps step = _currentStep;
    [self postMetric:appkitglue::toNSString(Steps::closeMetric)
             payload:appkitglue::toNSString(step.closePayload(_didTapSampleDocumentBeforeClose))];
    // On a later turn: the window is still closing.
    platform::async([window = std::move(_openWindow)] {});
    _openWindow = nullptr;
}

- (void)postMetric:(NSString *)metric payload:(NSString *)payload {
    [[NSNotificationCenter defaultCenter]
        postNotificationName:MetricsFromAppKitNotification
                      object:nil
                    userInfo:[NSDictionary dictionaryWithObjectsAndKeys:metric, @"metric", payload, @"payload", nil]];
}

@end
