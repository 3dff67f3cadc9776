// GNUstep's attributed strings cannot read HTML: importers for it are looked for and none comes with AppKit.
#pragma once

#import <AppKit/AppKit.h>

namespace platform {

/// Makes `initWithHTML:options:documentAttributes:` and its relatives of NSAttributedString work. Installs its hook
/// once however often it is called; main thread only.
void installHTMLImport();

} // namespace platform
