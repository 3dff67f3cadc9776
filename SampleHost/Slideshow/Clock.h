// The time that the presenter view shows.
#pragma once

#import <Foundation/Foundation.h>

#include <string>

namespace samplehost {

/// From now on clocks show `time` ("10:05") and no time passes: for pictures that can be compared with each other.
void stopClocks(const std::string &time);

/// The time of day, hours and minutes. Autoreleased.
NSString *timeOfDay();

/// Seconds since `start`; 0 while clocks are stopped.
double secondsSince(NSDate *start);

} // namespace samplehost
