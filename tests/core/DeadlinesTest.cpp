#include "core/Deadlines.h"
#include "core/PreferencesKeys.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryPreferences.h"
#include "tests/support/Printing.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

const QString key = PreferencesKeys::deadlines;

class DeadlinesTest : public testing::Test {
protected:
    /// One that falls due `time` from now.
    Deadline in(std::chrono::seconds time, const QString &title) const
    {
        return { QUuid::createUuid(), title, clock.now().advanced(static_cast<double>(time.count())) };
    }
    static QStringList titles(const QList<Deadline> &list)
    {
        QStringList all;
        for (const Deadline &deadline : list)
            all.append(deadline.title);
        return all;
    }
    void tick(int count)
    {
        for (int i = 0; i < count; ++i)
            deadlines.tick();
    }

    MemoryPreferences preferences;
    ManualClock clock;
    Deadlines deadlines{ preferences, clock };
    QSignalSpy changes{ &deadlines, &Deadlines::changed };
};

TEST_F(DeadlinesTest, takeOverWhatIsStored)
{
    const QList<Deadline> stored{ in(1h, u"launch"_s), in(-1h, u"missed"_s) };
    preferences.setData(key, deadlinesToJson(stored).value());

    deadlines.load();

    EXPECT_EQ(deadlines.all(), stored);
}

TEST_F(DeadlinesTest, leaveAloneWhatIsStoredAndCannotBeRead)
{
    preferences.setData(key, "[{]");
    preferences.forgetWrites();

    deadlines.load();

    EXPECT_THAT(preferences.writes(), IsEmpty());
    EXPECT_EQ(preferences.data(key), QByteArray("[{]"));
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(DeadlinesTest, areStoredAlsoWhereTheyAreEqualAndTellOnlyOfAChange)
{
    const QList<Deadline> all{ in(1h, u"launch"_s) };

    deadlines.setAll(all);
    deadlines.setAll(all);

    EXPECT_THAT(preferences.writes(), ElementsAre(key, key));
    EXPECT_EQ(preferences.data(key), deadlinesToJson(all));
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(DeadlinesTest, areUpcomingUntilTheyFallDueTheEarliestFirst)
{
    deadlines.setAll({ in(3h, u"late"_s), in(1h, u"soon"_s), in(-1h, u"missed"_s) });
    EXPECT_EQ(titles(deadlines.upcoming()), QStringList({ u"soon"_s, u"late"_s }));

    clock.pass(1h);

    EXPECT_EQ(titles(deadlines.upcoming()), QStringList{ u"late"_s });
    EXPECT_EQ(deadlines.all().size(), 3);
}

TEST_F(DeadlinesTest, arePutInTheirOrderByAddingOne)
{
    deadlines.add(u" late "_s, clock.now().advanced(200));
    deadlines.add(u"soon"_s, clock.now().advanced(100));
    deadlines.add(u"  "_s, clock.now().advanced(300));

    EXPECT_EQ(titles(deadlines.all()), QStringList({ u"soon"_s, u"late"_s }));
}

TEST_F(DeadlinesTest, loseTheOneThatIsRemoved)
{
    const Deadline first = in(1h, u"same"_s);
    const Deadline second = in(1h, u"same"_s);
    deadlines.setAll({ first, second });

    deadlines.remove(first.id);

    EXPECT_EQ(deadlines.all(), QList<Deadline>{ second });
}

TEST_F(DeadlinesTest, areClearedWhetherTheyHavePassedOrNot)
{
    deadlines.setAll({ in(1h, u"launch"_s), in(-1h, u"missed"_s) });

    deadlines.clear();

    EXPECT_THAT(deadlines.all(), IsEmpty());
    EXPECT_EQ(preferences.data(key), QByteArray("[]"));
}

TEST_F(DeadlinesTest, turnEveryEightTicksAmongThoseToCome)
{
    deadlines.setAll({ in(-1h, u"missed"_s), in(1h, u"soon"_s), in(3h, u"late"_s) });

    tick(7);
    EXPECT_EQ(deadlines.display(), u"soon: 1h 0m"_s);
    tick(1);
    EXPECT_EQ(deadlines.display(), u"late: 3h 0m"_s);
    tick(8);
    EXPECT_EQ(deadlines.display(), u"soon: 1h 0m"_s);
    tick(8);
    EXPECT_EQ(deadlines.display(), u"late: 3h 0m"_s);
}

TEST_F(DeadlinesTest, countDownWithTheClock)
{
    deadlines.setAll({ in(90min, u"launch"_s) });
    EXPECT_EQ(deadlines.display(), u"launch: 1h 30m"_s);

    clock.pass(31min);
    EXPECT_EQ(deadlines.display(), u"launch: 59m"_s);

    clock.pass(59min);
    EXPECT_EQ(deadlines.display(), u"no deadlines"_s);
}

} // namespace
} // namespace glimmet
