// Where the hardware model's name comes from on Linux.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>

namespace platform {

/// The first line of the first file that can be read and is not empty, without a terminating zero. Nothing when there
/// is no such file or its text is not UTF-8.
std::optional<std::string> firstModelName(std::initializer_list<std::string> paths);

} // namespace platform
