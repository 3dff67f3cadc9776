// One open talk: its text, its window, and what the plug-in's toolbar and the menus do to it.
#pragma once

#import "Bridge.h"
#import "PlugIn.h"
#import "SHDocumentWindow.h"
#import "SHMarkdownEditor.h"
#import "SHSlideListView.h"
#import "SHSlideView.h"

#include "Deck.h"
#include "Edits.h"
#include "Search.h"
#include "TextHistory.h"

#include <optional>
#include <string>
#include <vector>

@class SHAppDelegate;
@class SHSlideshow;
@class SHPopover;

@interface SHDocument : NSObject <NSWindowDelegate> {
    SHAppDelegate *_application; // lives as long as the program
    NSString *_path;
    std::string _text;
    samplehost::Deck _deck;
    samplehost::TextHistory _history;
    std::size_t _savedMark;
    samplehost::TextRange _selectionBefore;
    std::string _changeName;
    std::size_t _current;
    std::string _search;
    std::vector<samplehost::SearchHit> _hits;
    bool _closed;

    samplehost::Owned<SHDocumentWindow> _window;
    samplehost::Owned<QVAppKitController> _controller;
    samplehost::Owned<NSView> _mainView;
    samplehost::Owned<NSScrollView> _gridScroll;
    samplehost::Owned<SHSlideshow> _slideshow;
    samplehost::Owned<SHPopover> _popover;
    // Owned by their superviews.
    NSSplitView *_split;
    SHMarkdownEditor *_editor;
    SHSlideListView *_list;
    SHSlideListView *_grid;
    SHSlideView *_preview;
    NSTextView *_notes;
    NSTextField *_status;
}

/// A window with `text`, not yet shown. `path` is nil for a document that has no file yet; its window is then called
/// `title`.
- (instancetype)initWithText:(std::string)text
                        path:(NSString *)path
                       title:(NSString *)title
                 application:(SHAppDelegate *)application;

- (void)show;
- (SHDocumentWindow *)window;
- (QVAppKitController *)controller;
- (NSString *)path;
/// The window's title.
- (NSString *)title;
- (bool)isEdited;
/// Nothing was typed and nothing opened: another document may take its place.
- (bool)isUntouched;
/// Asks what to do with unsaved changes. Returns whether the document may close.
- (bool)mayClose;
- (void)close;
/// Writes the text to the document's file, or asks where to. Returns whether it was written.
- (bool)save;
- (SHSlideshow *)slideshow;

/// Applies what of the settings changed, by the setting's name; "" means everything.
- (void)applySetting:(NSString *)key;

@end

/// The text and what changes it.
@interface SHDocument (Editing)
- (const std::string &)text;
- (const samplehost::Deck &)deck;
- (std::size_t)currentSlide;
- (samplehost::TextRange)selection;
/// Changes the text; `name` is what the Undo menu says. Nothing happens without an edit.
- (void)apply:(const std::optional<samplehost::Edit> &)edit name:(const std::string &)name;
- (void)perform:(samplehost::Action)action;
/// Puts the cursor on the slide and shows it.
- (void)goToSlide:(std::size_t)slide;
/// The slide as it is shown, numbered, with the document's theme and size.
- (samplehost::ShownSlide)shownSlide:(std::size_t)slide;
- (samplehost::SlideStyle)style;
/// Takes the text apart anew and shows it everywhere.
- (void)refresh;
- (void)refreshSelection;
- (void)find:(const std::string &)wanted;

- (void)undoChange:(id)sender;
- (void)redoChange:(id)sender;
- (void)performTaggedAction:(id)sender;
- (void)makeBold:(id)sender;
- (void)makeItalic:(id)sender;
- (void)makeCode:(id)sender;
- (void)nextSlide:(id)sender;
- (void)previousSlide:(id)sender;
@end

/// The plug-in's toolbar and its three callbacks.
@interface SHDocument (Toolbar)
- (void)installToolbar;
- (void)toolbarActionForAction:(NSNumber *)action;
- (void)toolbarActionForSearch:(NSString *)text;
- (void)toolbarActionForPopover:(NSNumber *)action CGRect:(NSValue *)rect;
/// Opens the popover of an action at its toolbar button, or at `rect` as the plug-in gives it.
- (void)showPopover:(samplehost::Action)action rect:(NSRect)rect;
- (void)closePopover;
- (void)toggleArranging;
- (bool)isArranging;
- (void)focusSearch:(id)sender;
- (void)arrangeSlides:(id)sender;
- (void)flipToolbar:(id)sender;
@end

/// The slideshow's side.
@interface SHDocument (Slideshow)
/// Starts the slideshow at a slide; what prevents it is shown in an alert.
- (void)playFrom:(std::size_t)slide;
- (void)slideshowDidEndAt:(std::size_t)slide;
- (void)playFromStart:(id)sender;
- (void)playFromCurrent:(id)sender;
- (void)swapDisplays:(id)sender;
- (void)flipFullScreen:(id)sender;
@end
