#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace glimmet {

/// Takes the two streams of i3bar's protocol apart into their values: an object as header, which only one of
/// them has, and the elements, arrays or objects, of an array that never ends. It looks at nothing but quotes
/// and brackets; a value is for a parser to read.
class ValueSplitter {
public:
    /// The longest value that is taken, in bytes.
    static constexpr std::size_t longestValue = std::size_t(1) << 20;

    /// The values that end in `bytes`, the next piece of the stream, each as it was written.
    std::vector<std::string> take(std::string_view bytes);
    /// Whether the stream is none of this protocol's, or holds too long a value. It then has no further ones.
    bool isBroken() const { return m_isBroken; }

private:
    void takeBetween(char letter);
    bool endsValue(char letter);

    std::string m_value;
    int m_depth = 0; ///< within the value
    bool m_isInArray = false; ///< within the one that never ends
    bool m_isInString = false;
    bool m_isEscaped = false;
    bool m_isBroken = false;
};

} // namespace glimmet
