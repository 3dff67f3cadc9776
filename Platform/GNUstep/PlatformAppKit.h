// Declares what the completions add to GNUstep's AppKit, under Apple's own names: one import per completed class.
#pragma once
