// GNUstep 1.28 waits for ever when the user defaults cannot be written: their lock file can never be made.
#import "Hooks.h"

#import <Foundation/Foundation.h>

#include <sys/stat.h>
#include <unistd.h>

namespace platform {

void installUnwritableDefaults();

namespace {

Hook<BOOL> synchronize;

bool canBeWritten() {
    const char *folder = [GSDefaultsRootForUser(NSUserName()) fileSystemRepresentation];
    struct stat status{};
    // A folder that is not there yet is made by GNUstep.
    return stat(folder, &status) != 0 || (S_ISDIR(status.st_mode) && access(folder, W_OK | X_OK) == 0);
}

BOOL synchronizeIfWritable(id self, SEL selector) {
    return canBeWritten() ? synchronize.original(self, selector) : NO;
}

} // namespace

void installUnwritableDefaults() {
    synchronize.install([NSUserDefaults class], @selector(synchronize), synchronizeIfWritable);
}

} // namespace platform
