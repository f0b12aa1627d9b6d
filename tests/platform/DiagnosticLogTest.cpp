#include "platform/DiagnosticLog.h"

#include "tests/platform/ChildProcess.h"
#include "tests/platform/TestFolder.h"
#include "tests/support/Printing.h"

#include <QDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// What is in the pipe or socket now.
QByteArray readNow(int descriptor)
{
    fcntl(descriptor, F_SETFL, O_NONBLOCK);
    QByteArray all;
    char chunk[4096];
    for (ssize_t size = 0; (size = read(descriptor, chunk, sizeof chunk)) > 0;)
        all.append(chunk, size);
    return all;
}

bool isNonBlocking(int descriptor)
{
    return (fcntl(descriptor, F_GETFL) & O_NONBLOCK) != 0;
}

void fill(int descriptor)
{
    fcntl(descriptor, F_SETFL, O_NONBLOCK);
    const QByteArray chunk(4096, '\n');
    for (qsizetype size = chunk.size(); size > 0;) {
        if (write(descriptor, chunk.constData(), static_cast<size_t>(size)) < 0)
            size /= 2;
    }
    fcntl(descriptor, F_SETFL, 0);
}

TEST(DiagnosticLog, writesALineAtOnceIntoAPipe)
{
    const Pipe pipe;
    DiagnosticLog log(pipe.writer());

    log.line(u"Stripe HTTP 200"_s);
    EXPECT_EQ(readNow(pipe.reader()), "[glimmet] Stripe HTTP 200\n");
    log.line(u"⚡️"_s);
    EXPECT_EQ(readNow(pipe.reader()), "[glimmet] ⚡️\n");
}

TEST(DiagnosticLog, turnsLineBreaksIntoBlanks)
{
    const Pipe pipe;
    DiagnosticLog(pipe.writer()).line(u"a\nb\r\nc\n"_s);

    EXPECT_EQ(readNow(pipe.reader()), "[glimmet] a b  c \n");
}

/// What all three ways of writing make of "a", the character and "b".
QByteArrayList written(char16_t character)
{
    const QString message = u'a' + QString(QChar(character)) + u'b';
    const Pipe pipe;
    DiagnosticLog log(pipe.writer());
    log.line(message);
    const QByteArray line = readNow(pipe.reader());
    log.plainLine(message);
    const QByteArray plainLine = readNow(pipe.reader());
    log.privateText(u"head:"_s, message);
    return { line, plainLine, readNow(pipe.reader()) };
}

QByteArrayList writtenAs(const QByteArray &message)
{
    return { "[glimmet] " + message + '\n', message + '\n', "[glimmet] head:\n" + message + '\n' };
}

TEST(DiagnosticLog, steersNoTerminal)
{
    const auto range = [](char16_t first, char16_t last) {
        QList<char16_t> all;
        for (char16_t character = first; character <= last; ++character)
            all.append(character);
        return all;
    };
    QList<char16_t> steering = range(0, u'\t' - 1) + range(u'\n' + 1, 0x1f) + range(0x7f, 0x9f);
    steering += { 0x061c, 0x200e, 0x200f };
    steering += range(0x202a, 0x202e) + range(0x2066, 0x2069);
    for (const char16_t character : steering)
        EXPECT_EQ(written(character), writtenAs("a b")) << int(character);
}

TEST(DiagnosticLog, writesWhatOnlyLooksLikeIt)
{
    // Among them the neighbours of what is blanked; a byte of "ı" in UTF-8 is one of C1's codes.
    for (const char16_t character :
        std::u16string_view(u" ~\u00a0é±ı\u061b\u061d\u200d\u2010\u2029\u202f\u2065\u206a\u0622漢"))
        EXPECT_EQ(written(character), writtenAs("a" + QString(QChar(character)).toUtf8() + "b"))
            << int(character);
}

TEST(DiagnosticLog, keepsTheTabsOfALineOnly)
{
    EXPECT_EQ(written(u'\t'), (QByteArrayList{ "[glimmet] a\tb\n", "a\tb\n", "[glimmet] head:\na b\n" }));
}

TEST(DiagnosticLog, keepsTheLinesOfATextOnly)
{
    const Pipe pipe;
    DiagnosticLog log(pipe.writer());

    log.privateText(u"head\nor\rtail:"_s, u"{\r\n\t\x1b[31m}\u202e"_s);

    EXPECT_EQ(readNow(pipe.reader()), "[glimmet] head or tail:\n{ \n  [31m} \n");
}

