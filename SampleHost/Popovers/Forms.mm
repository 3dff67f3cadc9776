#import "DocumentLayout.h"
#import "SHPopoverForm.h"

#include <algorithm>
#include <array>

using namespace samplehost;

namespace {

NSString *const followPreferences = @"As in Preferences";

template <typename Entries> NSArray<NSString *> *namesWithDefault(const Entries &entries) {
    NSMutableArray<NSString *> *names = [NSMutableArray arrayWithObject:followPreferences];
    for (const auto &entry : entries) {
        [names addObject:toNSString(entry.name)];
    }
    return names;
}

std::optional<std::string> chosenIn(NSPopUpButton *button) {
    NSString *title = [button titleOfSelectedItem];
    return title == nil || [title isEqualToString:followPreferences] ? std::nullopt : std::optional(toUTF8(title));
}

std::optional<std::string> typedIn(NSTextField *field) {
    const auto text = toUTF8([field stringValue]);
    return trimmed(text).empty() ? std::nullopt : std::optional(text);
}

} // namespace

/// What this document says otherwise than the preferences.
@interface SHDocumentForm : SHPopoverForm {
    NSTextField *_title;
    NSTextField *_footer;
    NSPopUpButton *_theme;
    NSPopUpButton *_size;
}
@end

@implementation SHDocumentForm

- (void)build {
    const DocumentSettings settings = [_document deck].settings;
    [self addTitle:@"Document Settings"];
    _title = [self addField:@"Title" value:toNSString(settings.title.value_or(""))];
    _footer = [self addField:@"Footer" value:toNSString(settings.footer.value_or(""))];
    _theme = [self addPopUp:@"Theme"
                     titles:namesWithDefault(slideThemes())
                   selected:settings.theme ? toNSString(*settings.theme) : followPreferences];
    _size = [self addPopUp:@"Slide Size"
                    titles:namesWithDefault(slideSizes())
                  selected:settings.size ? toNSString(*settings.size) : followPreferences];
    for (NSControl *control in @[ _title, _footer, _theme, _size ]) {
        [self wire:control to:[self] { [self applySettings]; }];
    }
    [self addNote:@"These settings are kept in a comment at the top of the text and go wherever the file goes."];
}

- (NSView *)firstControl {
    return _title;
}

- (void)applySettings {
    const DocumentSettings settings{
        .title = typedIn(_title), .footer = typedIn(_footer), .theme = chosenIn(_theme), .size = chosenIn(_size)};
    if (settings != [_document deck].settings) {
        [_document apply:writeSettings([_document text], settings) name:"Document Settings"];
    }
}

@end

/// Pictures of the slide themes; a click gives the document that theme.
@interface SHThemesForm : SHPopoverForm
@end

@implementation SHThemesForm

- (void)build {
    [self addTitle:@"Themes"];
    constexpr std::size_t columns = 2;
    constexpr double gap = 12;
    const double width = (NSWidth([self frame]) - 32 - gap) / columns;
    const double height = width * 9 / 16 + 24;
    const auto themes = slideThemes();
    const auto rows = (themes.size() + columns - 1) / columns;
    NSView *grid = [[[NSView alloc] initWithFrame:NSZeroRect] autorelease];
    [self addView:grid height:static_cast<double>(rows) * (height + gap) - gap];
    const auto current = [_document style].theme.name;
    const double top = NSHeight([grid frame]);
    for (std::size_t i = 0; i < themes.size(); ++i) {
        const double x = static_cast<double>(i % columns) * (width + gap);
        const std::size_t row = i / columns;
        const double y = top - static_cast<double>(row + 1) * (height + gap) + gap;
        [grid addSubview:[self buttonFor:themes[i] frame:NSMakeRect(x, y, width, height) on:themes[i].name == current]];
    }
    NSButton *button = [[self addButtons:@[ @"Follow Preferences" ]] objectAtIndex:0];
    [self wire:button to:[self] { [self choose:std::nullopt]; }];
}

