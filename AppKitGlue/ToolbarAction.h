// The action codes that cross to the host.
#pragma once

#include <cstdint>
#include <optional>

namespace appkitglue {

/// What a toolbar control or a menu entry asks the host to do. The raw value is what crosses to the host.
class ToolbarAction {
public:
    enum Case : std::int64_t {
        addSlide = 1,
        media = 2,
        headlineLevel1 = 3,
        headlineLevel2 = 4,
        headlineLevel3 = 5,
        quote = 6,
        numberedList = 7,
        bulletedList = 8,
        code = 9,
        footnote = 10,
        table = 11,
        website = 12,
        comment = 13,
        inspector = 14,
        report = 15,
        document = 16,
        arrange = 17,
        play = 18,
        /// Sent by no control of the bundle; their meaning is the host's alone.
        hostDefined19 = 19,
        hostDefined20 = 20,
        insert = 21,
        themes = 22,
    };

    /// Names of the selectors that the host's delegate implements. Each argument travels as an object.
    static constexpr const char* selectorForAction = "toolbarActionForAction:";
    static constexpr const char* selectorForSearch = "toolbarActionForSearch:";
    static constexpr const char* selectorForPopover = "toolbarActionForPopover:CGRect:";

    constexpr ToolbarAction(Case action) : m_case(action) {}
    /// The action with this code; none for a code outside 1 to 22.
    static std::optional<ToolbarAction> fromRawValue(std::int64_t code) noexcept;

    constexpr std::int64_t rawValue() const { return m_case; }
    constexpr operator Case() const { return m_case; }

private:
    Case m_case;
};

} // namespace appkitglue
