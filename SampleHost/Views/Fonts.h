// The fonts of slides and editors, by what they are for.
#pragma once

#import "Platform.h"

namespace samplehost {

enum class Family { sans, serif, mono };

/// A font of the family; a missing italic cut is slanted, a missing family gives the system's font.
NSFont *fontOf(Family family, double size, bool bold, bool italic);

/// The editor's font: the named one, else the monospaced one of the same size.
NSFont *editorFont(NSString *name, double size);

} // namespace samplehost
