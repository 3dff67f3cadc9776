# Which completions this GNUstep does not need: each line names a file, a header of AppKit and what, once that header declares
# it, makes the file superfluous (nothing to look for: the header's being there does). A newer GNUstep so takes over without a
# clash of names. The declarations stay, they are the same; those of whole classes look for the header themselves.
#
# One line for each completion, in alphabetical order.
set(QV_COMPLETION_CHECKS
    "Completions/NSAppearance+Windows.mm|NSWindow.h|effectiveAppearance"
    "Completions/NSButton+Factories.mm|NSButton.h|buttonWithTitle:"
    "Completions/NSColor+Accent.mm|NSColor.h|controlAccentColor"
    "Completions/NSColor+Link.mm|NSColor.h|linkColor"
    "Completions/NSFontManager+Target.mm|NSFontManager.h|setTarget:"
    "Completions/NSLayoutConstraint+Constant.mm|NSLayoutConstraint.h|setConstant:"
    "Completions/NSMenu+PopUp.mm|NSMenu.h|popUpMenuPositioningItem:"
    "Completions/NSScreen+LocalizedName.mm|NSScreen.h|localizedName"
    "Completions/NSSearchToolbarItem.mm|NSSearchToolbarItem.h|"
    "Completions/NSStackView.mm|NSStackView.h|"
    "Completions/NSTextField+Placeholder.mm|NSTextField.h|setPlaceholderString:"
    "Completions/NSToolbarItem+Bordered.mm|NSToolbarItem.h|isBordered"
    "Completions/NSView+FullScreen.mm|NSView.h|enterFullScreenMode:"
    "Completions/NSView+TrackingAreas.mm|NSView.h|addTrackingArea:"
    "Completions/NSViewController+Appearance.mm|NSViewController.h|viewWillAppear"
    "Completions/NSViewController+Loading.mm|NSViewController.h|viewDidLoad"
    "Completions/NSWindow+ContentViewController.mm|NSWindow.h|contentViewController"
    "Completions/NSWindow+FullScreen.mm|NSWindow.h|toggleFullScreen:"
    "Completions/NSWindow+RepresentedURL.mm|NSWindow.h|setRepresentedURL:"
    "Completions/NSWindow+TabOverview.mm|NSWindow.h|toggleTabOverview:"
    "Symbols/NSImage+SystemSymbols.mm|NSImage.h|imageWithSystemSymbolName:"
)

# The full paths of the files that are superfluous with these headers.
function(qv_unneeded_completions headers result)
    set(unneeded)
    foreach(check ${QV_COMPLETION_CHECKS})
        string(REPLACE "|" ";" parts "${check}")
        list(GET parts 0 source)
        list(GET parts 1 header)
        list(GET parts 2 declaration)
        if(EXISTS ${headers}/AppKit/${header})
            file(READ ${headers}/AppKit/${header} text)
            string(FIND "${text}" "${declaration}" position)
            if(NOT position EQUAL -1)
                list(APPEND unneeded ${CMAKE_CURRENT_SOURCE_DIR}/GNUstep/${source})
            endif()
        endif()
    endforeach()
    set(${result} ${unneeded} PARENT_SCOPE)
endfunction()

qv_unneeded_completions(${QV_GNUSTEP_HEADERS} QV_UNNEEDED_COMPLETIONS)
if(QV_UNNEEDED_COMPLETIONS)
    message(STATUS "Completions that this GNUstep does not need: ${QV_UNNEEDED_COMPLETIONS}")
endif()
