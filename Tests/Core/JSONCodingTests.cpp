#include "JSONCoding.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace appkitglue;

std::optional<DecodingError> parseError(std::string_view text) {
    const auto document = json::parse(text);
    return document ? std::nullopt : std::optional(document.error());
}

template <class T> T valueOf(std::string_view text) {
    auto result = json::decoded<T>(text);
    EXPECT_TRUE(result.has_value()) << text;
    return result.value_or(T{});
}

template <class T> std::string errorOf(std::string_view text) {
    const auto result = json::decoded<T>(text);
    EXPECT_FALSE(result.has_value()) << text;
    return result ? "" : result.error().description();
}

TEST(JSONParsing, RefusesTextBehindTheDocument) {
    EXPECT_EQ(parseError("{} x"), (DecodingError{"", "one JSON document", "text behind the document", 3}));
    EXPECT_TRUE(parseError("1 2"));
    EXPECT_TRUE(parseError("[]]"));
    EXPECT_FALSE(parseError(" \n{}\t\r "));
}

TEST(JSONParsing, RefusesNoData) {
    EXPECT_EQ(parseError(""), (DecodingError{"", "one JSON document", "no data", 0}));
    EXPECT_EQ(parseError(" ")->found, "an unfinished document");
    EXPECT_EQ(parseError("{\"a\":")->found, "an unfinished document");
}

TEST(JSONParsing, RefusesWhatIsNotJSON) {
    for (const char* text : {"[1,]", "{\"a\":1,}", "01", "+1", ".5", "5.", "NaN", "Infinity", "'a'", "{a:1}", "// c\n1",
                             "\"\n\"", "\"\\x\"", "tru", "\xEF\xBB\xBF{}"})
        EXPECT_TRUE(parseError(text)) << text;
}

TEST(JSONParsing, TellsTheByteWhereTheTextIsWrong) {
    EXPECT_EQ(parseError("[1, x]")->byteOffset, 4U);
}

TEST(JSONParsing, RefusesInvalidUTF8) {
    for (const char* text : {"\"\xFF\"", "\"\xC3\"", "\"\xC0\x80\"", "\"\xED\xA0\x80\"", "\"\xF5\x80\x80\x80\"",
                             "\"\xE0\x80\x80\"", "{\"\xFF\":1}"})
        EXPECT_TRUE(parseError(text)) << text;
    EXPECT_EQ(valueOf<std::string>("\"\xF0\x9F\x8E\xA4\""), "🎤");
}

TEST(JSONParsing, RefusesLoneSurrogates) {
    EXPECT_TRUE(parseError(R"("\ud800")"));
    EXPECT_TRUE(parseError(R"("\udc00")"));
    EXPECT_TRUE(parseError(R"("\ud800\u0041")"));
    EXPECT_EQ(valueOf<std::string>(R"("\ud83c\udfa4")"), "🎤");
}

TEST(JSONParsing, RefusesNumbersThatWouldBeInfinite) {
    EXPECT_EQ(parseError("[1e999]"), (DecodingError{"", "one JSON document", "a number too large for 64 bits", 1}));
    EXPECT_TRUE(parseError("-1e999"));
    EXPECT_TRUE(parseError("1e400"));
    EXPECT_TRUE(parseError(std::string(400, '9')));
    EXPECT_TRUE(parseError("1e99999999999999999999"));
}

TEST(JSONParsing, ReadsAtMost512Levels) {
    EXPECT_FALSE(parseError(std::string(512, '[') + std::string(512, ']')));
    EXPECT_EQ(parseError(std::string(513, '[') + std::string(513, ']'))->found, "more than 512 levels");
    EXPECT_TRUE(parseError(std::string(1'000'000, '[')));
}

TEST(JSONParsing, TakesTheLastOfEqualNames) {
    EXPECT_EQ((valueOf<std::map<std::string, double>>(R"({"a":1,"a":2})")), (std::map<std::string, double>{{"a", 2}}));
}

