// The flat light and dark look: a theme of its own that a host chooses; nothing here is installed by linking it.
#pragma once

#import <AppKit/AppKit.h>
