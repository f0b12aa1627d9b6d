#include "app/CommandLine.h"

#include <gtest/gtest.h>

#include <vector>

namespace glimmet {
namespace {

using Wish = CommandLine::Wish;

CommandLine read(std::vector<const char *> arguments)
{
    arguments.insert(arguments.begin(), "glimmet");
    return readCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TEST(CommandLine, runsWithoutArguments)
{
    EXPECT_EQ(read({}), CommandLine{});
    EXPECT_EQ(readCommandLine(0, nullptr), CommandLine{});
}

TEST(CommandLine, asksForHelpOrForTheVersion)
{
    for (const char *argument : { "-h", "--help" })
        EXPECT_EQ(read({ argument }), (CommandLine{ Wish::Help }));
    for (const char *argument : { "-v", "--version" })
        EXPECT_EQ(read({ argument }), (CommandLine{ Wish::Version }));
}

TEST(CommandLine, isDecidedByTheFirstThatSaysSomething)
{
    EXPECT_EQ(read({ "--version", "--help", "x" }), (CommandLine{ Wish::Version }));
    EXPECT_EQ(read({ "x", "--help" }), (CommandLine{ Wish::Refuse, "x" }));
}

TEST(CommandLine, refusesWhatItDoesNotKnow)
{
    for (const char *argument :
        { "", "-", "--", "-V", "--verbose", "--help=yes", "-platform", "panel", "-session" })
        EXPECT_EQ(read({ argument }), (CommandLine{ Wish::Refuse, argument }));
}

TEST(CommandLine, leavesToQtWhatASessionManagerAdds)
{
    EXPECT_EQ(read({ "-session", "10d7_1700000000_42" }), CommandLine{});
    EXPECT_EQ(read({ "-session", "--help", "--version" }), (CommandLine{ Wish::Version }));
}

} // namespace
} // namespace glimmet
