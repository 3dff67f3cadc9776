// What the edge needs beyond AppKit: the few services that macOS and GNUstep offer in different ways.
//
// AppKit itself is imported through this header, so that on GNUstep the completed classes and methods are declared too.
// Nothing else of Platform/ is included from outside.
#pragma once

#import <AppKit/AppKit.h>

#import "PlatformAppKit.h"

#include "WeakReference.h"

#include <functional>
#include <optional>
#include <string>

namespace platform {

/// Installs what must be hooked into AppKit before its first use by the bundle (nothing on macOS). Idempotent and
/// quick; main thread only. Loading the bundle does not call it: each first use of the bundle does. Does nothing before
/// there is an application object.
void prepareAppKit();

/// Runs `work` on the main thread, on a later turn of its run loop, also while a menu is tracked or a modal panel is
/// up. May be called from any thread; work runs in the order of the calls.
void async(std::function<void()> work);

/// Runs `work` on the main thread `seconds` from now, in the same run loop modes as `async`. May be called from any
/// thread.
void asyncAfter(double seconds, std::function<void()> work);

/// The machine's hardware model as the system names it ("MacBookPro18,3", or on Linux the product name that the
/// firmware reports). Nothing when the system does not tell or the name is not UTF-8.
std::optional<std::string> hardwareModel();

} // namespace platform
