#include "platform/net/Json.h"

#include <QStringDecoder>

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

/// A text, and whether the parser must make a copy of it to have its padding behind it.
struct ParsedText {
    QByteArrayView bytes;
    bool mustBeCopied = true;
};

simdjson::error_code parse(
    const ParsedText &text, simdjson::dom::parser &parser, simdjson::dom::element &root)
{
    const auto size = static_cast<size_t>(text.bytes.size());
    return parser.parse(text.bytes.data(), size, text.mustBeCopied).get(root);
}

size_t levels(const simdjson::dom::element &value)
{
    simdjson::dom::array array;
    simdjson::dom::object object;
    size_t below = 0;
    if (value.get(array) == simdjson::SUCCESS)
        for (const simdjson::dom::element element : array)
            below = std::max(below, levels(element));
    else if (value.get(object) == simdjson::SUCCESS)
        for (const simdjson::dom::key_value_pair member : object)
            below = std::max(below, levels(member.value));
    else
        return 0;
    return below + 1;
}

/// Parses once more what was too deep. The parser does not count an innermost list or object that is empty,
/// and it stops at its limit: only a higher one lets through every text with as many levels as there may be.
simdjson::error_code parseDeepest(
    const ParsedText &text, simdjson::dom::parser &parser, simdjson::dom::element &root)
{
    if (parser.allocate(parser.capacity(), mostLevels + 1) != simdjson::SUCCESS)
        return simdjson::MEMALLOC;
    const simdjson::error_code error = parse(text, parser, root);
    return error == simdjson::SUCCESS && levels(root) > mostLevels ? simdjson::DEPTH_ERROR : error;
}

/// How many bytes behind its text the array has allocated. Not its capacity, in which room at the front
/// counts, too.
qsizetype roomBehind(QByteArray bytes)
{
    return bytes.data_ptr().freeSpaceAtEnd();
}

bool beginsWithByteOrderMark(QByteArrayView bytes)
{
    return bytes.startsWith("\xEF\xBB\xBF");
}

QByteArrayView withoutByteOrderMark(QByteArrayView bytes)
{
    return beginsWithByteOrderMark(bytes) ? bytes.sliced(3) : bytes;
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
    // QString::fromUtf8 would take a byte order mark away; within a text it is a character.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(QByteArrayView(value.data(), static_cast<qsizetype>(value.size())));
}

JsonDocument::JsonDocument(std::unique_ptr<simdjson::dom::parser> parser, const simdjson::dom::element &root)
    : m_parser(std::move(parser))
    , m_root(root)
{
}

JsonDocument::~JsonDocument()
{
    if (m_parser && m_parser->capacity() <= longestKept && m_parser->max_depth() == mostLevels)
        keptParser = std::move(m_parser);
}

std::optional<JsonDocument> JsonDocument::read(QByteArrayView bytes)
{
    return read(bytes, Source::Copied);
}

std::optional<JsonDocument> JsonDocument::readInPlace(const QByteArray &bytes)
{
    return read(bytes, roomBehind(bytes) >= padding ? Source::InPlace : Source::Copied);
}

std::optional<JsonDocument> JsonDocument::read(QByteArrayView bytes, Source source)
{
    const ParsedText text{ withoutByteOrderMark(bytes), source == Source::Copied };
    if (text.bytes.isEmpty()) // Perhaps a null pointer, which the parser would copy from.
        return std::nullopt;
    if (beginsWithByteOrderMark(text.bytes)) // A second one, which some releases of the parser skip.
        return std::nullopt;
    auto parser = parserFor(static_cast<size_t>(text.bytes.size()));
    if (!parser)
        return std::nullopt;
    simdjson::dom::element root;
    simdjson::error_code error = parse(text, *parser, root);
    if (error == simdjson::DEPTH_ERROR)
        error = parseDeepest(text, *parser, root);
    if (error != simdjson::SUCCESS)
        return std::nullopt;
    return JsonDocument(std::move(parser), root);
}

void JsonDocument::dropBuffers()
{
    keptParser.reset();
}

} // namespace glimmet