- (NSButton *)buttonFor:(const SlideTheme &)theme frame:(NSRect)frame on:(bool)on {
    ShownSlide shown = [_document shownSlide:[_document currentSlide]];
    shown.style.theme = theme;
    shown.style.size = slideSizes().front();
    NSButton *button = [[[NSButton alloc] initWithFrame:frame] autorelease];
    [button setButtonType:NSMomentaryChangeButton];
    [button setBordered:NO];
    [button setImagePosition:NSImageAbove];
    [button setImage:slideImage(shown.slide, shown.style, NSWidth(frame) - 4)];
    [button setFont:on ? [NSFont boldSystemFontOfSize:11] : [NSFont systemFontOfSize:11]];
    [button setTitle:toNSString((on ? "✓ " : "") + std::string(theme.name))];
    const std::string name(theme.name);
    [self wire:button to:[self, name] { [self choose:name]; }];
    return button;
}

- (void)choose:(const std::optional<std::string> &)name {
    auto settings = [_document deck].settings;
    settings.theme = name;
    if (settings != [_document deck].settings) {
        [_document apply:writeSettings([_document text], settings) name:"Theme"];
    }
    [self closePopover];
}

@end

/// What the selected text is, and what the current slide is.
@interface SHInspectorForm : SHPopoverForm
@end

@implementation SHInspectorForm

- (void)addActions:(NSArray<NSString *> *)titles actions:(const std::vector<Action> &)actions {
    NSArray<NSButton *> *buttons = [self addButtons:titles];
    for (std::size_t i = 0; i < actions.size(); ++i) {
        const auto action = actions[i];
        [self wire:[buttons objectAtIndex:i] to:[self, action] { [_document perform:action]; }];
    }
}

- (void)build {
    const auto index = [_document currentSlide];
    const Slide &slide = [_document deck].slides[index];
    [self addTitle:toNSString("Slide " + std::to_string(index + 1))];
    [self addNote:toNSString(slide.title.empty() ? "This slide has no heading." : slide.title)];
    [self addActions:@[ @"Duplicate", @"Delete" ] actions:{Action::duplicateSlide, Action::deleteSlide}];
    [self addTitle:@"Text"];
    [self addActions:@[ @"Level 1", @"Level 2", @"Level 3" ]
             actions:{Action::headlineLevel1, Action::headlineLevel2, Action::headlineLevel3}];
    [self addActions:@[ @"Bullets", @"Numbers", @"Quote" ]
             actions:{Action::bulletedList, Action::numberedList, Action::quote}];
    NSArray<NSButton *> *styles = [self addButtons:@[ @"Bold", @"Italic", @"Code" ]];
    [self wire:[styles objectAtIndex:0] to:[self] { [_document makeBold:nil]; }];
    [self wire:[styles objectAtIndex:1] to:[self] { [_document makeItalic:nil]; }];
    [self wire:[styles objectAtIndex:2] to:[self] { [_document makeCode:nil]; }];
}

@end

/// Pictures to put on the slide.
@interface SHMediaForm : SHPopoverForm {
    NSTextField *_path;
    NSTextField *_description;
}
@end

@implementation SHMediaForm

/// The names of pictures beside the document, the first few.
- (NSArray<NSString *> *)nearby {
    NSString *directory = [[_document path] stringByDeletingLastPathComponent];
    NSMutableArray<NSString *> *found = [NSMutableArray array];
    if ([directory length] == 0) {
        return found;
    }
    constexpr NSUInteger most = 20;
    NSArray<NSString *> *types = @[ @"png", @"jpg", @"jpeg", @"gif", @"tiff", @"tif" ];
    for (NSString *name in [[NSFileManager defaultManager] contentsOfDirectoryAtPath:directory error:nullptr]) {
        if ([types containsObject:[[name pathExtension] lowercaseString]] && [found count] < most) {
            [found addObject:name];
        }
    }
    [found sortUsingSelector:@selector(compare:)];
    return found;
}

- (void)build {
    [self addTitle:@"Insert Media"];
    NSArray<NSString *> *nearby = [self nearby];
    if ([nearby count] > 0) {
        NSPopUpButton *names = [self addPopUp:@"Nearby" titles:nearby selected:[nearby objectAtIndex:0]];
        [self wire:names to:[self, names] { [_path setStringValue:[names titleOfSelectedItem]]; }];
    }
    _path = [self addField:@"File" value:[nearby count] > 0 ? [nearby objectAtIndex:0] : @""];
    [[_path cell] setPlaceholderString:@"picture.png"];
    _description = [self addField:@"Text" value:@""];
    [[_description cell] setPlaceholderString:@"What the picture shows"];
    NSArray<NSButton *> *buttons = [self addButtons:@[ @"Choose…", @"Insert" ]];
    [self wire:[buttons objectAtIndex:0] to:[self] { [self choose]; }];
    [self wire:[buttons objectAtIndex:1] to:[self] { [self insert]; }];
    [[buttons objectAtIndex:1] setKeyEquivalent:@"\r"];
}

