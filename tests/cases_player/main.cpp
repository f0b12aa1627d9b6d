#include "tests/cases_player/FatalCasePlay.h"
#include "tests/cases_player/OwnProcess.h"
#include "tests/cases_player/PriceCasePlay.h"
#include "tests/cases_player/RevenueCasePlay.h"

#include <QCoreApplication>
#include <QDirIterator>

#include <cstdio>
#include <sys/resource.h>

using namespace glimmet;

namespace {

using namespace Qt::StringLiterals;

QStringList casesIn(const QString &folder)
{
    QStringList paths;
    QDirIterator files(folder, { u"*.json"_s }, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        paths.append(files.next());
    paths.sort();
    return paths;
}

void say(const QString &line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

Differences played(const AnswerCase &answers, const QString &path)
{
    if (answers.isPrice())
        return playPriceCase(answers);
    return answers.isFatal ? playFatalCase(answers, path) : playRevenueCase(answers);
}

/// Plays the case in the file at `path` and says how that went.
bool passes(const QString &path, int argc, char **argv)
{
    const auto read = readCase(path);
    if (const auto *reason = std::get_if<QString>(&read)) {
        say("FAIL "_L1 + path + ": "_L1 + *reason);
        return false;
    }
    const auto &answers = std::get<AnswerCase>(read);
    const QString name = answers.source + u'/' + answers.name;
    const PlayEnd end = playInOwnProcess([&] {
        QCoreApplication application(argc, argv);
        const Differences differences = played(answers, path);
        say(differences.isEmpty() ? "ok "_L1 + name : "FAIL "_L1 + name + ": "_L1 + differences.summary());
        return differences.isEmpty();
    });
    if (end == PlayEnd::Crashed)
        say("FAIL "_L1 + name + ": the process: expected \"goes on\", got \"ended\""_L1);
    return end == PlayEnd::Passed;
}

int playFolders(int argc, char **argv)
{
    int passed = 0;
    int failed = 0;
    for (int i = 1; i < argc; ++i)
        for (const QString &path : casesIn(QString::fromLocal8Bit(argv[i])))
            ++(passes(path, argc, argv) ? passed : failed);
    say(u"%1 passed, %2 failed"_s.arg(passed).arg(failed));
    // Where nothing was played, nothing is known to be right.
    return failed == 0 && passed > 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    // Cases that end the process are no crashes to be looked into.
    constexpr rlimit none{ 0, 0 };
    setrlimit(RLIMIT_CORE, &none);
    if (argc < 2) {
        std::fputs("usage: glimmet-cases FOLDER…\n", stderr);
        return 2;
    }
    if (qstrcmp(argv[1], "--ask") != 0)
        return playFolders(argc, argv);
    const QCoreApplication application(argc, argv);
    return askForFigure(QCoreApplication::arguments().sliced(2));
}
