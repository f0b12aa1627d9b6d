#include "feed/FeedOptions.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using Wish = FeedOptions::Wish;
using Arguments = std::vector<std::string>;

TEST(FeedOptions, followTheTextAsItIsWithoutArguments)
{
    EXPECT_EQ(readFeedOptions({}), FeedOptions());
}

TEST(FeedOptions, nameTheFormat)
{
    EXPECT_EQ(readFeedOptions({ "--waybar" }), FeedOptions({ Wish::Follow, FeedFormat::Waybar }));
    EXPECT_EQ(readFeedOptions({ "--i3bar" }), FeedOptions({ Wish::Follow, FeedFormat::I3bar }));
    EXPECT_EQ(readFeedOptions({ "--polybar" }), FeedOptions({ Wish::Follow, FeedFormat::Polybar }));
    EXPECT_EQ(readFeedOptions({ "--tmux" }), FeedOptions({ Wish::Follow, FeedFormat::Tmux }));
}

TEST(FeedOptions, askForOneTextInAFormat)
{
    EXPECT_EQ(readFeedOptions({ "--once" }), FeedOptions({ Wish::Once, FeedFormat::Plain }));
    EXPECT_EQ(readFeedOptions({ "--once", "--waybar" }), FeedOptions({ Wish::Once, FeedFormat::Waybar }));
    EXPECT_EQ(readFeedOptions({ "--genmon" }), FeedOptions({ Wish::Once, FeedFormat::Genmon }));
}

TEST(FeedOptions, askForThePanel)
{
    EXPECT_EQ(readFeedOptions({ "--activate" }).wish, Wish::Activate);
}

TEST(FeedOptions, takeACommandWithArgumentsOfItsOwn)
{
    const FeedOptions options = readFeedOptions({ "--i3bar", "--", "i3status", "-c", "--help" });

    EXPECT_EQ(options.wish, Wish::Follow);
    EXPECT_EQ(options.command, Arguments({ "i3status", "-c", "--help" }));
}

TEST(FeedOptions, areReadUpToHelpAndVersion)
{
    for (const char *word : { "-h", "--help" })
        EXPECT_EQ(readFeedOptions({ "--waybar", word, "--sideways" }).wish, Wish::Help) << word;
    for (const char *word : { "-v", "--version" })
        EXPECT_EQ(readFeedOptions({ word, "--sideways" }).wish, Wish::Version) << word;
}

TEST(FeedOptions, areRefusedWithWhatIsWrong)
{
    const auto complaint = [](const Arguments &arguments) {
        const FeedOptions options = readFeedOptions(arguments);
        return options.wish == Wish::Refuse ? options.complaint : "taken";
    };

    EXPECT_EQ(complaint({ "--sideways" }), "unknown argument '--sideways'");
    EXPECT_EQ(complaint({ "i3status" }), "unknown argument 'i3status'");
    EXPECT_EQ(complaint({ "" }), "unknown argument ''");
    EXPECT_EQ(complaint({ "--i3bar", "--once" }), "--once does not go with --i3bar");
    EXPECT_EQ(complaint({ "--i3bar", "--" }), "a command is missing behind '--'");
    EXPECT_EQ(complaint({ "--", "i3status" }), "a command goes with --i3bar alone");
    EXPECT_EQ(complaint({ "--i3bar", "--activate", "--", "date" }), "a command goes with --i3bar alone");
}

} // namespace
} // namespace glimmet
