#include "feed/FeedOptions.h"

namespace glimmet {
namespace {

using Wish = FeedOptions::Wish;

FeedOptions refused(const std::string &complaint)
{
    return { .wish = Wish::Refuse, .complaint = complaint };
}

FeedOptions checked(FeedOptions options, bool hasCommand)
{
    if (hasCommand && (options.format != FeedFormat::I3bar || options.wish != Wish::Follow))
        return refused("a command goes with --i3bar alone");
    if (hasCommand && options.command.empty())
        return refused("a command is missing behind '--'");
    if (options.wish == Wish::Once && options.format == FeedFormat::I3bar)
        return refused("--once does not go with --i3bar");
    // The monitor runs its command again and again.
    if (options.wish == Wish::Follow && options.format == FeedFormat::Genmon)
        options.wish = Wish::Once;
    return options;
}

} // namespace

FeedOptions readFeedOptions(const std::vector<std::string> &arguments)
{
    FeedOptions options;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == "-h" || *argument == "--help")
            return { .wish = Wish::Help };
        if (*argument == "-v" || *argument == "--version")
            return { .wish = Wish::Version };
        if (*argument == "--") {
            options.command.assign(argument + 1, arguments.end());
            return checked(options, true);
        }
        if (*argument == "--once")
            options.wish = Wish::Once;
        else if (*argument == "--activate")
            options.wish = Wish::Activate;
        else if (*argument == "--waybar")
            options.format = FeedFormat::Waybar;
        else if (*argument == "--i3bar")
            options.format = FeedFormat::I3bar;
        else if (*argument == "--polybar")
            options.format = FeedFormat::Polybar;
        else if (*argument == "--tmux")
            options.format = FeedFormat::Tmux;
        else if (*argument == "--genmon")
            options.format = FeedFormat::Genmon;
        else
            return refused("unknown argument '" + *argument + "'");
    }
    return checked(options, false);
}

} // namespace glimmet
