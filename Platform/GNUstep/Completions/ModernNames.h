// GNUstep 0.29 lacks some constants under their present names: they stand for the old ones.
#pragma once

#import <AppKit/AppKit.h>

inline constexpr NSBezelStyle NSBezelStyleRounded = NSRoundedBezelStyle;
inline constexpr NSBezelStyle NSBezelStyleRegularSquare = NSRegularSquareBezelStyle;
inline constexpr NSBezelStyle NSBezelStyleShadowlessSquare = NSShadowlessSquareBezelStyle;
inline constexpr NSBezelStyle NSBezelStyleTexturedSquare = NSTexturedSquareBezelStyle;
inline constexpr NSBezelStyle NSBezelStyleTexturedRounded = NSTexturedRoundedBezelStyle;
inline constexpr NSBezelStyle NSBezelStyleRecessed = NSRecessedBezelStyle;
inline constexpr NSBezelStyle NSBezelStyleInline = static_cast<NSBezelStyle>(15);

inline constexpr NSButtonType NSButtonTypeMomentaryPushIn = NSMomentaryPushInButton;
inline constexpr NSButtonType NSButtonTypeSwitch = NSSwitchButton;
inline constexpr NSButtonType NSButtonTypeRadio = NSRadioButton;
inline constexpr NSButtonType NSButtonTypePushOnPushOff = NSPushOnPushOffButton;

inline constexpr NSEventType NSEventTypeLeftMouseDown = NSLeftMouseDown;
inline constexpr NSEventType NSEventTypeLeftMouseUp = NSLeftMouseUp;
inline constexpr NSEventType NSEventTypeLeftMouseDragged = NSLeftMouseDragged;
inline constexpr NSEventType NSEventTypeRightMouseDown = NSRightMouseDown;
inline constexpr NSEventType NSEventTypeMouseMoved = NSMouseMoved;
inline constexpr NSEventType NSEventTypeMouseEntered = NSMouseEntered;
inline constexpr NSEventType NSEventTypeMouseExited = NSMouseExited;
inline constexpr NSEventType NSEventTypeKeyDown = NSKeyDown;
inline constexpr NSEventType NSEventTypeKeyUp = NSKeyUp;
inline constexpr NSEventType NSEventTypeApplicationDefined = NSApplicationDefined;

inline constexpr NSUInteger NSEventMaskAny = NSAnyEventMask;
inline constexpr NSUInteger NSEventModifierFlagShift = NSShiftKeyMask;
inline constexpr NSUInteger NSEventModifierFlagControl = NSControlKeyMask;
inline constexpr NSUInteger NSEventModifierFlagOption = NSAlternateKeyMask;
inline constexpr NSUInteger NSEventModifierFlagCommand = NSCommandKeyMask;

inline constexpr NSAlertStyle NSAlertStyleWarning = NSWarningAlertStyle;
inline constexpr NSAlertStyle NSAlertStyleInformational = NSInformationalAlertStyle;
inline constexpr NSAlertStyle NSAlertStyleCritical = NSCriticalAlertStyle;
