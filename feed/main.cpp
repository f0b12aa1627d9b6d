#include "feed/BusCalls.h"
#include "feed/Feed.h"
#include "feed/FeedOptions.h"
#include "feed/Formats.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>

using namespace glimmet;

namespace {

constexpr const char *usage = "Usage: glimmet-feed [--waybar | --polybar | --tmux] [--once]\n"
                              "       glimmet-feed --i3bar [-- COMMAND...]\n"
                              "       glimmet-feed --genmon | --activate | --help | --version\n";
constexpr const char *explanation =
    "Prints glimmet's text, a line for each change, for a bar that reads text.\n"
    "\n"
    "      --waybar    JSON for a custom module of Waybar, with \"return-type\": \"json\"\n"
    "      --i3bar     the protocol of i3bar and swaybar, before the blocks of a COMMAND such as i3status;\n"
    "                  a click on the text opens the panel\n"
    "      --polybar   the text without tags of polybar in it\n"
    "      --tmux      the text without formats of tmux in it\n"
    "      --genmon    once what XFCE's generic monitor reads\n"
    "      --once      the text as it is now, and end\n"
    "      --activate  open the panel and end\n"
    "  -h, --help      show this and end\n"
    "  -v, --version   show the version and end\n"
    "\n"
    "It waits for glimmet, prints an empty line when that is gone, and ends when its reader does.\n";

/// A bus that takes a connection and then says nothing would hold up a bar that waits for this program.
constexpr unsigned longestWait = 10; // seconds

void endInSilence(int)
{
    constexpr std::string_view complaint = "glimmet-feed: the session bus does not answer\n";
    const ssize_t written = write(STDERR_FILENO, complaint.data(), complaint.size());
    _exit(written < 0 ? 2 : 1);
}

void limitWaiting()
{
    std::signal(SIGALRM, endInSilence);
    alarm(longestWait);
}

int printed(const std::string &text)
{
    return std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0 ? 0 : 1;
}

/// The exit status for one question to glimmet.
int statusOf(Answer answer)
{
    if (answer == Answer::NoBus)
        std::fputs("glimmet-feed: there is no session bus\n", stderr);
    if (answer == Answer::NotRunning)
        std::fputs("glimmet-feed: glimmet does not run\n", stderr);
    return answer == Answer::Given ? 0 : 1;
}

int printOnce(FeedFormat format)
{
    limitWaiting();
    FeedText text;
    const Answer answer = readText(text);
    // The monitor would show the complaint in the bar.
    const int status = format == FeedFormat::Genmon ? 0 : statusOf(answer);
    return status == 0 ? printed(formatted(format, text) + '\n') : status;
}

int activate()
{
    limitWaiting();
    return statusOf(openPanel());
}

} // namespace

int main(int argc, char *argv[])
{
    // Some bars leave it ignored in what they start: that nobody reads is found by writing, everywhere alike.
    std::signal(SIGPIPE, SIG_IGN);
    const FeedOptions options = readFeedOptions({ argv + 1, argv + argc });
    switch (options.wish) {
    case FeedOptions::Wish::Follow:
        return Feed(options).run();
    case FeedOptions::Wish::Once:
        return printOnce(options.format);
    case FeedOptions::Wish::Activate:
        return activate();
    case FeedOptions::Wish::Help:
        return printed(std::string(usage) + explanation);
    case FeedOptions::Wish::Version:
        return printed("glimmet-feed " GLIMMET_VERSION "\n");
    case FeedOptions::Wish::Refuse:
        std::fprintf(stderr, "glimmet-feed: %s\n%s", options.complaint.c_str(), usage);
        return 2;
    }
    return 2;
}
