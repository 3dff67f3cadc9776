// Menus as plain data, with their JSON form.
#pragma once

#include "DecodingError.h"

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace appkitglue {

/// A point; what its coordinates are relative to is settled by the host that makes the menu event.
struct MenuPoint {
    double x = 0;
    double y = 0;

    /// Reads `{"x":…,"y":…}`.
    static std::expected<MenuPoint, DecodingError> decode(std::string_view json);
    /// Writes `{"x":…,"y":…}`; fails for coordinates that are not finite.
    std::expected<std::string, EncodingError> encode() const;
    friend bool operator==(const MenuPoint&, const MenuPoint&) = default;
};

/// One entry of a menu: an actionable item, a titled submenu or a separator.
class MenuItem {
public:
    struct Item {
        std::string title;
        /// The code that is reported when the entry is chosen.
        std::int64_t tag = 0;
        /// Name of a system symbol image.
        std::string image;
        friend bool operator==(const Item&, const Item&) = default;
    };
    struct Nested {
        std::string title;
        /// Name of a system symbol image.
        std::string image;
        std::vector<MenuItem> items;
        friend bool operator==(const Nested& a, const Nested& b);
    };
    struct Separator {
        friend bool operator==(const Separator&, const Separator&) = default;
    };

    /// A separator.
    MenuItem() : m_entry(Separator{}) {}
    static MenuItem item(std::string title, std::int64_t tag, std::string image);
    static MenuItem nested(std::string title, std::string image, std::vector<MenuItem> items);
    static MenuItem separator() { return {}; }

    const std::variant<Item, Nested, Separator>& entry() const { return m_entry; }

    /// A fresh list with the entries of the insert menu.
    static std::vector<MenuItem> insertionStructure();
    /// A fresh list with the entries of the media menu.
    static std::vector<MenuItem> mediaStructure();

    /// Reads one entry. An unknown `typeTag` is no decoding error: it ends the process.
    static std::expected<MenuItem, DecodingError> decode(std::string_view json);
    /// Writes the entry; the children of a submenu stand in an array inside the array `nested`.
    std::expected<std::string, EncodingError> encode() const;
    friend bool operator==(const MenuItem&, const MenuItem&) = default;

private:
    std::variant<Item, Nested, Separator> m_entry;
};

/// The wish for a menu at a point.
struct MenuEvent {
    MenuPoint location;
    /// The entries from top to bottom.
    std::vector<MenuItem> items;

    /// Reads `{"location":…,"items":[…]}`. An unknown `typeTag` ends the process.
    static std::expected<MenuEvent, DecodingError> decode(std::string_view json);
    /// Writes `{"location":…,"items":[…]}`.
    std::expected<std::string, EncodingError> encode() const;
    friend bool operator==(const MenuEvent&, const MenuEvent&) = default;
};

} // namespace appkitglue
