#include "feed/I3bar.h"

#include <simdjson.h>

#include <cstdint>

namespace glimmet {
namespace {

constexpr std::string_view blockName = "glimmet";
constexpr std::int64_t rightButton = 3;

std::string block(const std::string &text)
{
    return R"({"name":)" + jsonString(blockName) + R"(,"full_text":)" + jsonString(plainLine(text)) + '}';
}

bool isEmptyArray(std::string_view array)
{
    return array.find_first_not_of("[] \t\r\n") == std::string_view::npos;
}

} // namespace

std::string i3barOpening()
{
    return "{\"version\":1,\"click_events\":true}\n[\n[]";
}

std::string i3barLine(const FeedText &text, std::string_view others)
{
    if (isEmptyArray(others))
        return text ? ",[" + block(*text) + ']' : ",[]";
    std::string line(others);
    if (text)
        line.insert(1, block(*text) + ',');
    return ',' + line;
}

std::string plainBlocks(const std::string &line)
{
    return R"([{"full_text":)" + jsonString(plainLine(line)) + "}]";
}

bool isClickOnText(const std::string &click)
{
    simdjson::dom::parser parser;
    const auto value = parser.parse(click);
    std::string_view name;
    std::int64_t button = 0;
    return !value["name"].get(name) && name == blockName && !value["button"].get(button) && button >= 1
        && button <= rightButton;
}

bool wantsClicks(const std::string &header)
{
    simdjson::dom::parser parser;
    bool wanted = false;
    return !parser.parse(header)["click_events"].get(wanted) && wanted;
}

} // namespace glimmet
