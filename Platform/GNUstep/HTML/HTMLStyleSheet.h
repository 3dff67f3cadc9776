// The part of CSS that matters for text: rules for elements and classes with sizes, weight, margins and colours.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace html {

/// A colour of the page, opaque.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Color&) const = default;
};

/// A length as written: a number with its unit.
struct Length {
    enum class Unit : std::uint8_t { points, em, rem, percent, medium };
    double value = 0;
    Unit unit = Unit::points;
    bool operator==(const Length&) const = default;

    /// What relative units refer to, in points: the font size around, the root element's and the one of plain text.
    struct Bases {
        double em = 0;
        double root = 0;
        double medium = 0;
    };

    /// The length in points.
    [[nodiscard]] double resolve(const Bases& bases) const;
};

enum class Alignment : std::uint8_t { natural, left, right, center, justified };

/// What one rule says. Properties that it does not mention are absent; unknown ones are dropped.
struct Declarations {
    std::optional<Length> fontSize;
    std::optional<bool> bold;
    std::optional<bool> italic;
    std::optional<bool> monospaced;
    std::optional<bool> underlined;
    std::optional<bool> preformatted;
    std::optional<bool> hidden;
    std::optional<Length> marginTop;
    std::optional<Length> marginBottom;
    std::optional<Length> marginLeft;
    std::optional<Color> color;
    std::optional<Alignment> alignment;

    /// Takes over what `later` mentions.
    void merge(const Declarations& later);
};

/// Reads the inside of a rule or of a style attribute: "property: value; ...". Never fails: what it does not
/// understand it leaves out.
[[nodiscard]] Declarations parseDeclarations(std::string_view text);

/// The rules of a page, later ones over earlier ones. Selectors that are no plain element, class, element with class or
/// "*" are left out, as are at-rules.
class StyleSheet {
public:
    /// Adds the rules of a style element's text.
    void add(std::string_view text);

    /// What the rules say of an element (lower-case name) with these classes: "*" first, then the element, then its
    /// classes.
    [[nodiscard]] Declarations match(std::string_view element, std::span<const std::string_view> classes) const;

    /// Whether a rule other than that for "*" gives such an element a font weight.
    [[nodiscard]] bool mentionsWeight(std::string_view element, std::span<const std::string_view> classes) const;

private:
    void apply(Declarations& result, std::string_view element, std::span<const std::string_view> classes) const;
    void addRule(std::string_view selectors, std::string_view body);

    std::unordered_map<std::string, Declarations> rules_;
};

/// `text` without white space at both ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);
/// `text` in lower case (ASCII letters only).
[[nodiscard]] std::string lowered(std::string_view text);
/// Reads "#rgb", "#rrggbb", "rgb(r, g, b)" or one of the basic colour names.
[[nodiscard]] std::optional<Color> parseColor(std::string_view text);

} // namespace html
