// The lines of the event log: one JSON object for each message that the application received.
#pragma once

#include <fstream>
#include <optional>
#include <string>
#include <string_view>

namespace samplehost::eventlog {

/// Each function returns one line without its line break; the member "event" names the kind.
std::string action(long long code);
/// `text` is absent when the search field was emptied.
std::string search(const std::optional<std::string>& text);
std::string popover(long long code, double x, double y, double width, double height);
std::string preferencesRead();
/// The record as it was received; one that is no JSON is logged as a string.
std::string preferencesWritten(std::string_view record);
std::string notification(std::string_view name, const std::optional<std::string>& metric,
                         const std::optional<std::string>& payload);
/// What the slideshow did: "began", "slide", "black", "ended", "error".
std::string slideshow(std::string_view what, std::size_t slide, std::string_view detail);
/// Something else worth a line: "opened", "saved", "launched".
std::string note(std::string_view what, std::string_view detail);

} // namespace samplehost::eventlog

namespace samplehost {

/// The file that the lines go to, each at once, so that whoever reads along sees them.
class LogFile {
public:
    /// Writes nowhere.
    LogFile() = default;
    /// Appends to the file at `path`.
    explicit LogFile(const std::string& path) : file_(path, std::ios::app) {}

    void write(std::string_view line);

private:
    std::ofstream file_;
};

} // namespace samplehost
