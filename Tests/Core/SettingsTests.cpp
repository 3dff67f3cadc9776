#include "SettingsKeys.h"
#include "SettingsPayload.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

namespace {

using namespace appkitglue;

constexpr std::string_view fullRecord =
    R"({"affectedKey":"editorTheme","generalSamplePresentation":false,"generalTheme":"Dark","generalSlideSize":"16:9",)"
    R"("generalAppearance":"auto","editorFontName":"Menlo-Regular","editorFontSize":13.5,"editorTheme":"Solarized",)"
    R"("presenterActive":false,"presenterExitLastSlide":false,"presenterMuteVideos":true,)"
    R"("allPreviewPaths":{"Dark":["/a.png","/b.png"],"Light":[]},"allGeneralThemes":["Dark","Light"],)"
    R"("allGeneralSizes":["16:9"],"allAppearances":["auto","light"],"allEditorThemes":["Solarized"]})";

constexpr std::string_view defaultRecord =
    R"({"generalSamplePresentation":true,"generalTheme":"","generalSlideSize":"","generalAppearance":"",)"
    R"("editorFontName":"","editorFontSize":14,"editorTheme":"","presenterActive":true,"presenterExitLastSlide":true,)"
    R"("presenterMuteVideos":false,"allPreviewPaths":{},"allGeneralThemes":[],"allGeneralSizes":[],)"
    R"("allAppearances":[],"allEditorThemes":[]})";

SettingsPayload fullPayload() {
    return {.affectedKey = "editorTheme",
            .generalSamplePresentation = false,
            .generalTheme = "Dark",
            .generalSlideSize = "16:9",
            .generalAppearance = "auto",
            .editorFontName = "Menlo-Regular",
            .editorFontSize = 13.5,
            .editorTheme = "Solarized",
            .presenterActive = false,
            .presenterExitLastSlide = false,
            .presenterMuteVideos = true,
            .allPreviewPaths = {{"Dark", {"/a.png", "/b.png"}}, {"Light", {}}},
            .allGeneralThemes = {"Dark", "Light"},
            .allGeneralSizes = {"16:9"},
            .allAppearances = {"auto", "light"},
            .allEditorThemes = {"Solarized"}};
}

std::string replaced(std::string_view text, std::string_view old, std::string_view replacement) {
    std::string result(text);
    const auto at = result.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return result.replace(at, old.size(), replacement);
}

std::string errorOf(const std::string& text) {
    const auto result = SettingsPayload::decode(text);
    EXPECT_FALSE(result.has_value());
    return result ? "" : result.error().description();
}

TEST(SettingsKeyNames, AreTheSixteenCaseNamesInOrder) {
    const std::vector<std::string_view> names{"generalSamplePresentation",
                                              "generalTheme",
                                              "generalAppearance",
                                              "generalSlideSize",
                                              "editorFontName",
                                              "editorFontSize",
                                              "editorTheme",
                                              "presenterActive",
                                              "presenterExitLastSlide",
                                              "presenterMuteVideos",
                                              "previewPaths",
                                              "allGeneralThemes",
                                              "allGeneralSizes",
                                              "allAppearances",
                                              "allEditorThemes",
                                              "allScreens"};
    ASSERT_EQ(SettingsKeys::allCases().size(), names.size());
    for (std::size_t i = 0; i < names.size(); i++) {
        EXPECT_EQ(SettingsKeys::allCases()[i].rawValue(), names[i]);
        EXPECT_EQ(SettingsKeys::fromRawValue(names[i]), static_cast<SettingsKeys::Case>(i));
    }
    EXPECT_EQ(SettingsKeys::fromRawValue("allScreens"), SettingsKeys::allScreens);
    EXPECT_EQ(int(SettingsKeys::allScreens), 15);
}

TEST(SettingsKeyNames, OtherTextIsNoKey) {
    for (const char* text : {"GeneralTheme", "generaltheme", "", "generalTheme ", "affectedKey", "allPreviewPaths"})
        EXPECT_FALSE(SettingsKeys::fromRawValue(text)) << text;
}

TEST(SettingsKeyNames, NameTheHostsSelectors) {
    EXPECT_STREQ(SettingsKeys::selectorForGetPreferences, "preferenceValues");
    EXPECT_STREQ(SettingsKeys::selectorForSetPreferences, "setPreferencesValues:");
}

TEST(SettingsRecord, IsReadMemberByMember) {
    EXPECT_EQ(SettingsPayload::decode(fullRecord), fullPayload());
}

TEST(SettingsRecord, IsWrittenInFieldOrder) {
    EXPECT_EQ(fullPayload().encode(), fullRecord);
}

TEST(SettingsRecord, DefaultsHaveFifteenMembers) {
    EXPECT_EQ(SettingsPayload::defaultSettings().encode(), defaultRecord);
    EXPECT_EQ(SettingsPayload::decode(defaultRecord), SettingsPayload::defaultSettings());
}

TEST(SettingsRecord, MissingOrNullAffectedKeyIsAbsent) {
    const auto missing = SettingsPayload::decode(replaced(fullRecord, R"("affectedKey":"editorTheme",)", ""));
    ASSERT_TRUE(missing.has_value());
    EXPECT_FALSE(missing->affectedKey);
    EXPECT_EQ(missing->encode()->find("affectedKey"), std::string::npos);
    const auto null =
        SettingsPayload::decode(replaced(fullRecord, R"("affectedKey":"editorTheme")", R"("affectedKey":null)"));
    ASSERT_TRUE(null.has_value());
    EXPECT_FALSE(null->affectedKey);
}

TEST(SettingsRecord, EachOtherMemberIsRequired) {
    for (const char* name :
         {"generalSamplePresentation", "generalTheme", "generalSlideSize", "generalAppearance", "editorFontName",
          "editorFontSize", "editorTheme", "presenterActive", "presenterExitLastSlide", "presenterMuteVideos",
          "allPreviewPaths", "allGeneralThemes", "allGeneralSizes", "allAppearances", "allEditorThemes"}) {
        const std::string member = '"' + std::string(name) + "\":";
        const auto error = SettingsPayload::decode(replaced(fullRecord, member, "\"other\":"));
        ASSERT_FALSE(error.has_value()) << name;
        EXPECT_EQ(error.error().codingPath, name);
        EXPECT_EQ(error.error().found, "nothing");
        EXPECT_FALSE(SettingsPayload::decode(replaced(fullRecord, member, member + "null,\"other\":")).has_value());
    }
}

TEST(SettingsRecord, ValuesOfAnotherTypeAreRefused) {
    EXPECT_EQ(errorOf(replaced(fullRecord, R"("presenterActive":false)", R"("presenterActive":"false")")),
              "presenterActive: expected a Boolean, found a string");
    EXPECT_EQ(errorOf(replaced(fullRecord, R"("presenterActive":false)", R"("presenterActive":0)")),
              "presenterActive: expected a Boolean, found the number 0");
    EXPECT_EQ(errorOf(replaced(fullRecord, R"("generalTheme":"Dark")", R"("generalTheme":1)")),
              "generalTheme: expected a string, found the number 1");
    EXPECT_EQ(errorOf(replaced(fullRecord, "13.5", "\"13.5\"")), "editorFontSize: expected a number, found a string");
    EXPECT_EQ(errorOf(replaced(fullRecord, R"(["/a.png","/b.png"])", R"(["/a.png","/b.png",null])")),
              "allPreviewPaths.Dark[2]: expected a string, found null");
    EXPECT_EQ(errorOf(replaced(fullRecord, R"(["Solarized"])", R"("Solarized")")),
              "allEditorThemes: expected an array, found a string");
    EXPECT_EQ(errorOf(replaced(fullRecord, R"("affectedKey":"editorTheme")", R"("affectedKey":6)")),
              "affectedKey: expected a string, found the number 6");
    EXPECT_EQ(errorOf("[]"), "expected an object, found an array");
}

TEST(SettingsRecord, MalformedDocumentsAreRefused) {
    EXPECT_FALSE(SettingsPayload::decode("").has_value());
    EXPECT_FALSE(SettingsPayload::decode(std::string(fullRecord) + "x").has_value());
    EXPECT_FALSE(SettingsPayload::decode(fullRecord.substr(0, fullRecord.size() - 1)).has_value());
    EXPECT_FALSE(SettingsPayload::decode(replaced(fullRecord, "13.5", "1e999")).has_value());
}

TEST(SettingsRecord, UnknownMembersAreIgnored) {
    EXPECT_EQ(SettingsPayload::decode(replaced(fullRecord, "{", R"({"allScreens":[1],"previewPaths":null,"x":{},)")),
              fullPayload());
}

TEST(SettingsRecord, CannotBeWrittenWithTextThatIsNotUTF8) {
    auto payload = fullPayload();
    payload.allPreviewPaths["Dark"][1] = "\xFF";
    EXPECT_EQ(payload.encode(),
              std::unexpected(EncodingError{"allPreviewPaths.Dark[1]", "a string that is not UTF-8"}));
    payload = fullPayload();
    payload.editorFontSize = NAN;
    EXPECT_EQ(payload.encode().error().codingPath, "editorFontSize");
}

TEST(SettingsRecord, AChangeIsTheWholeRecordNamingItsKey) {
    const auto record = fullPayload();
    EXPECT_EQ(changeMessage(record, SettingsKeys::presenterMuteVideos),
              replaced(fullRecord, R"("affectedKey":"editorTheme")", R"("affectedKey":"presenterMuteVideos")"));
    EXPECT_EQ(record, fullPayload());
}

RC_GTEST_PROP(SettingsProperties, RecordsReadBackEqual, (bool a, bool b, bool c, bool d, int quarters)) {
    const auto text = rc::gen::container<std::string>(rc::gen::inRange<char>(1, 127));
    const auto list = rc::gen::container<std::vector<std::string>>(text);
    SettingsPayload payload;
    if (*rc::gen::arbitrary<bool>())
        payload.affectedKey = *text;
    payload.generalSamplePresentation = a;
    payload.generalTheme = *text;
    payload.editorFontSize = quarters / 4.0;
    payload.presenterActive = b;
    payload.presenterExitLastSlide = c;
    payload.presenterMuteVideos = d;
    payload.allPreviewPaths = {{*text, *list}, {*text, *list}};
    payload.allAppearances = *list;
    const auto written = payload.encode();
    RC_ASSERT(written.has_value());
    RC_ASSERT((SettingsPayload::decode(*written) == payload));
}

} // namespace
