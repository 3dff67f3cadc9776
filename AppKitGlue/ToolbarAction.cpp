#include "ToolbarAction.h"

namespace appkitglue {

std::optional<ToolbarAction> ToolbarAction::fromRawValue(std::int64_t code) noexcept {
    if (code < addSlide || code > themes)
        return std::nullopt;
    return ToolbarAction(static_cast<Case>(code));
}

} // namespace appkitglue
