// Apple's AppKit lacks nothing that the bundle uses.
#pragma once

#import <QuartzCore/QuartzCore.h>
