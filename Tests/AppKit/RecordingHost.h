// A host's delegate that keeps what the bundle sends.
#pragma once

#import "Platform.h"

#include "RetainPtr.h"
#include "SettingsPayload.h"

#include <functional>
#include <string>
#include <vector>

@interface RecordingHost : NSObject {
@public
    /// "action 3", "search talk", "search nil", "popover 2 (100, 700, 4, 30)", in the order in which they came.
    std::vector<std::string> log;
    /// The classes of the callbacks' arguments, in the same order.
    std::vector<std::string> argumentClasses;
    /// What `preferenceValues` answers.
    appkitglue::RetainPtr<id> values;
    int reads;
    /// Each message of `setPreferencesValues:`, decoded, and the last one as it came.
    std::vector<appkitglue::SettingsPayload> changes;
    std::string lastMessage;
    /// Called within each callback that brings something.
    std::function<void()> whileCalled;
    /// A selector that the host denies to have.
    SEL missing;
}
- (void)answerWith:(const appkitglue::SettingsPayload &)settings;
@end

namespace test {

/// A host whose settings are the defaults.
appkitglue::RetainPtr<RecordingHost> makeHost();

/// Settings in which no two members are alike.
appkitglue::SettingsPayload distinctSettings();

} // namespace test
