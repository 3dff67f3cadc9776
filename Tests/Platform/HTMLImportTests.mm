#import "Platform.h"
#import "TestSupport.h"

#include "../../Platform/GNUstep/HTML/HTMLDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

constexpr double plainSize = 12;

html::Document page(std::string_view text) {
    return html::parse(text, plainSize);
}

std::vector<std::string> texts(const html::Document &document) {
    std::vector<std::string> result;
    for (const auto &paragraph : document.paragraphs) {
        result.push_back(paragraph.marker.empty() ? paragraph.text() : paragraph.marker + " " + paragraph.text());
    }
    return result;
}

html::Style styleOf(std::string_view text) {
    const auto document = page(text);
    return document.paragraphs.empty() || document.paragraphs[0].runs.empty() ? html::Style{}
                                                                              : document.paragraphs[0].runs[0].style;
}

NSAttributedString *import(const std::string &text, NSDictionary *options = nil) {
    platform::prepareAppKit();
    NSData *data = [NSData dataWithBytes:text.data() length:text.size()];
    return [[[NSAttributedString alloc] initWithHTML:data
                                             options:options != nil ? options : @{}
                                  documentAttributes:nullptr] autorelease];
}

std::string utf8(NSString *string) {
    return [string UTF8String];
}

TEST(HTMLDocument, SeparatesBlocksAndCollapsesWhiteSpace) {
    EXPECT_THAT(texts(page("<h1>Title</h1>\n  <p>one\n two</p><div> three </div>tail<br>line")),
                ElementsAre("Title", "one two", "three", "tail\nline"));
}

TEST(HTMLDocument, NumbersAndBulletsListItemsAlsoWhenTheirEndIsMissing) {
    EXPECT_THAT(texts(page("<ul><li>a<li>b<ul><li>inner</ul><li>c</ul><ol start=3><li>x<li value=9>y<li></ol>")),
                ElementsAre("\u2022 a", "\u2022 b", "\u25E6 inner", "\u2022 c", "3. x", "9. y", "10. "));
}

TEST(HTMLDocument, DecodesEntities) {
    EXPECT_THAT(texts(page("a&amp;b &lt;c&gt; &eacute; &#233; &#x1F600; &nbsp;| &unknown;")),
                ElementsAre("a&b <c> \u00E9 \u00E9 \U0001F600 \u00A0| &unknown;"));
}

TEST(HTMLDocument, KeepsTheLinesOfPreformattedText) {
    const auto document = page("<pre>\nint a;\n  int b;\n</pre>");
    EXPECT_THAT(texts(document), ElementsAre("int a;\n  int b;"));
    EXPECT_TRUE(document.paragraphs[0].runs[0].style.monospaced);
}

TEST(HTMLDocument, LeavesOutWhatIsNoText) {
    const auto document = page("<head><title>T</title><script>if (a < b) x();</script></head><!-- c -->"
                               "<p style='display:none'>hidden</p><p>seen</p><template>t</template>");
    EXPECT_THAT(texts(document), ElementsAre("seen"));
    EXPECT_EQ(document.title, "T");
}

TEST(HTMLDocument, KnowsTheUsualInlineElements) {
    EXPECT_TRUE(styleOf("<strong>x</strong>").bold);
    EXPECT_TRUE(styleOf("<b>x</b>").bold);
    EXPECT_TRUE(styleOf("<em>x</em>").italic);
    EXPECT_TRUE(styleOf("<code>x</code>").monospaced);
    EXPECT_TRUE(styleOf("<u>x</u>").underlined);
    EXPECT_EQ(*styleOf("<a href=' https://example.org/a '>x</a>").link, "https://example.org/a");
    EXPECT_EQ(styleOf("<a name='x'>x</a>").link, nullptr);
}

TEST(HTMLDocument, ResolvesRelativeSizesAsACascade) {
    EXPECT_DOUBLE_EQ(styleOf("<h1>x</h1>").fontSize, 24);
    EXPECT_DOUBLE_EQ(styleOf("<style>html{font-size:62.5%} p{font-size:1.6rem}</style><p>x").fontSize, 12);
    EXPECT_DOUBLE_EQ(styleOf("<style>p{font-size:2em} *{font-size:50%}</style><p>x").fontSize, 6);
    EXPECT_DOUBLE_EQ(styleOf("<style>p{font-size:10px} .big{font-size:20px}</style><p class='a big'>x").fontSize, 20);
    EXPECT_DOUBLE_EQ(styleOf("<style>.big{font-size:20px}</style><p class=big style='font-size:7px'>x").fontSize, 7);
    EXPECT_DOUBLE_EQ(styleOf("<p>x</p><style>p{font-size:8px}</style>").fontSize, 8);
}

