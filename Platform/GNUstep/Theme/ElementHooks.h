// Where the theme class has no say, AppKit's own methods are replaced: each element installs its own, once.
#pragma once

namespace flattheme {

void installFieldHooks();
void installButtonHooks();
void installSegmentHooks();
void installTableHooks();
void installToolbarHooks();
void installPopUpHooks();
void installScrollerHooks();
void installMenuHooks();
void installWindowHooks();

} // namespace flattheme
