#include "feed/ValueSplitter.h"

#include <utility>

namespace glimmet {

std::vector<std::string> ValueSplitter::take(std::string_view bytes)
{
    std::vector<std::string> values;
    for (const char letter : bytes) {
        if (m_isBroken)
            break;
        if (m_depth == 0)
            takeBetween(letter);
        else if (endsValue(letter))
            values.push_back(std::exchange(m_value, {}));
    }
    return values;
}

void ValueSplitter::takeBetween(char letter)
{
    const bool isBlank = letter == ' ' || letter == '\t' || letter == '\n' || letter == '\r';
    if (isBlank || (m_isInArray && letter == ','))
        return;
    if (letter == '[' && !m_isInArray) {
        m_isInArray = true;
    } else if (letter == '[' || letter == '{') {
        m_value = letter;
        m_depth = 1;
    } else {
        m_isBroken = true;
    }
}

bool ValueSplitter::endsValue(char letter)
{
    m_value += letter;
    m_isBroken = m_value.size() > longestValue;
    if (m_isInString) {
        m_isInString = m_isEscaped || letter != '"';
        m_isEscaped = !m_isEscaped && letter == '\\';
        return false;
    }
    if (letter == '"')
        m_isInString = true;
    else if (letter == '[' || letter == '{')
        ++m_depth;
    else if (letter == ']' || letter == '}')
        --m_depth;
    return m_depth == 0;
}

} // namespace glimmet
