#include "MenuItem+Ext.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

using namespace appkitglue;

std::string errorOf(std::string_view text) {
    const auto result = MenuItem::decode(text);
    EXPECT_FALSE(result.has_value()) << text;
    return result ? "" : result.error().description();
}

TEST(MenuJSON, PointsHaveTwoNumbers) {
    EXPECT_EQ((MenuPoint{1.5, -2}.encode()), R"({"x":1.5,"y":-2})");
    EXPECT_EQ(MenuPoint::decode(R"({"y":2,"x":1})"), (MenuPoint{1, 2}));
    EXPECT_EQ(MenuPoint::decode(R"({"x":1})").error().description(), "y: expected a number, found nothing");
    EXPECT_FALSE(MenuPoint::decode(R"({"x":1,"y":"2"})").has_value());
    EXPECT_FALSE((MenuPoint{INFINITY, 0}.encode()).has_value());
}

TEST(MenuJSON, ItemsAreWrittenWithTheirTypeTag) {
    EXPECT_EQ(MenuItem::item("Quote", 6, "text.quote").encode(),
              R"({"itemTitle":"Quote","itemImage":"text.quote","itemTag":6,"typeTag":"item"})");
    EXPECT_EQ(MenuItem::separator().encode(), R"({"typeTag":"separator"})");
}

TEST(MenuJSON, ChildrenStandInAnArrayInsideTheArrayNested) {
    const auto submenu = MenuItem::nested("Lists", "text.justify", {MenuItem::separator(), MenuItem::item("A", 1, "")});
    const auto text = submenu.encode();
    EXPECT_EQ(text,
              R"({"nested":[[{"typeTag":"separator"},{"itemTitle":"A","itemImage":"","itemTag":1,"typeTag":"item"}]],)"
              R"("typeTag":"nested","itemTitle":"Lists","itemImage":"text.justify"})");
    EXPECT_EQ(MenuItem::decode(*text), submenu);
}

TEST(MenuJSON, EventsHaveAPlaceAndItems) {
    const MenuEvent event{{3, 4}, {MenuItem::separator()}};
    EXPECT_EQ(event.encode(), R"({"location":{"x":3,"y":4},"items":[{"typeTag":"separator"}]})");
    EXPECT_EQ(MenuEvent::decode(*event.encode()), event);
    EXPECT_EQ(MenuEvent::decode(R"({"location":{"x":3,"y":4}})").error().description(),
              "items: expected an array, found nothing");
    EXPECT_EQ(
        MenuEvent::decode(R"({"location":{"x":3,"y":4},"items":[{"typeTag":"separator"},{}]})").error().codingPath,
        "items[1].typeTag");
}

TEST(MenuJSON, SeparatorsIgnoreOtherMembers) {
    EXPECT_EQ(MenuItem::decode(R"({"typeTag":"separator","itemTitle":"x"})"), MenuItem::separator());
    EXPECT_EQ(MenuItem::decode(R"({"typeTag":"separator","itemTag":{}})"), MenuItem::separator());
}

TEST(MenuJSON, ItemsIgnoreNested) {
    EXPECT_EQ(MenuItem::decode(R"({"typeTag":"item","itemTitle":"t","itemTag":3.0,"itemImage":"i","nested":7})"),
              MenuItem::item("t", 3, "i"));
}

TEST(MenuJSON, ItemsNeedTitleTagAndImage) {
    EXPECT_EQ(errorOf(R"({"typeTag":"item","itemTag":1,"itemImage":""})"),
              "itemTitle: expected a string, found nothing");
    EXPECT_EQ(errorOf(R"({"typeTag":"item","itemTitle":"","itemImage":""})"),
              "itemTag: expected a 64-bit integer, found nothing");
    EXPECT_EQ(errorOf(R"({"typeTag":"item","itemTitle":"","itemTag":1})"),
              "itemImage: expected a string, found nothing");
    EXPECT_EQ(errorOf(R"({"itemTitle":""})"), "typeTag: expected a string, found nothing");
}

TEST(MenuJSON, TagsWithAFractionAreRefused) {
    EXPECT_EQ(errorOf(R"({"typeTag":"item","itemTitle":"","itemTag":1.5,"itemImage":""})"),
              "itemTag: expected a 64-bit integer, found the number 1.5");
}

