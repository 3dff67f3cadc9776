// The services of Platform.h on macOS: the system has them all.
#import "Platform.h"

#include <dispatch/dispatch.h>
#include <sys/sysctl.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace platform {

void prepareAppKit() {}

// The main queue is served in the common modes, to which those of modal panels and of menu tracking belong.
void async(std::function<void()> work) {
    auto shared = std::make_shared<std::function<void()>>(std::move(work));
    dispatch_async(dispatch_get_main_queue(), ^{
        (*shared)();
    });
}

void asyncAfter(double seconds, std::function<void()> work) {
    auto shared = std::make_shared<std::function<void()>>(std::move(work));
    const auto delay = static_cast<int64_t>(seconds * static_cast<double>(NSEC_PER_SEC));
    dispatch_after(dispatch_time(DISPATCH_TIME_NOW, delay), dispatch_get_main_queue(), ^{
        (*shared)();
    });
}

std::optional<std::string> hardwareModel() {
    int name[] = {CTL_HW, HW_MODEL};
    std::size_t length = 0;
    if (sysctl(name, 2, nullptr, &length, nullptr, 0) != 0) {
        return std::nullopt;
    }
    std::vector<char> bytes(length);
    if (sysctl(name, 2, bytes.data(), &length, nullptr, 0) != 0) {
        return std::nullopt;
    }
    bytes.resize(length);
    const std::string model(bytes.begin(), std::find(bytes.begin(), bytes.end(), '\0'));
    NSString *text = [[NSString alloc] initWithBytes:model.data() length:model.size() encoding:NSUTF8StringEncoding];
    [text release];
    return text != nil ? std::optional(model) : std::nullopt;
}

} // namespace platform
