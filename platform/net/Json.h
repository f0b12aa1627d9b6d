#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <simdjson.h>

namespace glimmet {

class JsonList;

/// A value in a JsonDocument, or none: a member of what is no object, or a member that is missing, is none,
/// and none is of no type. Valid while its document lives.
class JsonValue {
public:
    JsonValue() = default;
    explicit JsonValue(const simdjson::dom::element &element)
        : m_element(element)
    {
    }

    bool exists() const { return m_element.has_value(); }
    bool isNull() const;
    bool isObject() const;
    /// An object without members.
    bool isEmptyObject() const;

    /// The member with this name; of several with one name, the last.
    JsonValue operator[](std::string_view name) const;
    /// The elements of a list; nothing where this is none.
    std::optional<JsonList> list() const;
    /// The same where every element is an object; nothing otherwise.
    std::optional<JsonList> listOfObjects() const;
    /// A number of either kind, as the nearest double.
    std::optional<double> number() const;
    /// A number written without fraction and exponent that fits 64 bits with a sign.
    std::optional<qint64> integer() const;
    std::optional<bool> boolean() const;
    std::optional<QString> text() const;

private:
    std::optional<simdjson::dom::element> m_element;
};

/// The elements of a list, made one by one while they are looked at. Valid while the document lives.
class JsonList {
public:
    class Iterator {
    public:
        explicit Iterator(const simdjson::dom::array::iterator &position)
            : m_position(position)
        {
        }

        JsonValue operator*() const { return JsonValue(*m_position); }
        Iterator &operator++()
        {
            ++m_position;
            return *this;
        }
        bool operator==(const Iterator &other) const { return m_position == other.m_position; }

    private:
        simdjson::dom::array::iterator m_position;
    };

    explicit JsonList(const simdjson::dom::array &array)
        : m_array(array)
    {
    }

    Iterator begin() const { return Iterator(m_array.begin()); }
    Iterator end() const { return Iterator(m_array.end()); }
    bool isEmpty() const { return begin() == end(); }
    /// The first element; none where the list is empty.
    JsonValue first() const { return isEmpty() ? JsonValue() : *begin(); }

private:
    simdjson::dom::array m_array;
};

/// A JSON text (RFC 8259) that was read, with what it needs to stay readable.
///
/// Decided for every server alike: a byte order mark is skipped; more than 512 levels are refused, and so are
/// invalid UTF-8, NaN, anything behind the value, and a number that fits neither 64 bits nor a double.
class JsonDocument {
public:
    /// How many bytes behind a text the parser may look at, whatever they hold.
    static constexpr qsizetype padding = simdjson::SIMDJSON_PADDING;

    /// Nothing where `bytes` cannot be read. Any thread; the document stays on it.
    static std::optional<JsonDocument> read(QByteArrayView bytes);
    /// The same without a copy of the text, where the array has room for `padding` bytes behind it.
    static std::optional<JsonDocument> readInPlace(const QByteArray &bytes);
    /// Lets go of the buffers that this thread keeps for its next document.
    static void dropBuffers();

    JsonDocument(JsonDocument &&) noexcept = default;
    JsonDocument &operator=(JsonDocument &&) noexcept = delete;
    ~JsonDocument();

    JsonValue root() const { return m_root; }

private:
    enum class Source { Copied, InPlace };

    static std::optional<JsonDocument> read(QByteArrayView bytes, Source source);
    JsonDocument(std::unique_ptr<simdjson::dom::parser> parser, const simdjson::dom::element &root);

    std::unique_ptr<simdjson::dom::parser> m_parser;
    JsonValue m_root;
};

} // namespace glimmet
