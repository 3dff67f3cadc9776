// The one way in which the bundle ends the process.
#pragma once

#include <string_view>

namespace appkitglue {

/// Writes `AppKitGlue/UNIT:LINE: Fatal error: MESSAGE` and a line break to standard error, then ends the process with
/// abort(). For programming and packaging errors only.
[[noreturn]] void fatalError(std::string_view unit, int line, std::string_view message) noexcept;

} // namespace appkitglue