TEST(HTMLDocument, KeepsStrongTextStrongUnderAWeightForEverything) {
    EXPECT_TRUE(styleOf("<style>*{font-weight:300}</style><b>x").bold);
    EXPECT_FALSE(styleOf("<style>*{font-weight:300}</style>x").bold);
    EXPECT_FALSE(styleOf("<style>*{font-weight:700} b{font-weight:300}</style><b>x").bold);
    EXPECT_TRUE(styleOf("<style>*{font-weight:700}</style>x").bold);
}

TEST(HTMLDocument, CollapsesMarginsOfNeighbours) {
    const auto document = page("<style>p{margin:10px 0 4px 7px}h2{margin-top:6px}</style><p>a</p><h2>b</h2><p>c</p>");
    ASSERT_EQ(document.paragraphs.size(), 3U);
    EXPECT_DOUBLE_EQ(document.paragraphs[0].spaceBefore, 0);
    EXPECT_DOUBLE_EQ(document.paragraphs[0].indent, 7);
    EXPECT_DOUBLE_EQ(document.paragraphs[1].spaceBefore, 6);
    EXPECT_NEAR(document.paragraphs[2].spaceBefore, 0.83 * 18, 0.01);
}

TEST(HTMLDocument, ReadsColoursAndAlignment) {
    EXPECT_EQ(styleOf("<p style='color:#f80'>x").color, (html::Color{255, 136, 0}));
    EXPECT_EQ(styleOf("<p style='color: rgb(1, 50%, 300)'>x").color, (html::Color{1, 127, 255}));
    EXPECT_EQ(styleOf("<p style='COLOR:Navy !important'>x").color, (html::Color{0, 0, 128}));
    EXPECT_EQ(styleOf("<p style='color:nonsense'>x").color, std::nullopt);
    EXPECT_EQ(page("<center>x").paragraphs[0].alignment, html::Alignment::center);
}

TEST(HTMLDocument, SkipsRulesThatItDoesNotKnow) {
    EXPECT_DOUBLE_EQ(styleOf("<style>@media print{p{font-size:1px}} p:hover{font-size:2px} a p{font-size:3px}"
                             "/* p{font-size:4px} */ p{font-size:5;font-size:1e3px;font-size:-1px;width:6px}"
                             "@import 'x'; p{font-size:9px</style><p>x")
                         .fontSize,
                     9);
}

TEST(HTMLDocument, ReplacesWhatIsNoText) {
    EXPECT_EQ(html::validUtf8(std::string_view("a\0b\xff\xc0\xaf\xed\xa0\x80z", 10)),
              "a\uFFFDb\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDz");
    EXPECT_EQ(html::validUtf8("\xEF\xBB\xBF\u00E9\U0001F600"), "\u00E9\U0001F600");
    EXPECT_EQ(html::validUtf8("\xF0\x9F\x98"), "\uFFFD\uFFFD\uFFFD");
}

TEST(HTMLDocument, SurvivesBrokenPages) {
    for (const char *text : {"", "<", "<!--", "<p", "</p>", "<style>p{", "<a href='", "&#;&#xFFFFFFFF;", "<b></i></b>",
                             "</h4></li></ul>", "<ul></ol><li>", "<html><html><body><body>", "<table><td>"}) {
        EXPECT_NO_FATAL_FAILURE(static_cast<void>(page(text))) << text;
    }
    EXPECT_THAT(texts(page("<b>a<i>b</b>c</i></h4>d")), ElementsAre("abcd"));
}

TEST(HTMLDocument, KeepsTheTextInsideAHundredThousandElements) {
    std::string text;
    for (int i = 0; i < 100'000; ++i) {
        text += i % 2 == 0 ? "<div>" : "<b>";
    }
    EXPECT_THAT(texts(page(text + "deep")), ElementsAre("deep"));
    for (int i = 0; i < 100'000; ++i) {
        text += "</i>";
    }
    EXPECT_NO_FATAL_FAILURE(static_cast<void>(page(text)));
}

