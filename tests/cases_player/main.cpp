#include "tests/cases_player/FatalCasePlay.h"
#include "tests/cases_player/PriceCasePlay.h"
#include "tests/cases_player/RevenueCasePlay.h"

#include <QCoreApplication>
#include <QDirIterator>

#include <cstdio>

using namespace glimmet;

namespace {

using namespace Qt::StringLiterals;

QStringList casesIn(const QString &folder)
{
    QStringList paths;
    for (QDirIterator files(folder, { u"*.json"_s }, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();)
        paths.append(files.next());
    paths.sort();
    return paths;
}

Differences played(const AnswerCase &read, const QString &path)
{
    if (read.isPrice())
        return playPriceCase(read);
    return read.isFatal ? playFatalCase(read, path) : playRevenueCase(read);
}

void say(const QString &line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

/// Plays the case in the file at `path` and says how that went.
bool passes(const QString &path)
{
    const auto read = readCase(path);
    if (const auto *reason = std::get_if<QString>(&read)) {
        say("FAIL "_L1 + path + ": "_L1 + *reason);
        return false;
    }
    const auto &answerCase = std::get<AnswerCase>(read);
    const QString name = answerCase.source + u'/' + answerCase.name;
    const Differences differences = played(answerCase, path);
    say(differences.isEmpty() ? "ok "_L1 + name : "FAIL "_L1 + name + ": "_L1 + differences.summary());
    return differences.isEmpty();
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.value(0) == u"--ask"_s)
        return askInOwnProcess(arguments.mid(1));
    if (arguments.isEmpty()) {
        std::fputs("usage: glimmet-cases FOLDER…\n", stderr);
        return 2;
    }
    int passed = 0;
    int failed = 0;
    for (const QString &folder : arguments)
        for (const QString &path : casesIn(folder))
            ++(passes(path) ? passed : failed);
    say(u"%1 passed, %2 failed"_s.arg(passed).arg(failed));
    // Where nothing was played, nothing is known to be right.
    return failed == 0 && passed > 0 ? 0 : 1;
}