TEST(JSONNumbers, AreRoundedToTheNearestDouble) {
    EXPECT_EQ(valueOf<double>("0.1"), 0.1);
    EXPECT_EQ(valueOf<double>("2.2250738585072011e-308"), 2.2250738585072011e-308);
    EXPECT_EQ(valueOf<double>("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(valueOf<double>("5e-324"), 5e-324);
    EXPECT_EQ(valueOf<double>("1e-999"), 0);
    EXPECT_EQ(valueOf<double>("18446744073709551615"), 18446744073709551615.0);
    EXPECT_TRUE(std::signbit(valueOf<double>("-0.0")));
}

TEST(JSONNumbers, IntegersMayBeWrittenWithAFraction) {
    EXPECT_EQ(valueOf<std::int64_t>("3"), 3);
    EXPECT_EQ(valueOf<std::int64_t>("3.0"), 3);
    EXPECT_EQ(valueOf<std::int64_t>("3e0"), 3);
    EXPECT_EQ(valueOf<std::int64_t>("30e-1"), 3);
    EXPECT_EQ(valueOf<std::int64_t>("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(valueOf<std::int64_t>("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
}

TEST(JSONNumbers, FractionsAndLargeNumbersAreNoIntegers) {
    EXPECT_EQ(errorOf<std::int64_t>("3.5"), "expected a 64-bit integer, found the number 3.5");
    EXPECT_EQ(errorOf<std::int64_t>("9223372036854775808"),
              "expected a 64-bit integer, found the number 9223372036854775808");
    EXPECT_EQ(errorOf<std::int64_t>("1e19"), "expected a 64-bit integer, found the number 1e+19");
    EXPECT_EQ(errorOf<std::int64_t>("-1e19"), "expected a 64-bit integer, found the number -1e+19");
    EXPECT_EQ(errorOf<std::int64_t>("1e400"),
              "expected one JSON document, found a number too large for 64 bits at byte 0");
    EXPECT_EQ(errorOf<std::int64_t>("\"3\""), "expected a 64-bit integer, found a string");
}

TEST(JSONNumbers, AreWrittenAsShortAsPossible) {
    EXPECT_EQ(json::numberText(14), "14");
    EXPECT_EQ(json::numberText(13.5), "13.5");
    EXPECT_EQ(json::numberText(0.1), "0.1");
    EXPECT_EQ(json::numberText(0), "0");
    EXPECT_EQ(json::numberText(-0.0), "-0.0");
    EXPECT_EQ(json::numberText(1e300), "1e+300");
}

TEST(JSONReading, NamesThePathOfTheFirstFault) {
    using Paths = std::map<std::string, std::vector<std::string>>;
    EXPECT_EQ(errorOf<Paths>(R"({"Light":[],"Dark":["a","b",3]})"), "Dark[2]: expected a string, found the number 3");
    EXPECT_EQ(errorOf<Paths>(R"({"Dark":{}})"), "Dark: expected an array, found an object");
    EXPECT_EQ(errorOf<Paths>("null"), "expected an object, found null");
}

TEST(JSONWriting, EscapesStrings) {
    EXPECT_EQ(json::encoded(std::string("a\"\\\n\x01/é🎤")), "\"a\\\"\\\\\\n\\u0001/é🎤\"");
}

TEST(JSONWriting, RefusesStringsThatAreNotUTF8) {
    EXPECT_EQ(json::encoded(std::vector<std::string>{"a", "\xFF"}),
              std::unexpected(EncodingError{"[1]", "a string that is not UTF-8"}));
    EXPECT_EQ((json::encoded(std::map<std::string, bool>{{"\xFF", true}})).error().found, "a string that is not UTF-8");
}

TEST(JSONWriting, RefusesNumbersThatAreNotFinite) {
    EXPECT_EQ((json::encoded(std::map<std::string, double>{{"x", INFINITY}})),
              std::unexpected(EncodingError{"x", "a number that is not finite"}));
    EXPECT_FALSE(json::encoded(std::nan("")).has_value());
}

TEST(UTF8, KnowsWellFormedText) {
    EXPECT_TRUE(json::isUTF8("a\x7Fé€🎤\xF4\x8F\xBF\xBF"));
    for (const char* text : {"\x80", "\xC1\xBF", "\xE2\x82", "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80"})
        EXPECT_FALSE(json::isUTF8(text));
}

RC_GTEST_PROP(JSONProperties, DoublesReadBackExactly, ()) {
    const double number = *rc::gen::map<std::uint64_t>([](std::uint64_t bits) { return std::bit_cast<double>(bits); });
    RC_PRE(std::isfinite(number));
    const auto result = json::decoded<double>(json::numberText(number));
    RC_ASSERT(result.has_value());
    RC_ASSERT(std::bit_cast<std::uint64_t>(*result) == std::bit_cast<std::uint64_t>(number));
}

RC_GTEST_PROP(JSONProperties, IntegersReadBackExactly, (std::int64_t number)) {
    RC_ASSERT((json::decoded<std::int64_t>(std::to_string(number)) == number));
}

RC_GTEST_PROP(JSONProperties, StringsReadBackOrAreRefused, (std::string text)) {
    const auto written = json::encoded(text);
    RC_ASSERT(written.has_value() == json::isUTF8(text));
    if (written)
        RC_ASSERT((json::decoded<std::string>(*written) == text));
}

RC_GTEST_PROP(JSONProperties, AnyBytesAreReadOrRefused, (std::string text)) {
    (void)json::parse(text);
}

} // namespace
