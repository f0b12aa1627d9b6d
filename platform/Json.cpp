#include "platform/Json.h"

#include <algorithm>

namespace glimmet {
namespace {

constexpr size_t mostLevels = 512;
constexpr size_t smallestBuffers = 4096;
/// A parser keeps buffers for the longest text that it has read; one that has read a longer one than this is
/// not kept. Bytes.
constexpr size_t longestKept = size_t(1) << 20;

thread_local std::unique_ptr<simdjson::dom::parser> keptParser;

std::unique_ptr<simdjson::dom::parser> parserFor(size_t size)
{
    auto parser = keptParser ? std::move(keptParser) : std::make_unique<simdjson::dom::parser>();
    // Growing by itself, the parser would go back to its own, higher limit of levels.
    const size_t capacity = std::max(size, smallestBuffers);
    if (parser->capacity() < capacity && parser->allocate(capacity, mostLevels) != simdjson::SUCCESS)
        return nullptr;
    return parser;
}

QByteArrayView withoutByteOrderMark(QByteArrayView bytes)
{
    return bytes.startsWith("\xEF\xBB\xBF") ? bytes.sliced(3) : bytes;
}

} // namespace

bool JsonValue::isNull() const
{
    return m_element && m_element->is_null();
}

bool JsonValue::isObject() const
{
    return m_element && m_element->is_object();
}

bool JsonValue::isEmptyObject() const
{
    simdjson::dom::object object;
    return m_element && m_element->get(object) == simdjson::SUCCESS && object.begin() == object.end();
}

JsonValue JsonValue::operator[](std::string_view name) const
{
    simdjson::dom::object object;
    JsonValue last;
    if (!m_element || m_element->get(object) != simdjson::SUCCESS)
        return last;
    for (const simdjson::dom::key_value_pair member : object)
        if (member.key == name)
            last = JsonValue(member.value);
    return last;
}

std::optional<JsonList> JsonValue::list() const
{
    simdjson::dom::array array;
    if (!m_element || m_element->get(array) != simdjson::SUCCESS)
        return std::nullopt;
    return JsonList(array);
}

std::optional<JsonList> JsonValue::listOfObjects() const
{
    const auto values = list();
    if (!values)
        return std::nullopt;
    for (const JsonValue &value : *values)
        if (!value.isObject())
            return std::nullopt;
    return values;
}

std::optional<double> JsonValue::number() const
{
    double value = 0;
    if (!m_element || m_element->get(value) != simdjson::SUCCESS)
        return std::nullopt;
    return value;
}

std::optional<qint64> JsonValue::integer() const
{
    int64_t value = 0;
    if (!m_element || !m_element->is_int64() || m_element->get(value) != simdjson::SUCCESS)
        return std::nullopt;
    return value;
}

std::optional<bool> JsonValue::boolean() const
{
    bool value = false;
    if (!m_element || m_element->get(value) != simdjson::SUCCESS)
        return std::nullopt;
    return value;
}

std::optional<QString> JsonValue::text() const
{
    std::string_view value;
    if (!m_element || m_element->get(value) != simdjson::SUCCESS)
        return std::nullopt;
    return QString::fromUtf8(value.data(), static_cast<qsizetype>(value.size()));
}

JsonDocument::JsonDocument(std::unique_ptr<simdjson::dom::parser> parser, const simdjson::dom::element &root)
    : m_parser(std::move(parser))
    , m_root(root)
{
}

JsonDocument::~JsonDocument()
{
    if (m_parser && m_parser->capacity() <= longestKept)
        keptParser = std::move(m_parser);
}

std::optional<JsonDocument> JsonDocument::read(QByteArrayView bytes)
{
    const QByteArrayView text = withoutByteOrderMark(bytes);
    const auto size = static_cast<size_t>(text.size());
    auto parser = parserFor(size);
    simdjson::dom::element root;
    if (!parser || parser->parse(text.data(), size).get(root) != simdjson::SUCCESS)
        return std::nullopt;
    return JsonDocument(std::move(parser), root);
}

} // namespace glimmet
