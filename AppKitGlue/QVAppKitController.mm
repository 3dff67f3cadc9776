#import "QVAppKitController.h"
