#include "HTMLStyleSheet.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace html {

namespace {

constexpr std::string_view whiteSpace = " \t\r\n\f";
// Longer style sheets and selectors than this are nobody's: the rest is left out.
constexpr std::size_t maximumRules = 20'000;

std::optional<double> parseNumber(std::string_view& text) {
    double value = 0;
    const char* first = text.data();
    if (text.starts_with('+')) {
        ++first;
    }
    const auto [end, error] = std::from_chars(first, text.data() + text.size(), value, std::chars_format::fixed);
    if (error != std::errc{} || !std::isfinite(value)) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return value;
}

std::optional<Length> parseLength(std::string_view text) {
    const auto value = parseNumber(text);
    if (!value) {
        return std::nullopt;
    }
    using enum Length::Unit;
    static const std::unordered_map<std::string_view, Length> units = {
        {"px", {1, points}},         {"pt", {4.0 / 3, points}}, {"pc", {16, points}},
        {"in", {96, points}},        {"em", {1, em}},           {"rem", {1, rem}},
        {"ex", {0.5, em}},           {"%", {1, percent}},       {"cm", {96 / 2.54, points}},
        {"mm", {96 / 25.4, points}},
    };
    if (text.empty()) {
        return *value == 0 ? std::optional(Length{}) : std::nullopt;
    }
    const auto unit = units.find(text);
    if (unit == units.end()) {
        return std::nullopt;
    }
    return Length{*value * unit->second.value, unit->second.unit};
}

std::optional<Length> parseFontSize(std::string_view text) {
    using enum Length::Unit;
    static const std::unordered_map<std::string_view, Length> names = {
        {"xx-small", {0.6, medium}}, {"x-small", {0.75, medium}}, {"small", {0.85, medium}},
        {"medium", {1, medium}},     {"large", {1.15, medium}},   {"x-large", {1.5, medium}},
        {"xx-large", {2, medium}},   {"smaller", {1 / 1.2, em}},  {"larger", {1.2, em}},
    };
    if (const auto name = names.find(text); name != names.end()) {
        return name->second;
    }
    const auto length = parseLength(text);
    return length && length->value >= 0 ? length : std::nullopt;
}

std::optional<bool> parseWeight(std::string_view text) {
    if (text == "bold" || text == "bolder") {
        return true;
    }
    if (text == "normal" || text == "lighter") {
        return false;
    }
    const auto number = parseNumber(text);
    return number && text.empty() ? std::optional(*number >= 600) : std::nullopt;
}

std::optional<Alignment> parseAlignment(std::string_view text) {
    using enum Alignment;
    static const std::unordered_map<std::string_view, Alignment> names = {
        {"left", left}, {"right", right}, {"center", center}, {"justify", justified}, {"start", natural}};
    const auto name = names.find(text);
    return name == names.end() ? std::nullopt : std::optional(name->second);
}

std::vector<std::string_view> words(std::string_view text) {
    std::vector<std::string_view> result;
    while (result.size() < 16) {
        text = trimmed(text);
        if (text.empty()) {
            break;
        }
        const auto end = std::min(text.find_first_of(whiteSpace), text.size());
        result.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return result;
}

// "margin: a", "a b", "a b c" or "a b c d": top, right, bottom, left.
void parseMargins(std::string_view text, Declarations& result) {
    const auto parts = words(text);
    if (parts.empty() || parts.size() > 4) {
        return;
    }
    const std::size_t bottom = parts.size() > 2 ? 2 : 0;
    const std::size_t left = parts.size() > 3 ? 3 : std::min<std::size_t>(1, parts.size() - 1);
    result.marginTop = parseLength(parts[0]);
    result.marginBottom = parseLength(parts[bottom]);
    result.marginLeft = parseLength(parts[left]);
}

template <class T> void assign(std::optional<T>& field, std::optional<T> value) {
    if (value) {
        field = std::move(value);
    }
}

using Setter = void (*)(Declarations&, std::string_view);

const std::unordered_map<std::string_view, Setter>& setters() {
    using D = Declarations;
    using V = std::string_view;
    static const std::unordered_map<std::string_view, Setter> table = {
        {"font-size", [](D& d, V v) { assign(d.fontSize, parseFontSize(v)); }},
        {"font-weight", [](D& d, V v) { assign(d.bold, parseWeight(v)); }},
        {"font-style", [](D& d, V v) { d.italic = v.starts_with("italic") || v.starts_with("oblique"); }},
        {"font-family", [](D& d, V v) { d.monospaced = v.find("mono") != V::npos || v.find("courier") != V::npos; }},
        {"text-decoration", [](D& d, V v) { d.underlined = v.find("underline") != V::npos; }},
        {"white-space", [](D& d, V v) { d.preformatted = v.starts_with("pre"); }},
        {"display", [](D& d, V v) { d.hidden = v == "none"; }},
        {"margin", [](D& d, V v) { parseMargins(v, d); }},
        {"margin-top", [](D& d, V v) { assign(d.marginTop, parseLength(v)); }},
        {"margin-bottom", [](D& d, V v) { assign(d.marginBottom, parseLength(v)); }},
        {"margin-left", [](D& d, V v) { assign(d.marginLeft, parseLength(v)); }},
        {"color", [](D& d, V v) { assign(d.color, parseColor(v)); }},
        {"text-align", [](D& d, V v) { assign(d.alignment, parseAlignment(v)); }},
    };
    return table;
}

std::optional<Color> parseHexColor(std::string_view digits) {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (error != std::errc{} || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    const auto channel = [&](unsigned shift, unsigned bits) {
        const unsigned part = (value >> shift) & ((1U << bits) - 1);
        return static_cast<std::uint8_t>(bits == 4 ? part * 17 : part);
    };
    if (digits.size() == 3) {
        return Color{channel(8, 4), channel(4, 4), channel(0, 4)};
    }
    return digits.size() == 6 ? std::optional(Color{channel(16, 8), channel(8, 8), channel(0, 8)}) : std::nullopt;
}

std::optional<Color> parseRgbColor(std::string_view text) {
    std::array<std::uint8_t, 3> channels{};
    for (auto& channel : channels) {
        const auto start = text.find_first_not_of(" ,\t");
        if (start == std::string_view::npos) {
            return std::nullopt;
        }
        text.remove_prefix(start);
        const auto number = parseNumber(text);
        if (!number) {
            return std::nullopt;
        }
        const double scale = text.starts_with('%') ? 2.55 : 1;
        text.remove_prefix(scale > 1 ? 1 : 0);
        channel = static_cast<std::uint8_t>(std::clamp(std::round(*number * scale), 0.0, 255.0));
    }
    return Color{channels[0], channels[1], channels[2]};
}

std::string withoutComments(std::string_view text) {
    std::string result;
    while (true) {
        const auto start = text.find("/*");
        result.append(text.substr(0, start));
        if (start == std::string_view::npos) {
            return result;
        }
        result.push_back(' ');
        const auto end = text.find("*/", start + 2);
        if (end == std::string_view::npos) {
            return result;
        }
        text.remove_prefix(end + 2);
    }
}

// The length of the block that begins behind an opening brace, its closing brace excluded.
std::size_t blockLength(std::string_view text) {
    std::size_t depth = 1;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '{') {
            ++depth;
        } else if (text[i] == '}' && --depth == 0) {
            return i;
        }
    }
    return text.size();
}

} // namespace

