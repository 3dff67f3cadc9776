// The declared receiver of menu choices.
#pragma once

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

/// Receives the entry that was chosen from a menu.
@protocol MenuEventDelegate
/// `tag` holds the chosen entry's tag as an integer.
- (void)didTapMenuItem:(NSNumber *)tag;
@end

#pragma clang assume_nonnull end
