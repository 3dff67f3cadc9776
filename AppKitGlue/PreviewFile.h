// Reading of preview images, whose paths come from the host and may lead anywhere.
#pragma once

#include <optional>
#include <string>

namespace appkitglue {

/// The content of the file at `path` (UTF-8). Nothing if it is no regular file, cannot be read, is empty or is larger
/// than 32 MiB, which no preview is: reading must neither block nor take long.
[[nodiscard]] std::optional<std::string> readPreviewFile(const std::string& path);

} // namespace appkitglue
