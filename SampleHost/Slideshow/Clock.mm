#import "Clock.h"

#import "Bridge.h"

namespace samplehost {

namespace {

std::string &stoppedTime() {
    static std::string time;
    return time;
}

} // namespace

void stopClocks(const std::string &time) {
    stoppedTime() = time;
}

NSString *timeOfDay() {
    if (!stoppedTime().empty()) {
        return toNSString(stoppedTime());
    }
    return [[NSDate date] descriptionWithCalendarFormat:@"%H:%M" timeZone:nil locale:nil];
}

double secondsSince(NSDate *start) {
    return stoppedTime().empty() ? -[start timeIntervalSinceNow] : 0;
}

} // namespace samplehost
