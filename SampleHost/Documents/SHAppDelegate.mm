#import "SHAppDelegate.h"

#import "AboutWindow.h"
#import "DocumentLayout.h"
#import "MainMenu.h"
#import "PlugIn.h"
#import "SHDocument.h"

#include "FlatTheme.h"

#include <expected>

using namespace samplehost;

namespace {

NSString *const tutorialShownKey = @"TutorialShown";
constexpr unsigned long long largestFile = 20'000'000;

/// The sample talk: in the program's bundle, or in the resources beside the program.
NSString *sampleTalkPath() {
    NSString *inBundle = [[NSBundle mainBundle] pathForResource:@"sample-talk" ofType:@"md"];
    if (inBundle != nil) {
        return inBundle;
    }
    NSString *program = [[NSBundle mainBundle] executablePath];
    return [[program stringByDeletingLastPathComponent] stringByAppendingPathComponent:@"Resources/sample-talk.md"];
}

/// The file's text, or why there is none. A file that does not exist yet is an empty talk, if it can be written.
std::expected<std::string, std::string> textOfFile(NSString *path) {
    NSFileManager *files = [NSFileManager defaultManager];
    BOOL isDirectory = NO;
    if (![files fileExistsAtPath:path isDirectory:&isDirectory]) {
        return [files isWritableFileAtPath:[path stringByDeletingLastPathComponent]]
                   ? std::expected<std::string, std::string>("")
                   : std::unexpected("The file does not exist.");
    }
    if (isDirectory) {
        return std::unexpected("This is a folder, not a talk.");
    }
    if ([[files attributesOfItemAtPath:path error:nullptr] fileSize] > largestFile) {
        return std::unexpected("This file is too large for a talk.");
    }
    NSData *data = [NSData dataWithContentsOfFile:path];
    if (data == nil) {
        return std::unexpected("The file could not be read.");
    }
    // Bytes that are no UTF-8 are read as Latin-1.
    return toUTF8(toNSString({static_cast<const char *>([data bytes]), [data length]}));
}

flattheme::Look lookNamed(const std::string &appearance) {
    if (appearance == "light") {
        return flattheme::Look::light;
    }
    return appearance == "dark" ? flattheme::Look::dark : flattheme::Look::automatic;
}

} // namespace

@implementation SHAppDelegate

- (instancetype)initWithOptions:(const Options &)options {
    self = [super init];
    if (self != nil) {
        _options = options;
        if (!options.log.empty()) {
            _log = LogFile(options.log);
        }
        _documents = own<NSMutableArray<SHDocument *>>([[NSMutableArray alloc] init]);
    }
    return self;
}

- (void)dealloc {
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [super dealloc];
}

- (SHSettings *)settings {
    return _settings.get();
}

- (LogFile &)log {
    return _log;
}

- (NSArray<SHDocument *> *)documents {
    return _documents.get();
}

- (SHDocument *)currentDocument {
    for (NSWindow *window in @[ [NSApp keyWindow] ?: (id)[NSNull null], [NSApp mainWindow] ?: (id)[NSNull null] ]) {
        for (SHDocument *document in _documents.get()) {
            if (static_cast<NSWindow *>([document window]) == window) {
                return document;
            }
        }
    }
    return [_documents.get() lastObject];
}

#pragma mark Launching

- (void)applicationWillFinishLaunching:(NSNotification *)notification {
    (void)notification;
    if (_options.freshDefaults) {
        NSUserDefaults *defaults = [NSUserDefaults standardUserDefaults];
        [defaults removePersistentDomainForName:[[NSProcessInfo processInfo] processName]];
        [defaults synchronize];
    }
}

