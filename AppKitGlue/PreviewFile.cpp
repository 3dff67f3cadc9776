#include "PreviewFile.h"

#include <cstdint>
#include <filesystem>
#include <fstream>

namespace appkitglue {

std::optional<std::string> readPreviewFile(const std::string& path) {
    constexpr std::uintmax_t maximumSize = 32U << 20U;
    if (path.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return std::nullopt;
    }
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size == 0 || size > maximumSize) {
        return std::nullopt;
    }
    std::ifstream file(path, std::ios::binary);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    if (file.gcount() != static_cast<std::streamsize>(size)) {
        return std::nullopt;
    }
    return bytes;
}

} // namespace appkitglue
