// GNUstep's headers look for the blocks runtime here; ours stands in for it.
#pragma once
#include <Block.h>