/// How the service manager names what `descriptor` is connected to.
QByteArray streamName(int descriptor)
{
    struct stat info{};
    EXPECT_EQ(fstat(descriptor, &info), 0);
    return QByteArray::number(info.st_dev) + ':' + QByteArray::number(info.st_ino);
}

/// What becomes of all kinds of lines on a pipe while JOURNAL_STREAM names `stream`.
QByteArray writtenWhereTheJournalIs(const QByteArray &stream, const Pipe &pipe)
{
    qputenv("JOURNAL_STREAM", stream);
    DiagnosticLog log(pipe.writer());
    log.line(u"Stripe HTTP 200"_s);
    log.privateLine(u"BTC: $97000.0"_s);
    log.privateText(u"Stripe page:"_s, u"{\n\"name\":\"Ann\"}"_s);
    qunsetenv("JOURNAL_STREAM");
    return readNow(pipe.reader());
}

TEST(DiagnosticLog, keepsWhatIsPrivateOutOfTheJournal)
{
    const Pipe pipe;

    EXPECT_EQ(writtenWhereTheJournalIs(streamName(pipe.writer()), pipe), "[glimmet] Stripe HTTP 200\n");
}

TEST(DiagnosticLog, isNoJournalBecauseAnotherStreamIsOne)
{
    const Pipe pipe;
    const Pipe other;

    for (const QByteArray &stream :
        { streamName(other.writer()), "8:"_ba + streamName(pipe.writer()), ""_ba })
        EXPECT_EQ(writtenWhereTheJournalIs(stream, pipe),
            "[glimmet] Stripe HTTP 200\n[glimmet] BTC: $97000.0\n[glimmet] Stripe "
            "page:\n{\n\"name\":\"Ann\"}\n")
            << stream.toStdString();
}

/// What a child's log writes to the journal's own socket, which is the test's in a file system of its own:
/// the child's status says whether that is `expected`.
int writesToJournal(const QByteArray &expected)
{
    unshare(CLONE_NEWNS);
    if (mount("tmpfs", "/run", "tmpfs", 0, nullptr) != 0)
        return 2;
    QDir().mkpath(u"/run/systemd/journal"_s);
    sockaddr_un address{ AF_UNIX, "/run/systemd/journal/stdout" };
    auto *const generic = reinterpret_cast<sockaddr *>(&address);
    const int journal = socket(AF_UNIX, SOCK_STREAM, 0);
    const int stream = socket(AF_UNIX, SOCK_STREAM, 0);
    if (bind(journal, generic, sizeof address) != 0 || listen(journal, 1) != 0
        || connect(stream, generic, sizeof address) != 0)
        return 3;
    DiagnosticLog log(stream);
    log.line(u"Stripe HTTP 200"_s);
    log.privateLine(u"BTC: $97000.0"_s);
    log.privateText(u"Stripe page:"_s, u"{}"_s);
    return readNow(accept(journal, nullptr, nullptr)) == expected ? 0 : 1;
}

TEST(DiagnosticLog, knowsTheJournalByItsSocketWhereTheEnvironmentDoesNotNameIt)
{
    ChildProcess child([] { return writesToJournal("[glimmet] Stripe HTTP 200\n"); });

    EXPECT_EQ(child.wait(), 0);
}

TEST(DiagnosticLog, leavesAPipeThatOthersShareBlocking)
{
    const Pipe pipe;
    DiagnosticLog(pipe.writer()).line(u"a"_s);

    EXPECT_FALSE(isNonBlocking(pipe.writer()));
}

TEST(DiagnosticLog, losesLinesToAFullPipeWithoutWaiting)
{
    const Pipe pipe;
    fill(pipe.writer());
    DiagnosticLog log(pipe.writer());
    log.line(u"lost"_s);

    const QByteArray filling = readNow(pipe.reader());
    EXPECT_EQ(filling.count('\n'), filling.size());
    log.line(u"seen"_s);
    EXPECT_EQ(readNow(pipe.reader()), "[glimmet] seen\n");
}

