#import "AboutSettingsViewController.h"

#include "AboutSections.h"
#include "Outlets.h"
#include "StringBridging.h"

using namespace appkitglue;

namespace {

constexpr std::string_view unit = "AboutSettingsViewController";
constexpr double inset = 20;

// A text of the host application's info dictionary.
std::string infoText(NSString *key) {
    id value = [[[NSBundle mainBundle] infoDictionary] objectForKey:key];
    return [value isKindOfClass:[NSString class]] ? toUTF8(value) : "Unknown";
}

} // namespace

@implementation AboutSettingsViewController

@synthesize store = _store;

@synthesize aboutState = _aboutState;

QV_STRONG_OUTLET(NSTextView, textView, setTextView)

- (instancetype)initWithNibName:(NSString *)nibName bundle:(NSBundle *)bundle {
    _aboutState = std::make_shared<AboutScreenState>();
    return [super initWithNibName:nibName bundle:bundle];
}

- (instancetype)initWithCoder:(NSCoder *)coder {
    _aboutState = std::make_shared<AboutScreenState>();
    return [super initWithCoder:coder];
}

- (std::string)aboutPageHTML {
    return AboutSections::aboutPageHTML(infoText(@"CFBundleShortVersionString"), infoText(@"CFBundleVersion"));
}

- (void)viewWillAppear {
    [super viewWillAppear];
    const std::string html = [self aboutPageHTML];
    const auto page = adoptNS([[NSAttributedString alloc] initWithHTML:toNSData(html)
                                                               options:@{}
                                                    documentAttributes:nullptr]);
    if (!page) {
        fatalError(unit, __LINE__, "The page cannot be read as HTML");
    }
    NSTextView *pageView = requiredOutlet([self textView], unit, "textView");
    [[pageView textStorage] setAttributedString:page.get()];
    [pageView setTextContainerInset:NSMakeSize(inset, inset)];
}

@end
