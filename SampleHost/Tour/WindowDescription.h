// Tells where everything on screen is, for tests and the tour, which act with a real pointer and real keys.
#pragma once

#include <string>

namespace samplehost {

/// Describes every visible window, its views and its menu items as one JSON document. Frames are [x, y, width, height]
/// in pixels of the X screen, origin at the top left. Main thread only.
std::string describeWindows();

/// From now on answers requests: whenever a file `path`.request appears, writes describeWindows() to `path` and removes
/// the request. Also works while a menu is tracked or a modal panel is up. Main thread only; call once.
void answerDescriptionRequests(const std::string& path);

} // namespace samplehost
