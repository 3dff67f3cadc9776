#import "FlatTheme.h"
