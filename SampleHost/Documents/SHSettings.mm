#import "SHSettings.h"

#import "PlugIn.h"
#import "SlideRenderer.h"

#include <array>

using namespace samplehost;

namespace {

NSString *const recordKey = @"Settings";
constexpr std::size_t previewsPerTheme = 5;
/// The width at which they are shown: scaled pictures are coarse.
constexpr double previewWidth = 97;

/// What the previews show: one slide of each kind.
constexpr std::array<std::string_view, previewsPerTheme> previewTexts{
    "# A Talk Is a Text\n\nQuorvel",
    "## Three reasons\n\n- Words come first\n- Slides follow\n- *You* speak",
    "## In numbers\n\n| Year | Talks |\n| --- | --- |\n| 2024 | 12 |\n| 2025 | 31 |",
    "## A word\n\n> What is well thought out is said clearly.\n\nAnd the words come easily.",
    "## Code\n\n```\nfor slide in talk:\n    show(slide)\n```\n",
};

NSString *cacheDirectory() {
    NSArray<NSString *> *caches = NSSearchPathForDirectoriesInDomains(NSCachesDirectory, NSUserDomainMask, YES);
    NSString *base = [caches count] > 0 ? [caches objectAtIndex:0] : NSTemporaryDirectory();
    NSString *directory = [base stringByAppendingPathComponent:@"SampleHost/Previews-2"];
    [[NSFileManager defaultManager] createDirectoryAtPath:directory
                              withIntermediateDirectories:YES
                                               attributes:nil
                                                    error:nullptr];
    return directory;
}

NSString *previewPath(NSString *directory, std::string_view theme, std::size_t index) {
    const auto name = std::string(theme) + "-" + std::to_string(index + 1) + ".png";
    return [directory stringByAppendingPathComponent:toNSString(name)];
}

/// Writes one missing picture. Returns false when none is missing.
bool renderOnePreview() {
    NSString *directory = cacheDirectory();
    for (const SlideTheme &theme : slideThemes()) {
        for (std::size_t i = 0; i < previewsPerTheme; ++i) {
            NSString *path = previewPath(directory, theme.name, i);
            if ([[NSFileManager defaultManager] fileExistsAtPath:path]) {
                continue;
            }
            const SlideStyle style{.theme = theme, .size = slideSizes().front(), .footer = {}, .directory = {}};
            return writeSlidePicture(parseDeck(previewTexts.at(i)).slides.front(), style, previewWidth, path);
        }
    }
    return false;
}

} // namespace

@implementation SHSettings

- (instancetype)initWithLog:(LogFile *)log {
    self = [super init];
    if (self != nil) {
        _log = log;
        _settings = initialSettings();
        NSString *stored = [[NSUserDefaults standardUserDefaults] stringForKey:recordKey];
        if (const auto record = settingsFromJson(toUTF8(stored)); record) {
            _settings = refreshed(record->settings);
        }
        _settings.allPreviewPaths.clear();
        NSString *directory = cacheDirectory();
        for (const SlideTheme &theme : slideThemes()) {
            auto &paths = _settings.allPreviewPaths[std::string(theme.name)];
            for (std::size_t i = 0; i < previewsPerTheme; ++i) {
                paths.push_back(toUTF8(previewPath(directory, theme.name, i)));
            }
        }
    }
    return self;
}

- (const Settings &)settings {
    return _settings;
}

- (void)renderPreviews {
    while (renderOnePreview()) {
    }
}

- (void)renderPreviewsInTime {
    if (renderOnePreview()) {
        platform::asyncAfter(0.05, [self] { [self renderPreviewsInTime]; });
    }
}

- (void)storeAndTell:(NSString *)key {
    NSUserDefaults *defaults = [NSUserDefaults standardUserDefaults];
    [defaults setObject:toNSString(settingsToJson(_settings)) forKey:recordKey];
    [defaults synchronize];
    [[NSNotificationCenter defaultCenter] postNotificationName:settingsDidChange object:nil userInfo:@{@"key" : key}];
}

- (void)change:(const Settings &)settings key:(NSString *)key {
    _settings = settings;
    [self storeAndTell:key];
    // The plug-in reads the settings only when it is bound.
    [plugInClass() setupPreferencesDelegate:self];
}

- (NSData *)preferenceValues {
    _log->write(eventlog::preferencesRead());
    const auto record = settingsToJson(_settings);
    return [NSData dataWithBytes:record.data() length:record.size()];
}

- (void)setPreferencesValues:(NSData *)values {
    const std::string_view record(static_cast<const char *>([values bytes]), [values length]);
    _log->write(eventlog::preferencesWritten(record));
    auto change = settingsFromJson(record);
    if (!change) {
        NSLog(@"Settings that cannot be read: %@", toNSString(change.error()));
        return;
    }
    _settings = std::move(change->settings);
    [self storeAndTell:toNSString(change->affectedKey.value_or(""))];
}

@end
