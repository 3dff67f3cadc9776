// GNUstep's attributed strings cannot read HTML: importers for it are looked for and none comes with AppKit.
#import "HTMLImport.h"

#import "NSColor+Link.h"

#include "HTMLDocument.h"

#import <GNUstepBase/GSMime.h>
#import <objc/runtime.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <tuple>

namespace platform {

namespace {

using InitWithData = id (*)(id, SEL, NSData *, NSDictionary *, NSDictionary **, NSError **);
InitWithData originalInitWithData;

NSString *string(const std::string &utf8) {
    NSString *result = [NSString stringWithUTF8String:utf8.c_str()];
    return result != nil ? result : @"";
}

// Turns a page's paragraphs into an attributed string. Colours stay those of the theme where the page names none.
class Writer {
public:
    explicit Writer(NSURL *baseURL) : baseURL_(baseURL) {}

    NSAttributedString *write(const html::Document &document) {
        NSMutableAttributedString *output = [[[NSMutableAttributedString alloc] init] autorelease];
        [output beginEditing];
        for (const auto &paragraph : document.paragraphs) {
            if ([output length] > 0) {
                append(output, "\n", previousStyle_, previousParagraphStyle_);
            }
            appendSpace(output, paragraph.spaceBefore);
            appendParagraph(output, paragraph);
        }
        [output endEditing];
        return output;
    }

private:
    // The layout ignores the space between paragraphs: an empty line of that height stands for it.
    void appendSpace(NSMutableAttributedString *output, double space) {
        if (space < 1 || [output length] == 0) {
            return;
        }
        NSMutableParagraphStyle *style = [[[NSParagraphStyle defaultParagraphStyle] mutableCopy] autorelease];
        [style setMinimumLineHeight:space];
        [style setMaximumLineHeight:space];
        html::Style line;
        line.fontSize = std::max(1.0, std::floor(space * 0.7));
        append(output, "\n", line, style);
    }

    void appendParagraph(NSMutableAttributedString *output, const html::Paragraph &paragraph) {
        NSParagraphStyle *style = paragraphStyle(paragraph);
        if (!paragraph.marker.empty()) {
            append(output, paragraph.marker + "\t", paragraph.style, style);
        }
        for (const auto &run : paragraph.runs) {
            append(output, run.text, run.style, style);
        }
        previousStyle_ = paragraph.style;
        previousParagraphStyle_ = style;
    }

    void append(NSMutableAttributedString *output, const std::string &text, const html::Style &style,
                NSParagraphStyle *paragraphStyle) {
        NSMutableDictionary *attributes = [NSMutableDictionary
            dictionaryWithObjectsAndKeys:font(style), NSFontAttributeName, color(style), NSForegroundColorAttributeName,
                                         paragraphStyle, NSParagraphStyleAttributeName, nil];
        if (style.underlined || style.link != nullptr) {
            [attributes setObject:@(NSUnderlineStyleSingle) forKey:NSUnderlineStyleAttributeName];
        }
        if (style.link != nullptr) {
            [attributes setObject:address(*style.link) forKey:NSLinkAttributeName];
        }
        NSAttributedString *piece = [[NSAttributedString alloc] initWithString:string(text) attributes:attributes];
        [output appendAttributedString:piece];
        [piece release];
    }

    // A URL, or the text as it stands where it is none.
    id address(const std::string &text) const {
        NSString *written = string(text);
        NSURL *url =
            baseURL_ != nil ? [NSURL URLWithString:written relativeToURL:baseURL_] : [NSURL URLWithString:written];
        return url != nil ? static_cast<id>(url) : written;
    }

    NSFont *font(const html::Style &style) {
        NSFont *&font = fonts_[{style.fontSize, style.bold, style.italic, style.monospaced}];
        if (font == nil) {
            font = style.monospaced ? [NSFont userFixedPitchFontOfSize:style.fontSize]
                   : style.bold     ? [NSFont boldSystemFontOfSize:style.fontSize]
                                    : [NSFont systemFontOfSize:style.fontSize];
            NSFontManager *manager = [NSFontManager sharedFontManager];
            if (style.bold && style.monospaced) {
                font = [manager convertFont:font toHaveTrait:NSBoldFontMask];
            }
            if (style.italic) {
                font = [manager convertFont:font toHaveTrait:NSItalicFontMask];
            }
        }
        return font;
    }

    static NSColor *color(const html::Style &style) {
        if (!style.color) {
            return style.link != nullptr ? [NSColor linkColor] : [NSColor textColor];
        }
        return [NSColor colorWithCalibratedRed:style.color->red / 255.0
                                         green:style.color->green / 255.0
                                          blue:style.color->blue / 255.0
                                         alpha:1];
    }

