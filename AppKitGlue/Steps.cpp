#include "Steps.h"

#include <array>

namespace appkitglue {

namespace {

struct Row {
    std::string_view name;
    std::string_view description;
};

constexpr std::array<Row, 6> rows{{
    {"begin", ""},
    {"animateDrawing", ""},
    {"tm1", "Quorvel is Split Into a Markdown Editor and a Slide Preview"},
    {"tm2", "Modify the Current Slide or Element with Action Buttons"},
    {"tm3", "Document Overrides Allow Setting Headers, Footers or Custom Animations"},
    {"tm4", "Quickly Reorder Slides in the Reorder Mode"},
}};

} // namespace

std::optional<Steps> Steps::fromRawValue(std::int64_t rawValue) noexcept {
    if (rawValue < begin || rawValue > tm4)
        return std::nullopt;
    return Steps(static_cast<Case>(rawValue));
}

std::optional<Steps> Steps::forPagerTag(std::int64_t tag) noexcept {
    // Compared first: the largest integer has no successor.
    if (tag < 1 || tag > 4)
        return std::nullopt;
    return fromRawValue(tag + 1);
}

Steps Steps::next() const noexcept {
    return m_case < tm1 ? Steps(tm1) : advanced();
}

Steps Steps::advanced() const noexcept {
    return m_case < tm4 ? static_cast<Case>(m_case + 1) : m_case;
}

std::optional<std::size_t> Steps::pageIndex() const noexcept {
    if (m_case < tm1)
        return std::nullopt;
    return static_cast<std::size_t>(m_case - tm1);
}

std::string_view Steps::description() const noexcept {
    return rows[std::size_t(m_case)].description;
}

std::string_view Steps::name() const noexcept {
    return rows[std::size_t(m_case)].name;
}

std::string Steps::closePayload(bool sampleDocumentRequested) const {
    return std::string(name()) + (sampleDocumentRequested ? "-sample" : "");
}

} // namespace appkitglue
