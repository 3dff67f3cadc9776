// The About tab: the host's version and the acknowledgements as a page of rich text.
#pragma once

#import "PreferencesBaseViewController.h"

#include "AboutScreenView.h"
#include "RetainPtr.h"
#include "SettingsStore.h"

#include <memory>
#include <string>

/// Builds its page each time its view appears. A text view that is missing then ends the process.
@interface AboutSettingsViewController : PreferencesBaseViewController {
    std::shared_ptr<appkitglue::AboutStore> _store;
    appkitglue::RetainPtr<NSTextView> _textView;
    std::shared_ptr<appkitglue::AboutScreenState> _aboutState;
}

/// Set when the window is assembled; the tab does not read it.
@property (nonatomic) std::shared_ptr<appkitglue::AboutStore> store;

/// Shows the page.
@property (nonatomic, retain) IBOutlet NSTextView *textView;

/// Made with the controller, without a dismiss action; the tab does not use it.
@property (nonatomic, readonly) std::shared_ptr<appkitglue::AboutScreenState> aboutState;

/// The whole page as HTML, UTF-8.
- (std::string)aboutPageHTML;

@end