TEST(HTMLImport, GivesTextWithFontsAndLinks) {
    NSAttributedString *text = import("<h1>T</h1>see <a href='https://example.org/x'>here</a> <strong>now</strong>");
    const std::string content = utf8([text string]);
    EXPECT_TRUE(content.starts_with("T\n")) << content;
    EXPECT_TRUE(content.ends_with("see here now")) << content;
    NSFont *title = [text attribute:NSFontAttributeName atIndex:0 effectiveRange:nullptr];
    EXPECT_NEAR([title pointSize], 2 * [NSFont systemFontSize], 0.01);
    EXPECT_TRUE([[NSFontManager sharedFontManager] traitsOfFont:title] & NSBoldFontMask);
    const NSRange here = [[text string] rangeOfString:@"here"];
    NSRange range{};
    id link = [text attribute:NSLinkAttributeName atIndex:here.location effectiveRange:&range];
    EXPECT_EQ(utf8([link absoluteString]), "https://example.org/x");
    EXPECT_TRUE(NSEqualRanges(range, here));
    EXPECT_EQ([text attribute:NSLinkAttributeName atIndex:NSMaxRange(here) effectiveRange:nullptr], nil);
}

TEST(HTMLImport, WorksForItsRelativesAndSubclasses) {
    platform::prepareAppKit();
    NSData *data = [@"<p>a</p>" dataUsingEncoding:NSUTF8StringEncoding];
    NSDictionary *attributes = nil;
    NSMutableAttributedString *text = [[[NSMutableAttributedString alloc] initWithHTML:data
                                                                    documentAttributes:&attributes] autorelease];
    EXPECT_EQ(utf8([text string]), "a");
    EXPECT_TRUE([[attributes objectForKey:NSDocumentTypeDocumentAttribute] isEqual:NSHTMLTextDocumentType]);
    text =
        [[[NSMutableAttributedString alloc] initWithHTML:[@"<a href='b'>a</a>" dataUsingEncoding:NSUTF8StringEncoding]
                                                 baseURL:[NSURL URLWithString:@"http://example.org/c"]
                                      documentAttributes:nullptr] autorelease];
    EXPECT_EQ(utf8([[text attribute:NSLinkAttributeName atIndex:0 effectiveRange:nullptr] absoluteString]),
              "http://example.org/b");
}

TEST(HTMLImport, LeavesOtherTypesAlone) {
    platform::prepareAppKit();
    NSData *data = [@"{\\rtf1 plain}" dataUsingEncoding:NSASCIIStringEncoding];
    NSAttributedString *text = [[[NSAttributedString alloc] initWithRTF:data documentAttributes:nullptr] autorelease];
    EXPECT_EQ(utf8([text string]), "plain");
}

TEST(HTMLImport, ReadsTheEncodingThatIsDeclaredOrLikely) {
    const std::string expected = "\u00E9";
    EXPECT_EQ(utf8([import("\u00E9") string]), expected);
    EXPECT_EQ(utf8([import("\xE9") string]), expected);
    EXPECT_EQ(utf8([import("\xE9", @{NSTextEncodingNameDocumentOption : @"iso-8859-1"}) string]), expected);
    EXPECT_EQ(utf8([import(std::string("\xFF\xFE\xE9\0", 4)) string]), expected);
    EXPECT_EQ([import("") length], 0U);
}

// A view of a window that shows `page`, and the height of its layout.
double layoutHeight(const std::string &page) {
    NSTextView *view = [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 300, 400)] autorelease];
    [[view textStorage] setAttributedString:import(page)];
    static_cast<void>([[view layoutManager] glyphRangeForTextContainer:[view textContainer]]);
    return NSHeight([[view layoutManager] usedRectForTextContainer:[view textContainer]]);
}

TEST(HTMLImport, KeepsMarginsAsEmptySpace) {
    const double close = layoutHeight("<div>a</div><div>b</div>");
    const double wide = layoutHeight("<div>a</div><div style='margin-top:40px'>b</div>");
    EXPECT_NEAR(wide - close, 40, 3);
    EXPECT_NEAR(layoutHeight("<div>a</div><div style='margin-top:5px'>b</div>") - close, 5, 3);
}

} // namespace