- (void)applicationDidFinishLaunching:(NSNotification *)notification {
    (void)notification;
    flattheme::install();
    installMainMenu();
    if (loadPlugIn(toNSString(_options.bundle)) == Nil) {
        showAlert(@"The plug-in could not be loaded.", toNSString(_options.bundle));
        [NSApp terminate:nil];
        return;
    }
    _settings = own([[SHSettings alloc] initWithLog:&_log]);
    if (!_options.appearance.empty()) {
        auto settings = [_settings.get() settings];
        settings.generalAppearance = _options.appearance;
        [_settings.get() change:settings key:@"generalAppearance"];
    }
    flattheme::setLook(lookNamed([_settings.get() settings].generalAppearance));
    [plugInClass() setupPreferencesDelegate:_settings.get()];
    [self observe];
    _launched = true;
    [self openFirstDocuments];
    [NSApp activateIgnoringOtherApps:YES];
    [self showTutorialAtFirstStart];
    [_settings.get() renderPreviewsInTime];
    _log.write(eventlog::note("launched", ""));
}

- (void)observe {
    NSNotificationCenter *center = [NSNotificationCenter defaultCenter];
    [center addObserver:self selector:@selector(plugInPosted:) name:openSampleDocument object:nil];
    [center addObserver:self selector:@selector(plugInPosted:) name:metricsFromAppKit object:nil];
    [center addObserver:self selector:@selector(plugInPosted:) name:showTutorialScreen object:nil];
    [center addObserver:self selector:@selector(settingsDidChange:) name:settingsDidChange object:nil];
}

- (void)openFirstDocuments {
    for (const std::string &file : _options.files) {
        [self openFile:toNSString(file)];
    }
    if ([_documents.get() count] > 0) {
        return;
    }
    if ([_settings.get() settings].generalSamplePresentation && [self openSampleTalk] != nil) {
        return;
    }
    [self newDocument:nil];
}

- (void)showTutorialAtFirstStart {
    NSUserDefaults *defaults = [NSUserDefaults standardUserDefaults];
    if (_options.withoutTutorial || [defaults boolForKey:tutorialShownKey]) {
        return;
    }
    [defaults setBool:YES forKey:tutorialShownKey];
    [defaults synchronize];
    // Once the document's window stands, so that the introduction comes before it and has the keys.
    platform::asyncAfter(0.5, [self] { [self showTutorial:nil]; });
}

#pragma mark What the plug-in posts

- (void)plugInPosted:(NSNotification *)notification {
    NSDictionary<NSString *, id> *info = [notification userInfo];
    const auto text = [info](NSString *key) {
        NSString *value = [info objectForKey:key];
        return value == nil ? std::nullopt : std::optional(toUTF8(value));
    };
    _log.write(eventlog::notification(toUTF8([notification name]), text(@"metric"), text(@"payload")));
    if ([[notification name] isEqualToString:openSampleDocument]) {
        [self openSampleTalk];
    } else if ([[notification name] isEqualToString:showTutorialScreen]) {
        [self showTutorial:nil];
    }
}

- (void)settingsDidChange:(NSNotification *)notification {
    if ([[[notification userInfo] objectForKey:@"key"] isEqualToString:@"generalAppearance"]) {
        flattheme::setLook(lookNamed([_settings.get() settings].generalAppearance));
    }
}

#pragma mark Documents

- (SHDocument *)addDocumentWithText:(std::string)text path:(NSString *)path title:(NSString *)title {
    // An untouched first window makes room for what is opened.
    SHDocument *untouched = [_documents.get() count] == 1 ? [_documents.get() objectAtIndex:0] : nil;
    const auto document = own([[SHDocument alloc] initWithText:std::move(text) path:path title:title application:self]);
    [_documents.get() addObject:document.get()];
    [document.get() show];
    if (path != nil && [untouched isUntouched]) {
        [untouched close];
    }
    _log.write(eventlog::note("opened", toUTF8(path == nil ? title : path)));
    return document.get();
}

