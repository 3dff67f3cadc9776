// The steps of the startup tutorial.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace appkitglue {

/// A step of the tutorial; the case names are what is reported when the window closes.
class Steps {
public:
    enum Case : std::int64_t { begin = 0, animateDrawing = 1, tm1 = 2, tm2 = 3, tm3 = 4, tm4 = 5 };

    /// The metric that is posted when the tutorial's window closes.
    static constexpr std::string_view closeMetric = "macOStutorialScreenClose";

    constexpr Steps(Case step) : m_case(step) {}
    /// The step with this raw value; none outside 0 to 5.
    static std::optional<Steps> fromRawValue(std::int64_t rawValue) noexcept;
    /// The step that the pager button with this tag (1 to 4) leads to; none for any other tag.
    static std::optional<Steps> forPagerTag(std::int64_t tag) noexcept;

    constexpr std::int64_t rawValue() const { return m_case; }
    constexpr operator Case() const { return m_case; }

    /// The step that the next button leads to; the last one leads to itself.
    Steps next() const noexcept;
    /// The step when the drawing of the introduction begins to slide: one on, up to the last.
    Steps advanced() const noexcept;
    /// Which content box and which pager button belong to the step, counted from 0; none before the first page.
    std::optional<std::size_t> pageIndex() const noexcept;
    /// The text under the content box; empty before the first page.
    std::string_view description() const noexcept;
    /// The case name.
    std::string_view name() const noexcept;
    /// What is reported when the window closes on this step.
    std::string closePayload(bool sampleDocumentRequested) const;

private:
    Case m_case;
};

} // namespace appkitglue
