// Shows declarative views as AppKit views.
#pragma once

#import <AppKit/AppKit.h>

#include "ObservableObject.h"
#include "ViewLayout.h"

#include <functional>
#include <memory>

namespace appkitglue {
struct ViewHost;
}

/// Shows a declarative view in its bounds and lays it out anew when its size changes. Main thread only.
@interface QVHostingView : NSView {
@private
    std::unique_ptr<appkitglue::ViewHost> _host;
}

/// Shows what `body` returns, at once; afterwards `body` is asked again a turn after `observed` (may be null; kept
/// alive) announced a change, and only views that differ are changed. Buttons act in `environment`.
- (void)showBody:(std::function<appkitglue::ui::View()>)body
       observing:(std::shared_ptr<appkitglue::ObservableObject>)observed
     environment:(appkitglue::ui::ViewEnvironment)environment;

/// The tree and the frames that are shown.
- (const appkitglue::ui::View &)shownView;
- (const appkitglue::ui::Layout &)shownLayout;

/// How many AppKit views have been made, changed, moved or removed so far.
- (NSUInteger)changeCount;

@end
