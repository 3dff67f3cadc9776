#import "PlugIn.h"

namespace samplehost {

namespace {

/// The plug-in beside the program, or in a build's or an installation's library folder.
NSString *usualPath() {
    NSString *program = [[[[NSProcessInfo processInfo] arguments] objectAtIndex:0] stringByResolvingSymlinksInPath];
    if (![program isAbsolutePath]) {
        program = [[[NSFileManager defaultManager] currentDirectoryPath] stringByAppendingPathComponent:program];
    }
    NSString *beside = [[NSBundle mainBundle] executablePath];
    NSString *inside = [[NSBundle mainBundle] builtInPlugInsPath];
    for (NSString *place in @[
             [program stringByDeletingLastPathComponent],
             beside == nil ? @"" : [beside stringByDeletingLastPathComponent], inside == nil ? @"" : inside
         ]) {
        NSString *path = [[place stringByAppendingPathComponent:@"AppKitGlue.bundle"] stringByStandardizingPath];
        if ([place length] > 0 && [[NSFileManager defaultManager] fileExistsAtPath:path]) {
            return path;
        }
    }
    return nil;
}

} // namespace

Class plugInClass() {
    return NSClassFromString(@"QVAppKitController");
}

Class loadPlugIn(NSString *path) {
    NSString *place = [path length] > 0 ? path : usualPath();
    NSBundle *bundle = place == nil ? nil : [NSBundle bundleWithPath:place];
    return [bundle load] ? [bundle principalClass] : Nil;
}

QVAppKitController *makeController() {
    return [[[plugInClass() alloc] init] autorelease];
}

} // namespace samplehost
