// GNUstep 0.29 has appearances, but neither its windows nor its application can have one.
#import "NSAppearance+Windows.h"

#import "AttachedValues.h"

NSString *const QVWindowAppearanceDidChangeNotification = @"QVWindowAppearanceDidChangeNotification";

namespace {

// Appearances are few and live for ever: one for each name.
NSAppearance *sharedAppearance(NSString *name) {
    static NSMutableDictionary *appearances = [[NSMutableDictionary alloc] init];
    NSAppearance *appearance = [appearances objectForKey:name];
    if (appearance == nil) {
        appearance = [[[NSAppearance alloc] initWithAppearanceNamed:name bundle:nil] autorelease];
        [appearances setObject:appearance forKey:name];
    }
    return appearance;
}

// Names; an absent one means: follow.
platform::AttachedValues<NSString *> &windowAppearances() {
    [[clang::no_destroy]] static platform::AttachedValues<NSString *> values;
    return values;
}

NSString *applicationAppearance = nil;

// A name that lives as long as the process.
NSString *internedName(NSAppearance *appearance) {
    return appearance == nil ? nil : [sharedAppearance([appearance name]) name];
}

void tellChange(NSWindow *window) {
    [[NSNotificationCenter defaultCenter] postNotificationName:QVWindowAppearanceDidChangeNotification object:window];
}

} // namespace

@implementation NSWindow (QVAppearance)

- (NSAppearance *)appearance {
    NSString *name = windowAppearances().value(self, nil);
    return name != nil ? sharedAppearance(name) : nil;
}

- (void)setAppearance:(NSAppearance *)appearance {
    NSString *name = internedName(appearance);
    NSString *old = windowAppearances().value(self, nil);
    if (name == old || [name isEqualToString:old]) {
        return;
    }
    windowAppearances().set(self, name);
    tellChange(self);
}

- (NSAppearance *)effectiveAppearance {
    NSAppearance *own = [self appearance];
    return own != nil ? own : [NSApp effectiveAppearance];
}

@end

@implementation NSApplication (QVAppearance)

- (NSAppearance *)appearance {
    return applicationAppearance != nil ? sharedAppearance(applicationAppearance) : nil;
}

- (void)setAppearance:(NSAppearance *)appearance {
    NSString *name = internedName(appearance);
    if (name == applicationAppearance || [name isEqualToString:applicationAppearance]) {
        return;
    }
    applicationAppearance = name;
    for (NSWindow *window in [[[self windows] copy] autorelease]) {
        if ([window appearance] == nil) {
            tellChange(window);
        }
    }
}

- (NSAppearance *)effectiveAppearance {
    NSAppearance *own = [self appearance];
    return own != nil ? own : sharedAppearance(NSAppearanceNameAqua);
}

@end
