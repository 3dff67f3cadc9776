#include "FatalError.h"
#include "JSONCoding.h"
#include "MenuItem+Ext.h"

#include "ToolbarAction.h"

namespace appkitglue {

namespace {

// The element of the array "nested": the array of children.
struct Children {
    std::vector<MenuItem>& items;
};
bool decode(const json::Value& value, Children& children);

// The array "nested" itself.
struct Wrapped {
    Children children;
};
bool decode(const json::Value& value, Wrapped& wrapped) {
    return value.firstElement(wrapped.children);
}

// Whatever stands there.
struct Ignored {};
bool decode(const json::Value&, Ignored&) {
    return true;
}

void encode(json::Writer& writer, const MenuItem::Item& item) {
    writer.member("itemTitle", item.title);
    writer.member("itemImage", item.image);
    writer.member("itemTag", item.tag);
    writer.member("typeTag", "item");
}

void encode(json::Writer& writer, const MenuItem::Nested& nested);

void encode(json::Writer& writer, const MenuItem::Separator&) {
    writer.member("typeTag", "separator");
}

} // namespace

bool operator==(const MenuItem::Nested& a, const MenuItem::Nested& b) {
    return a.title == b.title && a.image == b.image && a.items == b.items;
}

static bool decode(const json::Value& value, MenuPoint& point) {
    return value.member("x", point.x) && value.member("y", point.y);
}

static void encode(json::Writer& writer, const MenuPoint& point) {
    writer.beginObject();
    writer.member("x", point.x);
    writer.member("y", point.y);
    writer.endObject();
}

static bool decode(const json::Value& value, MenuItem& item) {
    std::string typeTag;
    if (!value.member("typeTag", typeTag))
        return false;
    if (typeTag == "separator") {
        item = MenuItem::separator();
        return true;
    }
    if (typeTag == "item") {
        MenuItem::Item entry;
        if (!value.member("itemTitle", entry.title) || !value.member("itemTag", entry.tag) ||
            !value.member("itemImage", entry.image))
            return false;
        item = MenuItem::item(std::move(entry.title), entry.tag, std::move(entry.image));
        return true;
    }
    if (typeTag != "nested")
        fatalError("MenuItem+Ext", __LINE__, "Fatal error");
    MenuItem::Nested entry;
    Wrapped wrapped{{entry.items}};
    std::vector<Ignored> outer;
    if (!value.member("nested", outer) || !value.member("itemTitle", entry.title) ||
        !value.member("itemImage", entry.image) || !value.member("nested", wrapped))
        return false;
    item = MenuItem::nested(std::move(entry.title), std::move(entry.image), std::move(entry.items));
    return true;
}

static void encode(json::Writer& writer, const MenuItem& item) {
    writer.beginObject();
    std::visit([&](const auto& entry) { encode(writer, entry); }, item.entry());
    writer.endObject();
}

static bool decode(const json::Value& value, MenuEvent& event) {
    return value.member("location", event.location) && value.member("items", event.items);
}

static void encode(json::Writer& writer, const MenuEvent& event) {
    writer.beginObject();
    writer.member("location", event.location);
    writer.member("items", event.items);
    writer.endObject();
}

namespace {

bool decode(const json::Value& value, Children& children) {
    return value.read(children.items);
}

void encode(json::Writer& writer, const MenuItem::Nested& nested) {
    writer.key("nested");
    writer.beginArray();
    writer.write(nested.items);
    writer.endArray();
    writer.member("typeTag", "nested");
    writer.member("itemTitle", nested.title);
    writer.member("itemImage", nested.image);
}

} // namespace

MenuItem MenuItem::item(std::string title, std::int64_t tag, std::string image) {
    MenuItem result;
    result.m_entry = Item{std::move(title), tag, std::move(image)};
    return result;
}

MenuItem MenuItem::nested(std::string title, std::string image, std::vector<MenuItem> items) {
    MenuItem result;
    result.m_entry = Nested{std::move(title), std::move(image), std::move(items)};
    return result;
}

std::vector<MenuItem> MenuItem::insertionStructure() {
    using enum ToolbarAction::Case;
    return {
        nested("Headlines", "h.circle",
               {item("Level 1", headlineLevel1, "1.circle"), item("Level 2", headlineLevel2, "2.circle"),
                item("Level 3", headlineLevel3, "3.circle")}),
        item("Quote", quote, "text.quote"),
        nested(
            "Lists", "text.justify",
            {item("Bulleted List", bulletedList, "list.bullet"), item("Numbered List", numberedList, "list.number")}),
        item("Code", code, "chevron.left.slash.chevron.right"),
        item("Footnote", footnote, "textformat.superscript"),
        item("Table", table, "table"),
        item("Website", website, "globe"),
        separator(),
        item("Comment", comment, "bubble.right"),
    };
}

std::vector<MenuItem> MenuItem::mediaStructure() {
    return {item("Help", ToolbarAction::addSlide, "text.quote")};
}

std::expected<MenuPoint, DecodingError> MenuPoint::decode(std::string_view json) {
    return json::decoded<MenuPoint>(json);
}

std::expected<std::string, EncodingError> MenuPoint::encode() const {
    return json::encoded(*this);
}

std::expected<MenuItem, DecodingError> MenuItem::decode(std::string_view json) {
    return json::decoded<MenuItem>(json);
}

std::expected<std::string, EncodingError> MenuItem::encode() const {
    return json::encoded(*this);
}

std::expected<MenuEvent, DecodingError> MenuEvent::decode(std::string_view json) {
    return json::decoded<MenuEvent>(json);
}

std::expected<std::string, EncodingError> MenuEvent::encode() const {
    return json::encoded(*this);
}

} // namespace appkitglue
