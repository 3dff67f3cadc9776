#include "HTMLBuilder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <unordered_set>

namespace html {

namespace {

constexpr std::size_t maximumDepth = 300'000;
constexpr double listIndent = 24;
constexpr double maximumIndent = 400;

// What a browser does to plain pages.
constexpr std::string_view defaultRules = R"(
h1 { font-size: 2em; font-weight: bold; margin: .67em 0 }
h2 { font-size: 1.5em; font-weight: bold; margin: .83em 0 }
h3 { font-size: 1.17em; font-weight: bold; margin: 1em 0 }
h4 { font-weight: bold; margin: 1.33em 0 }
h5 { font-size: .83em; font-weight: bold; margin: 1.67em 0 }
h6 { font-size: .67em; font-weight: bold; margin: 2.33em 0 }
p, ul, ol, dl, pre { margin: 1em 0 }
blockquote { margin: 1em 40px }
dd { margin-left: 40px }
b, strong, th { font-weight: bold }
i, em, cite, var, dfn, address { font-style: italic }
code, kbd, samp, tt, pre { font-family: monospace }
pre { white-space: pre }
u, ins { text-decoration: underline }
small, sub, sup { font-size: smaller }
big { font-size: larger }
center, th, caption { text-align: center }
head, script, style, title, template, option, textarea, iframe, object { display: none }
)";

const StyleSheet& defaultSheet() {
    static const StyleSheet sheet = [] {
        StyleSheet result;
        result.add(defaultRules);
        return result;
    }();
    return sheet;
}

bool isBlock(std::string_view name) {
    static const std::unordered_set<std::string_view> names = {
        "html",    "body",  "p",    "div",     "h1",       "h2",      "h3",         "h4",      "h5",         "h6",
        "ul",      "ol",    "li",   "dl",      "dt",       "dd",      "pre",        "hr",      "blockquote", "center",
        "tr",      "table", "form", "main",    "section",  "article", "header",     "footer",  "nav",        "aside",
        "address", "dir",   "menu", "caption", "fieldset", "figure",  "figcaption", "details", "summary",    "legend",
    };
    return names.contains(name);
}

std::string_view attribute(const Attributes& attributes, std::string_view name) {
    const auto found = std::ranges::find(attributes, name, &Attributes::value_type::first);
    return found == attributes.end() ? std::string_view() : found->second;
}

std::vector<std::string_view> classes(std::string_view text) {
    std::vector<std::string_view> result;
    for (text = trimmed(text); !text.empty() && result.size() < 16; text = trimmed(text)) {
        const auto end = std::min(text.find_first_of(" \t\r\n\f"), text.size());
        result.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return result;
}

int numberOr(std::string_view text, int otherwise) {
    int value = otherwise;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return std::clamp(value, -1'000'000'000, 1'000'000'000);
}

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

template <class T> void assign(T& field, const std::optional<T>& value) {
    if (value) {
        field = *value;
    }
}

} // namespace

Builder::Builder(double fontSize, StyleSheet sheet)
    : fontSize_(fontSize), rootSize_(fontSize), sheet_(std::move(sheet)) {
    Element root;
    root.style.fontSize = fontSize;
    root.block = true;
    elements_.push_back(std::move(root));
}

bool Builder::startElement(std::string_view name, const Attributes& attributes) {
    if (elements_.size() > maximumDepth) {
        return false;
    }
    Element element{.name = std::string(name),
                    .style = top().style,
                    .indent = top().indent,
                    .alignment = top().alignment,
                    .block = isBlock(name),
                    .preformatted = top().preformatted,
                    .hidden = top().hidden};
    applyStyle(element, attributes);
    if (!element.hidden) {
        if (element.block) {
            startBlock(element, attributes);
        } else {
            startSpecial(element, attributes);
        }
    }
    elements_.push_back(std::move(element));
    return true;
}

void Builder::applyStyle(Element& element, const Attributes& attributes) {
    const auto names = classes(attribute(attributes, "class"));
    Declarations rules = defaultSheet().match(element.name, {});
    const std::optional<bool> strong = rules.bold;
    rules.merge(sheet_.match(element.name, names));
    // Pages give everything a light weight and mean their plain text: what is strong by itself stays strong.
    if (strong && !sheet_.mentionsWeight(element.name, names)) {
        rules.bold = strong;
    }
    if (const auto own = attribute(attributes, "style"); !own.empty()) {
        rules.merge(parseDeclarations(own));
    }
    Style& style = element.style;
    Length::Bases bases{.em = style.fontSize, .root = rootSize_, .medium = fontSize_};
    if (rules.fontSize) {
        style.fontSize = std::clamp(rules.fontSize->resolve(bases), 1.0, 400.0);
    }
    if (element.name == "html") {
        rootSize_ = style.fontSize;
    }
    assign(style.bold, rules.bold);
    assign(style.italic, rules.italic);
    assign(style.monospaced, rules.monospaced);
    assign(element.preformatted, rules.preformatted);
    assign(element.alignment, rules.alignment);
    style.underlined = rules.underlined.value_or(style.underlined);
    style.color = rules.color ? rules.color : style.color;
    element.hidden = element.hidden || rules.hidden.value_or(false);
    bases = {.em = style.fontSize, .root = rootSize_, .medium = fontSize_};
    const auto margin = [&](const std::optional<Length>& length) {
        return length && element.block ? std::clamp(length->resolve(bases), 0.0, maximumIndent) : 0.0;
    };
    element.marginTop = margin(rules.marginTop);
    element.marginBottom = margin(rules.marginBottom);
    element.indent = std::min(element.indent + margin(rules.marginLeft), maximumIndent);
}

void Builder::startBlock(Element& element, const Attributes& attributes) {
    endParagraph();
    space_ = std::max(space_, element.marginTop);
    if (element.name == "ul" || element.name == "ol" || element.name == "dir" || element.name == "menu") {
        startList(element, attributes);
    } else if (element.name == "li") {
        startItem(attributes);
    }
}

void Builder::startList(Element& element, const Attributes& attributes) {
    element.list = element.name == "ol" ? List::numbered : List::bulleted;
    element.number = numberOr(attribute(attributes, "start"), 1);
    element.indent = std::min(element.indent + listIndent, maximumIndent);
    if (!lists_.empty()) {
        // A list in a list keeps to its item.
        space_ = 0;
        element.marginBottom = 0;
    }
    lists_.push_back(elements_.size());
}

void Builder::startItem(const Attributes& attributes) {
    static constexpr std::array<std::string_view, 3> bullets = {"\u2022", "\u25E6", "\u25AA"};
    if (lists_.empty() || elements_[lists_.back()].list == List::bulleted) {
        marker_ = bullets[(std::max<std::size_t>(lists_.size(), 1) - 1) % bullets.size()];
        return;
    }
    int& number = elements_[lists_.back()].number;
    number = numberOr(attribute(attributes, "value"), number);
    marker_ = std::to_string(number++) + ".";
}

void Builder::startSpecial(Element& element, const Attributes& attributes) {
    if (element.name == "br") {
        lineBreak();
    } else if (element.name == "img") {
        characters(attribute(attributes, "alt"));
    } else if ((element.name == "td" || element.name == "th") && open_) {
        append("\t");
        afterSpace_ = true;
    } else if (element.name == "a") {
        if (const auto address = trimmed(attribute(attributes, "href")); !address.empty()) {
            element.style.link = std::make_shared<const std::string>(address);
        }
    }
}

void Builder::endElement(std::string_view name) {
    // The parser balances its events all but always; a stray end is searched for no further than this.
    constexpr std::size_t reach = 64;
    const std::size_t depth = std::min(elements_.size() - 1, reach);
    const auto found = std::find_if(elements_.rbegin(), elements_.rbegin() + static_cast<std::ptrdiff_t>(depth),
                                    [&](const Element& element) { return element.name == name; });
    if (found == elements_.rbegin() + static_cast<std::ptrdiff_t>(depth)) {
        return;
    }
    for (auto count = found - elements_.rbegin() + 1; count > 0; --count) {
        closeTop();
    }
}

void Builder::closeTop() {
    const Element& element = top();
    if (element.block && !element.hidden) {
        if (element.name == "li" && !marker_.empty()) {
            openParagraph();
        }
        endParagraph();
        space_ = std::max(space_, element.marginBottom);
    }
    if (element.list != List::none) {
        lists_.pop_back();
    }
    elements_.pop_back();
}

void Builder::characters(std::string_view text) {
    if (top().name == "title") {
        document_.title += text;
    } else if (top().hidden) {
        return;
    } else if (top().preformatted) {
        appendPreformatted(text);
    } else {
        appendCollapsed(text);
    }
}

void Builder::appendCollapsed(std::string_view text) {
    std::string collapsed;
    for (const char c : text) {
        if (!isSpace(c)) {
            collapsed.push_back(c);
            afterSpace_ = false;
        } else if (!afterSpace_) {
            collapsed.push_back(' ');
            afterSpace_ = true;
        }
    }
    append(collapsed);
}

void Builder::appendPreformatted(std::string_view text) {
    std::string lines(text);
    std::erase(lines, '\r');
    if (!open_ && lines.starts_with('\n')) {
        lines.erase(0, 1);
    }
    append(lines);
    afterSpace_ = !lines.empty() && lines.back() == '\n';
}

void Builder::append(std::string_view text) {
    if (text.empty()) {
        return;
    }
    openParagraph();
    const Style& style = top().style;
    auto& runs = paragraph_.runs;
    if (runs.empty() || runs.back().style != style) {
        runs.push_back({std::string(text), style});
    } else {
        runs.back().text += text;
    }
}

void Builder::lineBreak() {
    append("\n");
    afterSpace_ = true;
}

void Builder::openParagraph() {
    if (open_) {
        return;
    }
    paragraph_ = Paragraph{.runs = {},
                           .spaceBefore = document_.paragraphs.empty() ? 0 : space_,
                           .indent = top().indent,
                           .marker = std::exchange(marker_, {}),
                           .style = top().style,
                           .alignment = top().alignment};
    paragraph_.style.link = nullptr;
    space_ = 0;
    open_ = true;
}

// Ends the paragraph that is open: its last line break and a space at its end show nothing.
void Builder::endParagraph() {
    afterSpace_ = true;
    if (!open_) {
        return;
    }
    open_ = false;
    auto& runs = paragraph_.runs;
    if (!runs.empty()) {
        std::string& last = runs.back().text;
        if (!last.empty() && (last.back() == '\n' || last.back() == ' ')) {
            last.pop_back();
        }
        if (last.empty()) {
            runs.pop_back();
        }
    }
    document_.paragraphs.push_back(std::move(paragraph_));
}

Document Builder::finish() {
    while (elements_.size() > 1) {
        closeTop();
    }
    endParagraph();
    return std::move(document_);
}

} // namespace html
