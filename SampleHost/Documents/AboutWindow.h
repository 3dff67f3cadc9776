// The About window: the plug-in's About screen in a window of the host's own.
#pragma once

namespace samplehost {

/// Shows the About window, the same one each time. Whether the plug-in has an About screen.
bool showAboutWindow();

} // namespace samplehost
