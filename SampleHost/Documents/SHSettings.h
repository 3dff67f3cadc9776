// The application's settings: kept in the user defaults, handed to the plug-in, changed by what it sends back.
#pragma once

#import "Bridge.h"

#include "EventLog.h"
#include "Settings.h"

#include <string>

namespace samplehost {

/// Posted after a change, without object; user info: "key", the name of the changed setting.
inline NSString *const settingsDidChange = @"SampleHostSettingsDidChange";

} // namespace samplehost

/// One for the program. Answers the two settings selectors of the plug-in.
@interface SHSettings : NSObject {
    samplehost::Settings _settings;
    samplehost::LogFile *_log;
}

/// Reads what is stored; nothing stored or nothing readable means the settings of a first start. `log` is not owned.
- (instancetype)initWithLog:(samplehost::LogFile *)log;

- (const samplehost::Settings &)settings;

/// Takes over settings that the application itself changed, and tells the plug-in.
- (void)change:(const samplehost::Settings &)settings key:(NSString *)key;

/// Makes missing pictures of the slide themes, all at once or one a turn of the run loop.
- (void)renderPreviews;
- (void)renderPreviewsInTime;

- (NSData *)preferenceValues;
- (void)setPreferencesValues:(NSData *)values;

@end