double Length::resolve(const Bases& bases) const {
    switch (unit) {
    case Unit::points:
        return value;
    case Unit::em:
        return value * bases.em;
    case Unit::rem:
        return value * bases.root;
    case Unit::percent:
        return value * bases.em / 100;
    case Unit::medium:
        return value * bases.medium;
    }
    return value;
}

void Declarations::merge(const Declarations& later) {
    assign(fontSize, later.fontSize);
    assign(bold, later.bold);
    assign(italic, later.italic);
    assign(monospaced, later.monospaced);
    assign(underlined, later.underlined);
    assign(preformatted, later.preformatted);
    assign(hidden, later.hidden);
    assign(marginTop, later.marginTop);
    assign(marginBottom, later.marginBottom);
    assign(marginLeft, later.marginLeft);
    assign(color, later.color);
    assign(alignment, later.alignment);
}

Declarations parseDeclarations(std::string_view text) {
    Declarations result;
    while (!text.empty()) {
        const auto end = std::min(text.find(';'), text.size());
        const auto declaration = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        const auto colon = declaration.find(':');
        if (colon == std::string_view::npos) {
            continue;
        }
        const auto setter = setters().find(lowered(trimmed(declaration.substr(0, colon))));
        if (setter != setters().end()) {
            const std::string value = lowered(declaration.substr(colon + 1));
            setter->second(result, trimmed(std::string_view(value).substr(0, value.find('!'))));
        }
    }
    return result;
}

