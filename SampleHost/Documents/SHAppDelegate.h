// The application: its documents, its settings, its log, and what its menus do without a document.
#pragma once

#import "Bridge.h"
#import "SHSettings.h"

#include "EventLog.h"
#include "Options.h"

@class SHDocument;

@interface SHAppDelegate : NSObject {
    samplehost::Options _options;
    samplehost::LogFile _log;
    samplehost::Owned<SHSettings> _settings;
    samplehost::Owned<NSMutableArray<SHDocument *>> _documents;
    unsigned _untitledCount;
    bool _launched;
}

- (instancetype)initWithOptions:(const samplehost::Options &)options;

- (SHSettings *)settings;
- (samplehost::LogFile &)log;
- (NSArray<SHDocument *> *)documents;
/// The document of the key or main window, else the one opened last; nil without documents.
- (SHDocument *)currentDocument;

/// Opens the file, or brings its window forward when it is open. A file that cannot be read is reported in an alert;
/// then the result is nil.
- (SHDocument *)openFile:(NSString *)path;
/// Opens the sample talk.
- (SHDocument *)openSampleTalk;
/// A document's window has closed.
- (void)documentDidClose:(SHDocument *)document;

- (void)newDocument:(id)sender;
- (void)openDocument:(id)sender;
- (void)openSample:(id)sender;
- (void)showPreferences:(id)sender;
- (void)showAbout:(id)sender;
- (void)showTutorial:(id)sender;
- (void)checkForUpdates:(id)sender;
- (void)makeTextBigger:(id)sender;
- (void)makeTextSmaller:(id)sender;

@end