- (NSView *)firstControl {
    return _path;
}

- (void)insertPath:(NSString *)path {
    const auto description = toUTF8([_description stringValue]);
    [_document apply:insertImage([_document text], [_document selection], toUTF8(path),
                                 description.empty() ? "Picture" : description)
                name:"Picture"];
}

- (void)insert {
    NSString *path = [_path stringValue];
    if ([path length] > 0) {
        [self insertPath:path];
        [self closePopover];
    }
}

- (void)choose {
    // The panel takes the keys, which closes the popover; the form must outlive both.
    const auto kept = keep(self);
    NSOpenPanel *panel = [NSOpenPanel openPanel];
    [panel setAllowsMultipleSelection:NO];
    [panel setCanChooseDirectories:NO];
    NSArray<NSString *> *types = @[ @"png", @"jpg", @"jpeg", @"gif", @"tiff", @"tif" ];
    if ([panel runModalForTypes:types] != NSOKButton) {
        return;
    }
    NSString *path = [[panel filenames] objectAtIndex:0];
    NSString *directory = [[_document path] stringByDeletingLastPathComponent];
    if ([directory length] > 0 && [[path stringByDeletingLastPathComponent] isEqualToString:directory]) {
        path = [path lastPathComponent];
    }
    [self insertPath:path];
    [self closePopover];
}

@end

/// How the slideshow starts.
@interface SHPlayForm : SHPopoverForm
@end

@implementation SHPlayForm

- (void)build {
    [self addTitle:@"Slideshow"];
    NSArray<NSButton *> *buttons = [self addButtons:@[ @"From Start", @"From Slide" ]];
    [[buttons objectAtIndex:1] setTitle:toNSString("From Slide " + std::to_string([_document currentSlide] + 1))];
    [self wire:[buttons objectAtIndex:0] to:[self] { [self playFrom:0]; }];
    [self wire:[buttons objectAtIndex:1] to:[self] { [self playFrom:[_document currentSlide]]; }];
    const Settings &settings = [[_application settings] settings];
    NSButton *presenter = [self addCheckBox:@"Presenter view on a second display" on:settings.presenterActive];
    [self wire:presenter
            to:[self, presenter] {
                Settings changed = [[_application settings] settings];
                changed.presenterActive = [presenter state] == NSOnState;
                [[_application settings] change:changed key:@"presenterActive"];
            }];
    if ([[NSScreen screens] count] < 2) {
        [self addNote:@"Only one display is connected: the slides will fill it."];
        return;
    }
    NSDictionary<NSString *, id> *displays = [[_document controller] multipleWindowConfiguration];
    [self addNote:[NSString stringWithFormat:@"Slides: %@\nPresenter view: %@", [displays objectForKey:@"slideshow"],
                                             [displays objectForKey:@"presenter"]]];
    NSButton *swap = [[self addButtons:@[ @"Swap Displays" ]] objectAtIndex:0];
    [self wire:swap
            to:[self] {
                [_document swapDisplays:nil];
                [self closePopover];
            }];
}

- (void)playFrom:(std::size_t)slide {
    [self closePopover];
    SHDocument *document = _document;
    platform::async([document, slide] { [document playFrom:slide]; });
}

@end

namespace samplehost {

SHPopoverForm *formFor(Action action, SHDocument *document, SHAppDelegate *application) {
    struct Form {
        Action action;
        Class formClass;
        double width;
    };
    const std::array forms{
        Form{Action::media, [SHMediaForm class], 320},       Form{Action::inspector, [SHInspectorForm class], 320},
        Form{Action::document, [SHDocumentForm class], 320}, Form{Action::play, [SHPlayForm class], 320},
        Form{Action::themes, [SHThemesForm class], 360},
    };
    const auto *form = std::ranges::find(forms, action, &Form::action);
    if (form == forms.end()) {
        return nil;
    }
    return [[[form->formClass alloc] initWithWidth:form->width document:document application:application] autorelease];
}

} // namespace samplehost
