// A form that grows downwards, row by row: what each popover is made of.
#pragma once

#import "Bridge.h"
#import "SHAppDelegate.h"
#import "SHDocument.h"

#include <functional>
#include <vector>

/// Subclasses add their rows in `build`. Flipped.
@interface SHPopoverForm : NSView {
    SHDocument *_document;       // outlives its popovers
    SHAppDelegate *_application; // lives as long as the program
@public
    std::function<void()> _closer;
@protected
    std::vector<std::function<void()>> _works;
    double _y;
}

/// A form with its rows; its frame is as large as they need.
- (instancetype)initWithWidth:(double)width document:(SHDocument *)document application:(SHAppDelegate *)application;
/// For subclasses: adds the rows.
- (void)build;
/// How closing the popover is done.
- (void)setCloser:(std::function<void()>)closer;
- (void)closePopover;
/// Which control gets the keys first; nil for none.
- (NSView *)firstControl;

- (void)addTitle:(NSString *)title;
/// Small text over the whole width, in as many lines as it needs.
- (void)addNote:(NSString *)text;
- (NSTextField *)addField:(NSString *)label value:(NSString *)value;
- (NSPopUpButton *)addPopUp:(NSString *)label titles:(NSArray<NSString *> *)titles selected:(NSString *)selected;
- (NSButton *)addCheckBox:(NSString *)title on:(bool)on;
/// A row of push buttons of equal width.
- (NSArray<NSButton *> *)addButtons:(NSArray<NSString *> *)titles;
/// Any view; it is as wide as the form's content.
- (void)addView:(NSView *)view height:(double)height;

/// Lets the control do `work` when it is used.
- (void)wire:(NSControl *)control to:(std::function<void()>)work;

@end

namespace samplehost {

/// The form of an action's popover; autoreleased. Nil for actions that open none.
SHPopoverForm *formFor(Action action, SHDocument *document, SHAppDelegate *application);

} // namespace samplehost