- (SHDocument *)openFile:(NSString *)name {
    NSString *path = [name isAbsolutePath]
                         ? name
                         : [[[NSFileManager defaultManager] currentDirectoryPath] stringByAppendingPathComponent:name];
    path = [path stringByStandardizingPath];
    for (SHDocument *document in _documents.get()) {
        if ([[document path] isEqualToString:path]) {
            [[document window] makeKeyAndOrderFront:nil];
            return document;
        }
    }
    auto text = textOfFile(path);
    if (!text) {
        // Later: while documents open, an alert gets neither the front nor the keys.
        const std::string file = toUTF8(path);
        _log.write(eventlog::note("refused", file));
        platform::asyncAfter(0.6, [reason = text.error(), file] { showAlert(toNSString(reason), toNSString(file)); });
        return nil;
    }
    return [self addDocumentWithText:std::move(*text) path:path title:nil];
}

- (SHDocument *)openSampleTalk {
    NSString *path = sampleTalkPath();
    NSData *data = [NSData dataWithContentsOfFile:path];
    if (data == nil) {
        return nil;
    }
    // A copy without a file: the sample itself stays as it is.
    return [self addDocumentWithText:std::string(static_cast<const char *>([data bytes]), [data length])
                                path:nil
                               title:@"Sample Talk"];
}

- (void)documentDidClose:(SHDocument *)document {
    // A later turn: the document is still closing.
    const auto kept = std::make_shared<Owned<SHDocument>>(keep(document));
    [_documents.get() removeObject:document];
    platform::async([kept] {});
}

- (void)newDocument:(id)sender {
    (void)sender;
    ++_untitledCount;
    NSString *title = _untitledCount == 1 ? @"Untitled" : [NSString stringWithFormat:@"Untitled %u", _untitledCount];
    [self addDocumentWithText:"# New Talk\n\n" path:nil title:title];
}

- (void)openDocument:(id)sender {
    (void)sender;
    NSOpenPanel *panel = [NSOpenPanel openPanel];
    [panel setAllowsMultipleSelection:YES];
    [panel setCanChooseDirectories:NO];
    if ([panel runModalForTypes:@[ @"md", @"markdown", @"txt" ]] == NSOKButton) {
        for (NSString *path in [panel filenames]) {
            [self openFile:path];
        }
    }
}

- (void)openSample:(id)sender {
    (void)sender;
    [self openSampleTalk];
}

#pragma mark Application

// AppKit takes bare arguments for files of its own accord; those of the start are opened after launching.
- (BOOL)application:(NSApplication *)application openFile:(NSString *)path {
    (void)application;
    return !_launched || [self openFile:path] != nil ? YES : NO;
}

- (BOOL)application:(NSApplication *)application openTempFile:(NSString *)path {
    return [self application:application openFile:path];
}

- (BOOL)applicationShouldOpenUntitledFile:(NSApplication *)application {
    (void)application;
    return NO;
}

- (BOOL)applicationShouldTerminateAfterLastWindowClosed:(NSApplication *)application {
    (void)application;
    return YES;
}

- (NSUInteger)applicationShouldTerminate:(NSApplication *)application {
    (void)application;
    for (SHDocument *document in [NSArray arrayWithArray:_documents.get()]) {
        if (![document mayClose]) {
            return NSTerminateCancel;
        }
    }
    return NSTerminateNow;
}

- (void)showPreferences:(id)sender {
    (void)sender;
    [_settings.get() renderPreviews];
    [plugInClass() showPreferences];
}

- (void)showAbout:(id)sender {
    (void)sender;
    if (!samplehost::showAboutWindow()) {
        [plugInClass() showAboutScreen];
    }
}

- (void)showTutorial:(id)sender {
    (void)sender;
    [plugInClass() showTutorialWindow];
}

- (void)checkForUpdates:(id)sender {
    [[[self currentDocument] controller] checkForUpdates:sender];
}

- (void)makeTextBigger:(id)sender {
    (void)sender;
    [plugInClass() increaseFontSize];
}

- (void)makeTextSmaller:(id)sender {
    (void)sender;
    [plugInClass() decreaseFontSize];
}

- (void)quit:(id)sender {
    (void)sender;
    [plugInClass() terminateApp];
}

@end