TEST(MenuJSON, OnlyTheFirstArrayInNestedCounts) {
    EXPECT_EQ(MenuItem::decode(
                  R"({"typeTag":"nested","itemTitle":"t","itemImage":"i","nested":[[],[{"typeTag":"separator"}]]})"),
              MenuItem::nested("t", "i", {}));
}

TEST(MenuJSON, BareChildrenAreRefused) {
    EXPECT_EQ(errorOf(R"({"typeTag":"nested","itemTitle":"t","itemImage":"i","nested":[{"typeTag":"separator"}]})"),
              "nested[0]: expected an array, found an object");
    EXPECT_EQ(errorOf(R"({"typeTag":"nested","itemTitle":"t","itemImage":"i","nested":[]})"),
              "nested[0]: expected an array, found nothing");
    EXPECT_EQ(errorOf(R"({"typeTag":"nested","itemTitle":"t","itemImage":"i"})"),
              "nested: expected an array, found nothing");
    EXPECT_EQ(errorOf(R"({"typeTag":"nested"})"), "nested: expected an array, found nothing");
    EXPECT_EQ(errorOf(R"({"typeTag":"nested","nested":[]})"), "itemTitle: expected a string, found nothing");
    EXPECT_EQ(errorOf(R"({"typeTag":"nested","itemImage":"i","nested":[[]]})"),
              "itemTitle: expected a string, found nothing");
}

TEST(MenuJSONDeathTest, AnUnknownTypeTagStopsTheProcess) {
    const auto expected = testing::ContainsRegex("^AppKitGlue/MenuItem\\+Ext:[0-9]+: Fatal error: Fatal error\n$");
    EXPECT_EXIT((void)MenuItem::decode(R"({"typeTag":"Item"})"), testing::KilledBySignal(SIGABRT), expected);
    EXPECT_EXIT((void)MenuEvent::decode(R"({"location":{"x":0,"y":0},"items":[{"typeTag":""}]})"),
                testing::KilledBySignal(SIGABRT), expected);
}

TEST(InsertMenu, HasItsEntriesInOrder) {
    const std::vector<MenuItem> expected{
        MenuItem::nested("Headlines", "h.circle",
                         {MenuItem::item("Level 1", 3, "1.circle"), MenuItem::item("Level 2", 4, "2.circle"),
                          MenuItem::item("Level 3", 5, "3.circle")}),
        MenuItem::item("Quote", 6, "text.quote"),
        MenuItem::nested(
            "Lists", "text.justify",
            {MenuItem::item("Bulleted List", 8, "list.bullet"), MenuItem::item("Numbered List", 7, "list.number")}),
        MenuItem::item("Code", 9, "chevron.left.slash.chevron.right"),
        MenuItem::item("Footnote", 10, "textformat.superscript"),
        MenuItem::item("Table", 11, "table"),
        MenuItem::item("Website", 12, "globe"),
        MenuItem::separator(),
        MenuItem::item("Comment", 13, "bubble.right"),
    };
    EXPECT_EQ(MenuItem::insertionStructure(), expected);
}

TEST(InsertMenu, IsBuiltAnewForEachReader) {
    auto first = MenuItem::insertionStructure();
    first.clear();
    EXPECT_EQ(MenuItem::insertionStructure(), MenuItem::insertionStructure());
    EXPECT_EQ(MenuItem::insertionStructure().size(), 9U);
}

TEST(MediaMenu, HasOneEntry) {
    EXPECT_EQ(MenuItem::mediaStructure(), std::vector{MenuItem::item("Help", 1, "text.quote")});
}

rc::Gen<MenuItem> entries(int depth) {
    return rc::gen::exec([depth] {
        const auto text = rc::gen::container<std::string>(rc::gen::inRange<char>(1, 127));
        switch (*rc::gen::inRange(0, depth > 0 ? 3 : 2)) {
        case 0:
            return MenuItem::separator();
        case 1:
            return MenuItem::item(*text, *rc::gen::arbitrary<std::int64_t>(), *text);
        default: {
            std::vector<MenuItem> children;
            for (int i = *rc::gen::inRange(0, 4); i > 0; i--)
                children.push_back(*entries(depth - 1));
            return MenuItem::nested(*text, *text, std::move(children));
        }
        }
    });
}

RC_GTEST_PROP(MenuProperties, EntriesReadBackEqual, ()) {
    const MenuEvent event{{1, 2}, {*entries(3), *entries(2)}};
    RC_ASSERT((MenuEvent::decode(*event.encode()) == event));
}

} // namespace
