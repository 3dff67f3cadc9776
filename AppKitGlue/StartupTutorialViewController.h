// The startup tutorial: a short introduction that moves, then four pages.
#pragma once

#import "Platform.h"

#include "RetainPtr.h"
#include "Steps.h"

/// Controls the tutorial's content view and is its window's delegate. Everything belongs to the main thread.
///
/// All outlets come from the nib and are required: the process ends when one is needed and missing. An open tutorial
/// keeps its window and itself until the window closes; work that is pending then still runs, and reports nothing.
@interface StartupTutorialViewController : NSViewController <NSWindowDelegate> {
    NSView *_containerView;
    NSTextField *_headline;
    NSTextField *_subline;
    NSTextField *_descriptionField;
    NSButton *_nextActionButton;
    NSButton *_exitActionButton;
    NSView *_bluebar;
    NSView *_headlinesContainer;
    NSView *_contentBoxEmpty;
    NSView *_contentBoxDrawing;
    NSView *_contentBoxTm2;
    NSView *_contentBoxTm3;
    NSView *_contentBoxTm4;
    NSView *_contentBoxTm5;
    NSView *_contentBoxTm6;
    NSView *_contentBoxTm7;
    appkitglue::Steps::Case _currentStep;
    NSView *_currentView;
    NSStackView *_pagerStackView;
    NSButton *_pagerButton1;
    NSButton *_pagerButton2;
    NSButton *_pagerButton3;
    NSButton *_pagerButton4;
    NSButton *_buttonSampleDocument;
    NSButton *_buttonFinish;
    BOOL _didTapSampleDocumentBeforeClose;
    appkitglue::RetainPtr<NSWindow> _openWindow;
}

/// Where the current content box is shown.
@property (nonatomic, retain) IBOutlet NSView *containerView;
@property (nonatomic, retain) IBOutlet NSTextField *headline;
@property (nonatomic, retain) IBOutlet NSTextField *subline;
/// The line of text that changes with the step.
@property (nonatomic, retain) IBOutlet NSTextField *descriptionField;
/// Disabled while any transition runs.
@property (nonatomic, retain) IBOutlet NSButton *nextActionButton;
@property (nonatomic, retain) IBOutlet NSButton *exitActionButton;
/// Invisible until the introduction.
@property (nonatomic, retain) IBOutlet NSView *bluebar;
/// The block of headlines that the introduction shrinks and moves, if it has a layer.
@property (nonatomic, retain) IBOutlet NSView *headlinesContainer;
/// The content box of the first page, without content of its own.
@property (nonatomic, retain) IBOutlet NSView *contentBoxEmpty;
/// The drawing that slides into it. Its text fields are the labels that appear one by one.
@property (nonatomic, retain) IBOutlet NSView *contentBoxDrawing;
/// The content boxes of the other pages.
@property (nonatomic, retain) IBOutlet NSView *contentBoxTm2;
@property (nonatomic, retain) IBOutlet NSView *contentBoxTm3;
@property (nonatomic, retain) IBOutlet NSView *contentBoxTm4;
/// In the nib for pages to come.
@property (nonatomic, retain) IBOutlet NSView *contentBoxTm5;
@property (nonatomic, retain) IBOutlet NSView *contentBoxTm6;
@property (nonatomic, retain) IBOutlet NSView *contentBoxTm7;
/// The step reached. Changes when a transition is complete.
@property (nonatomic) appkitglue::Steps::Case currentStep;
/// The content box inside `containerView`; nil until the introduction is over.
@property (nonatomic, retain) NSView *currentView;
@property (nonatomic, retain) IBOutlet NSStackView *pagerStackView;
/// The pager dots, with the tags 1 to 4.
@property (nonatomic, retain) IBOutlet NSButton *pagerButton1;
@property (nonatomic, retain) IBOutlet NSButton *pagerButton2;
@property (nonatomic, retain) IBOutlet NSButton *pagerButton3;
@property (nonatomic, retain) IBOutlet NSButton *pagerButton4;
@property (nonatomic, retain) IBOutlet NSButton *buttonSampleDocument;
@property (nonatomic, retain) IBOutlet NSButton *buttonFinish;
/// Whether the sample document was asked for. Never reset.
@property (nonatomic) BOOL didTapSampleDocumentBeforeClose;

/// Prepares the views and schedules the introduction.
- (void)viewDidLoad;

/// To the next step.
- (IBAction)doNextWithSender:(id)sender;
/// To the step of the pager dot that sends it (its tag counts).
- (IBAction)doSpecificWithSender:(id)sender;
/// Posts `OpenSampleDocumentNotification` and closes the window.
- (IBAction)doSampleDocumentWithSender:(id)sender;
/// Closes the window.
- (IBAction)doFinishWithSender:(id)sender;

/// Posts `MetricsFromAppKitNotification` with the step reached.
- (void)windowWillClose:(NSNotification *)notification;

@end