TEST(DiagnosticLog, neverCutsALineShorterThanThePipesUnit)
{
    const Pipe pipe;
    DiagnosticLog log(pipe.writer());
    for (int i = 0; i < 5000; ++i)
        log.line(QString(100, u'x'));

    const QByteArrayList lines = readNow(pipe.reader()).split('\n');
    EXPECT_GT(lines.size(), 100);
    EXPECT_TRUE(lines.last().isEmpty());
    for (const QByteArray &line : lines.mid(0, lines.size() - 1))
        ASSERT_EQ(line, "[glimmet] " + QByteArray(100, 'x'));
}

TEST(DiagnosticLog, endsALineThatAPipeTookOnlyInPartBeforeTheNext)
{
    const Pipe pipe;
    DiagnosticLog log(pipe.writer());
    log.line(QString(1'000'000, u'x'));
    const QByteArray part = readNow(pipe.reader());
    ASSERT_FALSE(part.contains('\n'));

    log.line(u"next"_s);
    EXPECT_EQ(readNow(pipe.reader()), "\n[glimmet] next\n");
    log.line(u"another"_s);
    EXPECT_EQ(readNow(pipe.reader()), "[glimmet] another\n");
}

TEST(DiagnosticLog, outlivesTheReaderOfItsPipe)
{
    Pipe pipe;
    DiagnosticLog log(pipe.writer());
    pipe.closeReader();

    log.line(u"a"_s);
    log.line(u"b"_s);
}

TEST(DiagnosticLog, startsOnAPipeWithoutAReader)
{
    Pipe pipe;
    pipe.closeReader();

    DiagnosticLog(pipe.writer()).line(u"a"_s);
}

TEST(DiagnosticLog, bearsAFullDevice)
{
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(full, 0);
    DiagnosticLog log(full);
    log.line(u"a"_s);
    log.line(u"b"_s);
    close(full);
}

TEST(DiagnosticLog, writesNothingIntoWhatIsOpenedLaterUnderAClosedNumber)
{
    const TestFolder folder;
    const QByteArray path = QFile::encodeName(folder.file());
    const int number = open("/dev/null", O_WRONLY | O_CLOEXEC);
    close(number);
    DiagnosticLog log(number);
    const int reused = open(path.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(reused, number);

    log.line(u"a"_s);
    close(reused);

    EXPECT_EQ(contentOf(folder.file()), "");
}

TEST(DiagnosticLog, writesIntoASocketWithoutWaitingForIt)
{
    int ends[2]{};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    DiagnosticLog log(ends[1]);
    log.line(u"a"_s);
    EXPECT_EQ(readNow(ends[0]), "[glimmet] a\n");

    for (int i = 0; i < 10'000; ++i)
        log.line(QString(100, u'x'));
    EXPECT_FALSE(isNonBlocking(ends[1]));
    close(ends[0]);
    log.line(u"b"_s);
    close(ends[1]);
}

TEST(DiagnosticLog, appendsToARegularFileBetweenTheLinesOfOthers)
{
    const TestFolder folder;
    const QByteArray path = QFile::encodeName(folder.file());
    const int mine = open(path.constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const int others = open(path.constData(), O_WRONLY | O_APPEND | O_CLOEXEC);
    DiagnosticLog log(mine);

    log.line(u"a"_s);
    ASSERT_EQ(write(others, "other\n", 6), 6);
    log.line(u"b"_s);

    EXPECT_EQ(contentOf(folder.file()), "[glimmet] a\nother\n[glimmet] b\n");
    close(mine);
    close(others);
}

TEST(DiagnosticLog, continuesARedirectedFileWhereItIsShared)
{
    const TestFolder folder;
    const int shared =
        open(QFile::encodeName(folder.file()).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    DiagnosticLog log(shared);

    ASSERT_EQ(write(shared, "before\n", 7), 7);
    log.line(u"a"_s);
    ASSERT_EQ(write(shared, "after\n", 6), 6);

    EXPECT_EQ(contentOf(folder.file()), "before\n[glimmet] a\nafter\n");
    close(shared);
}

TEST(DiagnosticLog, keepsTheLinesOfManyThreadsWhole)
{
    const TestFolder folder;
    const QByteArray path = QFile::encodeName(folder.file());
    const int file = open(path.constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    DiagnosticLog log(file);
    {
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([&log] {
                for (int i = 0; i < 250; ++i)
                    log.line(QString(200, u'x'));
            });
        }
    }
    close(file);

    const QByteArray line = "[glimmet] " + QByteArray(200, 'x') + '\n';
    EXPECT_EQ(contentOf(folder.file()), line.repeated(1000));
}

} // namespace
} // namespace glimmet
