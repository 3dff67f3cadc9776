#import "GeneralSettingsViewController.h"

#include "Outlets.h"
#include "PreviewFile.h"
#include "StringBridging.h"

#include <algorithm>
#include <array>

using namespace appkitglue;

namespace {

constexpr std::string_view unit = "GeneralSettingsViewController";

// The image in the file, or null if there is none to be had.
RetainPtr<NSImage> imageAt(const std::string &path) {
    const auto bytes = readPreviewFile(path);
    return bytes ? adoptNS([[NSImage alloc] initWithData:toNSData(*bytes)]) : RetainPtr<NSImage>();
}

} // namespace

@implementation GeneralSettingsViewController

@synthesize store = _store;

QV_WEAK_OUTLET(NSButton, samplePresentationButton, setSamplePresentationButton)
QV_WEAK_OUTLET(NSPopUpButton, theme, setTheme)
QV_WEAK_OUTLET(NSPopUpButton, appearance, setAppearance)
QV_WEAK_OUTLET(NSPopUpButton, slideSizesButton, setSlideSizesButton)
QV_WEAK_OUTLET(NSImageView, preview1, setPreview1)
QV_WEAK_OUTLET(NSImageView, preview2, setPreview2)
QV_WEAK_OUTLET(NSImageView, preview3, setPreview3)
QV_WEAK_OUTLET(NSImageView, preview4, setPreview4)
QV_WEAK_OUTLET(NSImageView, preview5, setPreview5)

- (GeneralStore &)requiredStore {
    return *requiredValue(_store, unit, "store");
}

- (void)viewWillAppear {
    [super viewWillAppear];
    const GeneralStore &store = [self requiredStore];
    fillPopUp(requiredOutlet([self theme], unit, "theme"), store.allThemes(), store.theme());
    fillPopUp(requiredOutlet([self appearance], unit, "appearance"), store.allAppearances(), store.appearance());
    fillPopUp(requiredOutlet([self slideSizesButton], unit, "slideSizesButton"), store.allSlideSizes(),
              store.slideSize());
    setOn(requiredOutlet([self samplePresentationButton], unit, "samplePresentationButton"),
          store.samplePresentation());
    [self refreshPreviews];
}

// Views beyond the last path keep what they show.
- (void)refreshPreviews {
    const std::vector<std::string> paths = [self requiredStore].previewPaths();
    const std::array views{[self preview1], [self preview2], [self preview3], [self preview4], [self preview5]};
    for (std::size_t i = 0; i < std::min(views.size(), paths.size()); ++i) {
        if (views[i] != nil) {
            [views[i] setImage:imageAt(paths[i]).get()];
        }
    }
}

- (void)didUpdateSampleValue:(id)sender {
    NSButton *button = requiredOutlet([self samplePresentationButton], unit, "samplePresentationButton");
    [self requiredStore].setSamplePresentation(isOn(button));
}

- (void)didUpdateDefaultTheme:(id)sender {
    if (auto title = selectedTitle(requiredOutlet([self theme], unit, "theme"))) {
        [self requiredStore].setTheme(*std::move(title));
        [self refreshPreviews];
    }
}

- (void)didUpdateAppAppearance:(id)sender {
    if (auto title = selectedTitle(requiredOutlet([self appearance], unit, "appearance"))) {
        [self requiredStore].setAppearance(*std::move(title));
    }
}

- (void)didUpdateSlideSize:(id)sender {
    if (auto title = selectedTitle(requiredOutlet([self slideSizesButton], unit, "slideSizesButton"))) {
        [self requiredStore].setSlideSize(*std::move(title));
    }
}

@end
