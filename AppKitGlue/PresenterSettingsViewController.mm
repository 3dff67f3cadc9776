#import "PresenterSettingsViewController.h"

#import "PreferencesWindowController.h"

#include "Outlets.h"
#include "StringBridging.h"

using namespace appkitglue;

namespace {

constexpr std::string_view unit = "PresenterSettingsViewController";
constexpr double heightWithScreens = 235.0;
constexpr double heightWithoutScreens = 134.0;
constexpr double animationDuration = 0.25;

} // namespace

@implementation PresenterSettingsViewController

@synthesize store = _store;
@synthesize expandedHeight = _expandedHeight;
@synthesize unexpandedHeight = _unexpandedHeight;

QV_STRONG_OUTLET(NSLayoutConstraint, heightConstraint, setHeightConstraint)
QV_WEAK_OUTLET(NSBox, presenterBox, setPresenterBox)
QV_WEAK_OUTLET(NSButton, presenterModeToggle, setPresenterModeToggle)
QV_WEAK_OUTLET(NSTextField, presenterModeLabel, setPresenterModeLabel)
QV_WEAK_OUTLET(NSPopUpButton, slideshowButton, setSlideshowButton)
QV_WEAK_OUTLET(NSPopUpButton, presenterButton, setPresenterButton)
QV_WEAK_OUTLET(NSButton, lastSlideExitButton, setLastSlideExitButton)
QV_WEAK_OUTLET(NSButton, muteVideosButton, setMuteVideosButton)
QV_WEAK_OUTLET(NSTextField, errorMessageField, setErrorMessageField)
QV_WEAK_OUTLET(NSButton, presenterApplyButton, setPresenterApplyButton)

- (PresenterStore &)requiredStore {
    return *requiredValue(_store, unit, "store");
}

- (NSButton *)requiredToggle {
    return requiredOutlet([self presenterModeToggle], unit, "presenterModeToggle");
}

- (NSPopUpButton *)requiredSlideshowButton {
    return requiredOutlet([self slideshowButton], unit, "slideshowButton");
}

- (NSPopUpButton *)requiredPresenterButton {
    return requiredOutlet([self presenterButton], unit, "presenterButton");
}

- (void)viewWillAppear {
    [super viewWillAppear];
    _expandedHeight = heightWithScreens;
    _unexpandedHeight = heightWithoutScreens;
    PresenterStore &store = [self requiredStore];
    setOn([self requiredToggle], store.presenterMode());
    setOn(requiredOutlet([self lastSlideExitButton], unit, "lastSlideExitButton"), store.exitAfterLastSlide());
    setOn(requiredOutlet([self muteVideosButton], unit, "muteVideosButton"), store.muteVideos());
    [self expand:isOn([self requiredToggle]) animated:NO];
    const bool choice = store.allScreens().size() >= 2;
    [[self requiredPresenterButton] setEnabled:choice];
    [requiredOutlet([self presenterApplyButton], unit, "presenterApplyButton") setEnabled:choice];
}

- (void)viewDidAppear {
    [super viewDidAppear];
    const PresenterStore &store = [self requiredStore];
    const auto screens = store.allScreens();
    fillPopUp([self requiredSlideshowButton], screens, store.slideshowScreenName());
    fillPopUp([self requiredPresenterButton], screens, store.presenterScreenName());
}

- (CGFloat)contentHeightFor:(CGFloat)naturalHeight {
    return isOn([self requiredToggle]) ? naturalHeight : naturalHeight - (heightWithScreens - heightWithoutScreens);
}

- (void)expand:(bool)expanded animated:(bool)animated {
    NSLayoutConstraint *constraint = requiredOutlet([self heightConstraint], unit, "heightConstraint");
    NSBox *box = requiredOutlet([self presenterBox], unit, "presenterBox");
    const double height = expanded ? _expandedHeight : _unexpandedHeight;
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext *context) {
            [context setDuration:animationDuration];
            [animated ? [constraint animator] : constraint setConstant:height];
            [[[[self view] window] windowController] fitWindowAnimated:animated];
            [[box animator] setHidden:!expanded];
        }
        completionHandler:nullptr];
}

- (void)didUpdatePresenterMode:(id)sender {
    PresenterStore &store = [self requiredStore];
    store.setPresenterMode(isOn([self requiredToggle]));
    [self expand:store.presenterMode() animated:YES];
}

- (void)didUpdatePresenterModeViaLabel:(id)sender {
    setOn([self requiredToggle], !isOn([self requiredToggle]));
    [self didUpdatePresenterMode:sender];
}

- (void)didUpdateExitLastSlide:(id)sender {
    NSButton *button = requiredOutlet([self lastSlideExitButton], unit, "lastSlideExitButton");
    [self requiredStore].setExitAfterLastSlide(isOn(button));
}

- (void)didUpdateMuteVideos:(id)sender {
    NSButton *button = requiredOutlet([self muteVideosButton], unit, "muteVideosButton");
    [self requiredStore].setMuteVideos(isOn(button));
}

- (void)didUpdateScreen1:(id)sender {
    if (auto title = selectedTitle(sender)) {
        [self requiredStore].setSlideshowScreenName(*std::move(title));
    }
}

- (void)didUpdateScreen2:(id)sender {
    if (auto title = selectedTitle(sender)) {
        [self requiredStore].setPresenterScreenName(*std::move(title));
    }
}

- (void)applyScreenChanges:(id)sender {
    if ([self validateScreens]) {
        [self requiredStore].applyScreens();
    }
}

// Whether the pair of displays may be applied. With presenter mode off it may not, and nothing is said about it.
- (bool)validateScreens {
    PresenterStore &store = [self requiredStore];
    NSTextField *message = requiredOutlet([self errorMessageField], unit, "errorMessageField");
    const std::string slideshow = selectedTitle([self requiredSlideshowButton]).value_or("");
    const std::string presenter = selectedTitle([self requiredPresenterButton]).value_or("");
    store.setSlideshowScreenName(slideshow);
    store.setPresenterScreenName(presenter);
    [message setHidden:YES];
    if (!store.presenterMode()) {
        return false;
    }
    if (slideshow != presenter) {
        return true;
    }
    [message setStringValue:@"Distinct screens are needed for presenter mode"];
    [message setHidden:NO];
    return false;
}

@end
