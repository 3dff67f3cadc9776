#pragma once

#import <AppKit/AppKit.h>

@interface NSFontManager (QVTarget)
/// Who receives the font manager's action; nil (the default) means the first responder. Not retained.
@property (assign) id target;
@end
