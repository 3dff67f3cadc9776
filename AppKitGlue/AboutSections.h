// The acknowledged libraries, fonts and icons, and the page that shows them.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace appkitglue {

namespace ui {
class View;
struct ViewEnvironment;
} // namespace ui

/// One acknowledged library, font or icon set.
struct Library {
    std::string name;
    std::string author;
    /// Address of the project page.
    std::string urlString;

    const std::string& id() const { return name; }
    /// Opens the project page; does nothing if `urlString` is no address.
    void open(const ui::ViewEnvironment& environment) const;
    /// The row of this library on the About screen.
    ui::View body() const;
    friend bool operator==(const Library&, const Library&) = default;
};

/// A heading with its rows in display order.
struct AboutSection {
    std::string title;
    std::vector<Library> libraries;

    const std::string& id() const { return title; }
    /// The block of this section on the About screen: its rows by name, the greatest first.
    ui::View body() const;
    friend bool operator==(const AboutSection&, const AboutSection&) = default;
};

namespace AboutSections {

/// The title of the page and of the screen.
inline constexpr std::string_view aboutTitle = "About Quorvel";
/// Two sentences without final punctuation.
inline constexpr std::pair<std::string_view, std::string_view> aboutIntro{
    "Quorvel uses several open source solutions", "I wouldn't have been able to develop it without them"};
/// Address of the product's website.
inline constexpr std::string_view website = "https://quorvel.example";

/// The three sections; built on first use and shared. Some names end in a blank.
const std::vector<AboutSection>& allSections();

/// The page as an HTML document, for the host application's `version` and `build`. Nothing is escaped.
std::string aboutPageHTML(std::string_view version, std::string_view build);

/// `pageTemplate` with each "{content}" replaced by `content`, which itself is not searched.
std::string filledTemplate(std::string_view pageTemplate, std::string_view content);

/// The page without its content.
std::string_view pageTemplate() noexcept;

} // namespace AboutSections

} // namespace appkitglue
