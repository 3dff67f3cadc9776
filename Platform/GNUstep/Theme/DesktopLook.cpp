#include "DesktopLook.h"

#include <array>
#include <cstdio>
#include <memory>
#include <system_error>
#include <thread>
#include <utility>

namespace platform {
void async(std::function<void()> work);
} // namespace platform

namespace flattheme {

namespace {

// The desktop's settings portal first; its older store where there is no portal. A desktop that hangs must not keep a
// thread for ever: timeout ends the command.
constexpr std::array commands{
    "timeout -k 1 3 gdbus call --session --dest org.freedesktop.portal.Desktop --object-path "
    "/org/freedesktop/portal/desktop --method org.freedesktop.portal.Settings.Read org.freedesktop.appearance "
    "color-scheme 2>/dev/null </dev/null",
    "timeout -k 1 3 gsettings get org.gnome.desktop.interface color-scheme 2>/dev/null </dev/null",
};

std::string outputOf(const char* command) {
    struct Closer {
        void operator()(FILE* file) const { pclose(file); }
    };
    const std::unique_ptr<FILE, Closer> output(popen(command, "re"));
    std::string text;
    if (output != nullptr) {
        std::array<char, 256> buffer{};
        while (std::fgets(buffer.data(), buffer.size(), output.get()) != nullptr) {
            text += buffer.data();
        }
    }
    return text;
}

bool desktopWantsDark() {
    for (const char* command : commands) {
        if (const auto dark = parseColorScheme(outputOf(command))) {
            return *dark;
        }
    }
    return false;
}

} // namespace

std::optional<bool> parseColorScheme(const std::string& text) {
    const auto contains = [&text](const char* piece) { return text.find(piece) != std::string::npos; };
    if (contains("uint32 1") || contains("prefer-dark")) {
        return true;
    }
    if (contains("uint32 2") || contains("prefer-light") || contains("'default'")) {
        return false;
    }
    return std::nullopt;
}

void askDesktopWhetherDark(std::function<void(bool)> answer) {
    try {
        std::thread([answer = std::move(answer)] {
            const bool dark = desktopWantsDark();
            platform::async([answer, dark] { answer(dark); });
        }).detach();
    } catch (const std::system_error&) {
        // No thread to be had: the look stays as it is.
    }
}

} // namespace flattheme
