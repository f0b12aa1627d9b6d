#pragma once

#include "feed/Formats.h"

#include <string>
#include <vector>

namespace glimmet {

/// What a command line of the feed asks for.
struct FeedOptions {
    enum class Wish { Follow, Once, Activate, Help, Version, Refuse };

    Wish wish = Wish::Follow;
    FeedFormat format = FeedFormat::Plain;
    std::vector<std::string> command = {}; ///< what prints the other blocks of i3bar; none where empty
    std::string complaint = {}; ///< what is wrong with a command line that is refused

    bool operator==(const FeedOptions &) const = default;
};

/// Reads the arguments behind the program's name. Help, version and what is wrong end the reading where they
/// stand.
FeedOptions readFeedOptions(const std::vector<std::string> &arguments);

} // namespace glimmet