void StyleSheet::add(std::string_view text) {
    const std::string plain = withoutComments(text);
    std::string_view rest = plain;
    while (!rest.empty()) {
        const auto open = rest.find_first_of("{;");
        if (open == std::string_view::npos) {
            return;
        }
        const auto selectors = trimmed(rest.substr(0, open));
        const bool statement = rest[open] == ';';
        rest.remove_prefix(open + 1);
        if (statement) {
            continue;
        }
        const auto length = blockLength(rest);
        if (!selectors.starts_with('@')) {
            addRule(selectors, rest.substr(0, length));
        }
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
}

void StyleSheet::addRule(std::string_view selectors, std::string_view body) {
    const Declarations declarations = parseDeclarations(body);
    while (!selectors.empty()) {
        const auto end = std::min(selectors.find(','), selectors.size());
        const auto selector = trimmed(selectors.substr(0, end));
        selectors.remove_prefix(std::min(end + 1, selectors.size()));
        const bool simple = !selector.empty() && selector.find_first_of(" \t\r\n\f:#>+~[") == std::string_view::npos;
        if (simple && (rules_.size() < maximumRules || rules_.contains(std::string(selector)))) {
            rules_[lowered(selector)].merge(declarations);
        }
    }
}

Declarations StyleSheet::match(std::string_view element, std::span<const std::string_view> classes) const {
    Declarations result;
    if (const auto all = rules_.find("*"); all != rules_.end()) {
        result = all->second;
    }
    apply(result, element, classes);
    return result;
}

bool StyleSheet::mentionsWeight(std::string_view element, std::span<const std::string_view> classes) const {
    Declarations result;
    apply(result, element, classes);
    return result.bold.has_value();
}

void StyleSheet::apply(Declarations& result, std::string_view element,
                       std::span<const std::string_view> classes) const {
    if (rules_.empty()) {
        return;
    }
    const auto merge = [&](const std::string& selector) {
        if (const auto rule = rules_.find(selector); rule != rules_.end()) {
            result.merge(rule->second);
        }
    };
    merge(std::string(element));
    for (const auto name : classes) {
        const std::string selector = "." + lowered(name);
        merge(selector);
        merge(std::string(element) + selector);
    }
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(whiteSpace);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return result;
}

std::optional<Color> parseColor(std::string_view text) {
    static const std::unordered_map<std::string_view, Color> names = {
        {"black", {0, 0, 0}},       {"silver", {192, 192, 192}}, {"gray", {128, 128, 128}}, {"grey", {128, 128, 128}},
        {"white", {255, 255, 255}}, {"maroon", {128, 0, 0}},     {"red", {255, 0, 0}},      {"purple", {128, 0, 128}},
        {"fuchsia", {255, 0, 255}}, {"green", {0, 128, 0}},      {"lime", {0, 255, 0}},     {"olive", {128, 128, 0}},
        {"yellow", {255, 255, 0}},  {"navy", {0, 0, 128}},       {"blue", {0, 0, 255}},     {"teal", {0, 128, 128}},
        {"aqua", {0, 255, 255}},    {"orange", {255, 165, 0}},
    };
    const std::string value = lowered(trimmed(text));
    if (const auto name = names.find(value); name != names.end()) {
        return name->second;
    }
    if (value.starts_with('#')) {
        return parseHexColor(std::string_view(value).substr(1));
    }
    const auto parenthesis = value.find('(');
    if (value.starts_with("rgb") && parenthesis != std::string::npos) {
        return parseRgbColor(std::string_view(value).substr(parenthesis + 1));
    }
    return std::nullopt;
}

} // namespace html
