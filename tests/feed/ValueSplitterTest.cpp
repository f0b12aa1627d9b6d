#include "feed/ValueSplitter.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using Values = std::vector<std::string>;

TEST(ValueSplitter, takesHeaderAndStatusLinesApart)
{
    ValueSplitter splitter;

    EXPECT_EQ(splitter.take("{\"version\":1}\n[\n[{\"full_text\":\"a\"}]\n,[]\n"),
        Values({ "{\"version\":1}", "[{\"full_text\":\"a\"}]", "[]" }));
    EXPECT_FALSE(splitter.isBroken());
}

TEST(ValueSplitter, takesClicksApart)
{
    ValueSplitter splitter;

    EXPECT_EQ(splitter.take("[\n{\"button\":1}\n,{\"modifiers\":[\"Shift\"]}\n"),
        Values({ "{\"button\":1}", "{\"modifiers\":[\"Shift\"]}" }));
}

TEST(ValueSplitter, takesValuesThatComeInPieces)
{
    const std::string stream = "{ \"version\": 1 }\n[\n [\n  { \"full_text\": \"a, ]\" }\n ],\n[]";
    const Values wanted{ "{ \"version\": 1 }", "[\n  { \"full_text\": \"a, ]\" }\n ]", "[]" };
    for (std::size_t size = 1; size < stream.size(); ++size) {
        ValueSplitter splitter;
        Values values;
        for (std::size_t start = 0; start < stream.size(); start += size)
            for (const std::string &value : splitter.take(std::string_view(stream).substr(start, size)))
                values.push_back(value);
        EXPECT_EQ(values, wanted) << size;
    }
}

TEST(ValueSplitter, passesOverBracketsAndQuotesInTexts)
{
    ValueSplitter splitter;

    EXPECT_EQ(splitter.take(R"([{"a":"]}\"}\\"},{"b":"\\\""})"),
        Values({ R"({"a":"]}\"}\\"})", R"({"b":"\\\""})" }));
}

TEST(ValueSplitter, breaksOffAtWhatIsNoSuchStream)
{
    for (const char *stream : { "12:00:00\n[[]]", "[[],1,[]]", "\"text\"", "{},[]", "[[]]" }) {
        ValueSplitter splitter;
        splitter.take(stream);
        EXPECT_TRUE(splitter.isBroken()) << stream;
        EXPECT_EQ(splitter.take("[\n[]\n"), Values()) << stream;
    }
}

TEST(ValueSplitter, breaksOffAtAValueWithoutEnd)
{
    ValueSplitter splitter;
    splitter.take("[[\"");

    splitter.take(std::string(ValueSplitter::longestValue, 'x'));

    EXPECT_TRUE(splitter.isBroken());
}

} // namespace
} // namespace glimmet
