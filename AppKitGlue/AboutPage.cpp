#include "AboutSections.h"

namespace appkitglue::AboutSections {

namespace {

constexpr std::string_view marker = "{content}";

// The unit missing behind margin-top is part of the page.
constexpr std::string_view emptyPage =
    "<html><style>\n"
    "*,*:after,*:before{box-sizing:inherit}html{box-sizing:border-box;font-size:62.5%}\n"
    "* { font-family: Sans-Serif; font-size:1.1em;font-weight:300;letter-spacing:.01em;line-height:1.6 }\n"
    "h1,h2,h3,h4,h5,h6{font-weight:700;letter-spacing:-.1rem;margin-bottom:0.3rem;margin-top:1.0}"
    "h1{font-size:4.6rem;line-height:1.2}h2{font-size:3.6rem;line-height:1.25}h3{font-size:2.8rem;line-height:1.3}"
    "h4{font-size:2.2rem;letter-spacing:-.08rem;line-height:1.35}"
    "h5{font-size:1.8rem;letter-spacing:-.05rem;line-height:1.5}h6{font-size:1.6rem;letter-spacing:0;line-height:1.4}\n"
    "p { font-size: 1.6rem; }\n"
    "li { line-height: 1.5rem; }\n"
    "</style>\n"
    "<body>\n"
    "{content}\n"
    "</body>\n"
    "</html>";

void append(std::string& text, std::initializer_list<std::string_view> parts) {
    for (const std::string_view part : parts)
        text += part;
}

void appendSection(std::string& page, const AboutSection& section) {
    append(page, {"<div class='section'><br/><h6>", section.title, "</h6><ul class='lib'>"});
    // Entries end in </h4> and have no closing tag of their own: the importer's spacing depends on it.
    for (const Library& library : section.libraries)
        append(page, {"<li><a href='", library.urlString, "'>", library.name, "</a> by <strong>", library.author,
                      "</strong></h4>"});
    append(page, {"</ul></div><br/>"});
}

} // namespace

std::string_view pageTemplate() noexcept {
    return emptyPage;
}

std::string filledTemplate(std::string_view pageTemplate, std::string_view content) {
    std::string page;
    for (std::size_t found; (found = pageTemplate.find(marker)) != std::string_view::npos;) {
        append(page, {pageTemplate.substr(0, found), content});
        pageTemplate.remove_prefix(found + marker.size());
    }
    page += pageTemplate;
    return page;
}

std::string aboutPageHTML(std::string_view version, std::string_view build) {
    std::string content;
    append(content, {"<h3>", aboutTitle, "</h3><br/>"});
    append(content, {"<h5><b>Version:</b> ", version, ", <b>Build:</b> ", build, "</h5><br/>"});
    append(content, {"<p>", aboutIntro.first, ".", aboutIntro.second, ".</p><br/>"});
    append(content, {"<p><a href='", website, "'>Quorvel Website</a></p><br/>"});
    for (const AboutSection& section : allSections())
        appendSection(content, section);
    return filledTemplate(emptyPage, content);
}

} // namespace appkitglue::AboutSections
