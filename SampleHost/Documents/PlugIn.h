// The plug-in: loaded by path, known by its public header only.
#pragma once

#import "Bridge.h"

#import "QVAppKitController.h"

namespace samplehost {

/// The names of the plug-in's notifications. Its constants are not linked: the plug-in is loaded, not linked.
inline NSString *const openSampleDocument = @"OpenSampleDocumentNotification";
inline NSString *const metricsFromAppKit = @"MetricsFromAppKitNotification";
inline NSString *const showTutorialScreen = @"ShowMacOSTutorialScreenNotification";

/// Loads the bundle at `path`; empty means the one beside the program. Returns its principal class, whose class
/// operations may be sent to it, or Nil.
Class loadPlugIn(NSString *path);

/// A new controller of the loaded plug-in; autoreleased, nil without a plug-in.
QVAppKitController *makeController();

/// The principal class of the loaded plug-in; Nil without one.
Class plugInClass();

} // namespace samplehost
