#include "ui/editors/DeadlineForm.h"

#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

using testing::ElementsAre;

class DeadlineFormTest : public TickerTest {
protected:
    DeadlineFormTest() { form.setTicker(&ticker); }

    DeadlineForm form;
};

TEST_F(DeadlineFormTest, addsOnlyWhatHasATitle)
{
    for (const QString &title : { u""_s, u"   "_s, u"\t\u3000"_s }) {
        form.setTitle(title);
        EXPECT_FALSE(form.canAdd());
        form.add();
        EXPECT_EQ(form.title(), title);
    }
    EXPECT_TRUE(ticker.deadlines().isEmpty());
}

TEST_F(DeadlineFormTest, addsTheTrimmedTitleWithItsDateAndBeginsAnew)
{
    form.setTitle(u"  Math Exam "_s);
    EXPECT_TRUE(form.canAdd());
    form.date()->setNumber(0, 20);

    form.add();

    ASSERT_EQ(ticker.deadlines().size(), 1);
    EXPECT_EQ(ticker.deadlines().first().title, u"Math Exam"_s);
    EXPECT_EQ(ticker.deadlines().first().date, instantAt(u"2026-05-20T08:05:00Z"_s));
    EXPECT_EQ(form.title(), QString());
    EXPECT_FALSE(form.canAdd());
    EXPECT_EQ(form.date()->settledMoment(), world.clock.now().advanced(86400));
}

TEST_F(DeadlineFormTest, saysAfterAddingThatThePastWasMovedToNowUntilTheNextIsAdded)
{
    form.setTitle(u"Math Exam"_s);
    form.date()->setNumber(0, 1);
    form.add();
    EXPECT_EQ(ticker.deadlines().first().date, world.clock.now());
    EXPECT_EQ(form.date()->note(), u"That moment is past: it was moved to now."_s);

    form.setTitle(u"Physics Exam"_s);
    form.add();

    EXPECT_EQ(form.date()->note(), QString());
}

TEST_F(DeadlineFormTest, savesADeadlineThatThereIs)
{
    ticker.addDeadline(u"Math Exam"_s, world.clock.now().advanced(300));
    const Deadline before = ticker.deadlines().first();
    form.begin(before.id.toString(QUuid::WithoutBraces));
    EXPECT_EQ(form.title(), u"Math Exam"_s);

    form.save();
    EXPECT_EQ(ticker.deadlines(), QList<Deadline>{ before });
    form.setTitle(u" Physics Exam "_s);
    form.date()->setNumber(0, 20);
    form.save();

    EXPECT_THAT(ticker.deadlines(),
        ElementsAre(Deadline{ before.id, u"Physics Exam"_s, instantAt(u"2026-05-20T08:10:00Z"_s) }));
}

TEST_F(DeadlineFormTest, changesNoOtherDeadlineThatSharesTheIdentityOfTheEditedOne)
{
    const Deadline one = world.deadline(u"one"_s, 10);
    Deadline twin = world.deadline(u"twin"_s, 20);
    twin.id = one.id;
    ticker.setDeadlines({ one, twin });

    form.begin(one.id.toString(QUuid::WithoutBraces));
    EXPECT_EQ(form.title(), u"one"_s);
    form.save();

    EXPECT_THAT(ticker.deadlines(), ElementsAre(one, twin));
}

} // namespace
} // namespace glimmet
