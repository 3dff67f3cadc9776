#pragma once

namespace samplehost {

/// Gives the application its menu bar.
void installMainMenu();

} // namespace samplehost
