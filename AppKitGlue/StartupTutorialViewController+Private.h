// What the view controller's two halves share: the pages and the introduction.
#pragma once

#import "StartupTutorialViewController.h"

#include "FatalError.h"

#include <functional>
#include <source_location>

namespace appkitglue {

/// An outlet that the nib must have connected: otherwise the process ends, naming the line that needed it.
template <typename View> View *required(View *outlet, std::source_location where = std::source_location::current()) {
    if (outlet == nil) {
        fatalError("StartupTutorialViewController", static_cast<int>(where.line()), "");
    }
    return outlet;
}

} // namespace appkitglue

@interface StartupTutorialViewController (Pages)

/// Changes the text under the content box, out and in again.
- (void)swapDescription:(NSString *)text;

@end

@interface StartupTutorialViewController (Introduction)

/// Shrinks the headlines, fades the bar in, and goes on with the drawing.
- (void)startIntro;
- (void)slideInDrawing:(std::function<void()>)completion;
- (void)revealDrawingLabels:(std::function<void()>)completion;
- (void)fadeInSequentially:(NSArray *)views completion:(std::function<void()>)completion;

@end
