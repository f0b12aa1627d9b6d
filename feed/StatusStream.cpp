#include "feed/StatusStream.h"

#include "feed/I3bar.h"

#include <utility>

namespace glimmet {

std::vector<std::string> StatusStream::take(std::string_view bytes)
{
    if (m_form == Form::Unknown && !bytes.empty())
        m_form = bytes.front() == '{' ? Form::Protocol : Form::Lines;
    return m_form == Form::Lines ? takeLines(bytes) : takeValues(bytes);
}

std::vector<std::string> StatusStream::takeValues(std::string_view bytes)
{
    std::vector<std::string> lines;
    for (std::string &value : m_splitter.take(bytes)) {
        if (value.front() == '{')
            m_wantsClicks = m_wantsClicks || glimmet::wantsClicks(value);
        else
            lines.push_back(std::move(value));
    }
    return lines;
}

std::vector<std::string> StatusStream::takeLines(std::string_view bytes)
{
    std::vector<std::string> lines;
    for (const char letter : bytes) {
        if (letter == '\n')
            lines.push_back(plainBlocks(std::exchange(m_line, {})));
        else if (m_line.size() < ValueSplitter::longestValue)
            m_line += letter;
    }
    return lines;
}

} // namespace glimmet