    static NSParagraphStyle *paragraphStyle(const html::Paragraph &paragraph) {
        constexpr double hang = 16;
        NSMutableParagraphStyle *style = [[[NSParagraphStyle defaultParagraphStyle] mutableCopy] autorelease];
        [style setHeadIndent:paragraph.indent];
        [style setFirstLineHeadIndent:paragraph.marker.empty() ? paragraph.indent
                                                               : std::max(0.0, paragraph.indent - hang)];
        if (!paragraph.marker.empty()) {
            NSTextTab *tab = [[NSTextTab alloc] initWithType:NSLeftTabStopType location:paragraph.indent];
            [style setTabStops:@[ tab ]];
            [tab release];
        }
        switch (paragraph.alignment) {
        case html::Alignment::natural:
            break;
        case html::Alignment::left:
            [style setAlignment:NSLeftTextAlignment];
            break;
        case html::Alignment::right:
            [style setAlignment:NSRightTextAlignment];
            break;
        case html::Alignment::center:
            [style setAlignment:NSCenterTextAlignment];
            break;
        case html::Alignment::justified:
            [style setAlignment:NSJustifiedTextAlignment];
            break;
        }
        return style;
    }

    NSURL *baseURL_;
    std::map<std::tuple<double, bool, bool, bool>, NSFont *> fonts_; // autoreleased, as the writer lives in one pool
    html::Style previousStyle_;
    NSParagraphStyle *previousParagraphStyle_ = nil;
};

std::optional<NSStringEncoding> declaredEncoding(NSDictionary *options) {
    if (NSNumber *number = [options objectForKey:NSCharacterEncodingDocumentOption]; number != nil) {
        return static_cast<NSStringEncoding>([number unsignedIntegerValue]);
    }
    if (NSString *name = [options objectForKey:NSTextEncodingNameDocumentOption]; name != nil) {
        const NSStringEncoding encoding = [GSMimeDocument encodingFromCharset:[name lowercaseString]];
        return encoding != GSUndefinedEncoding ? std::optional(encoding) : std::nullopt;
    }
    return std::nullopt;
}

// The page in UTF-8: as its options declare it, else UTF-16 with a byte order mark, else UTF-8, else Latin-1.
std::string utf8Text(NSData *data, NSDictionary *options) {
    const std::string_view bytes(static_cast<const char *>([data bytes]), [data length]);
    auto encoding = declaredEncoding(options);
    if (!encoding) {
        const bool wide = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
        NSString *asUTF8 =
            wide ? nil : [[[NSString alloc] initWithData:data encoding:NSUTF8StringEncoding] autorelease];
        encoding = wide ? NSUnicodeStringEncoding : asUTF8 != nil ? NSUTF8StringEncoding : NSISOLatin1StringEncoding;
    }
    if (*encoding == NSUTF8StringEncoding) {
        return std::string(bytes);
    }
    NSString *text = [[[NSString alloc] initWithData:data encoding:*encoding] autorelease];
    NSData *converted = [text dataUsingEncoding:NSUTF8StringEncoding];
    return converted == nil ? std::string(bytes)
                            : std::string(static_cast<const char *>([converted bytes]), [converted length]);
}

bool isHTML(NSDictionary *options) {
    NSString *type = [options objectForKey:NSDocumentTypeDocumentOption];
    return [type isEqual:NSHTMLTextDocumentType] || [type isEqual:@"public.html"] || [type isEqual:@"html"];
}

id initWithData(id self, SEL command, NSData *data, NSDictionary *options, NSDictionary **attributes, NSError **error) {
    if (!isHTML(options)) {
        return originalInitWithData(self, command, data, options, attributes, error);
    }
    const double multiplier = [options objectForKey:NSTextSizeMultiplierDocumentOption] != nil
                                  ? [[options objectForKey:NSTextSizeMultiplierDocumentOption] doubleValue]
                                  : 1;
    const double fontSize = std::clamp([NSFont systemFontSize] * multiplier, 1.0, 400.0);
    const html::Document document = html::parse(utf8Text(data, options), fontSize);
    if (attributes != nullptr) {
        *attributes = @{
            NSDocumentTypeDocumentAttribute : NSHTMLTextDocumentType,
            NSTitleDocumentAttribute : string(document.title)
        };
    }
    return [self initWithAttributedString:Writer([options objectForKey:NSBaseURLDocumentOption]).write(document)];
}

} // namespace

void installHTMLImport() {
    if (originalInitWithData != nullptr) {
        return;
    }
    Method method =
        class_getInstanceMethod([NSAttributedString class], @selector(initWithData:options:documentAttributes:error:));
    originalInitWithData =
        reinterpret_cast<InitWithData>(method_setImplementation(method, reinterpret_cast<IMP>(initWithData)));
}

} // namespace platform
