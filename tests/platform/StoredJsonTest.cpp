#include "platform/StoredJson.h"

#include "tests/support/Printing.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

TEST(StoredJson, keepsByteOrderMarksWhereverTheyStandInATextOrAName)
{
    for (const QString &text :
        { u"\uFEFF"_s, u"\uFEFFa"_s, u"a\uFEFF"_s, u"\uFEFF\uFEFF€"_s, u"\\\uFEFF\""_s, u"\n\uFEFF"_s }) {
        const QJsonDocument document(QJsonArray{ text, QJsonObject{ { text, 1 } } });

        EXPECT_EQ(documentOf(document.toJson()), document) << text.toStdString();
        EXPECT_EQ(documentOf(document.toJson(QJsonDocument::Compact)), document) << text.toStdString();
    }
}

TEST(StoredJson, mayBeginWithTheFilesOwn)
{
    EXPECT_EQ(documentOf("\xEF\xBB\xBF[\"a\"]"), QJsonDocument(QJsonArray{ u"a"_s }));
}

TEST(StoredJson, isNothingWhereItIsNoJson)
{
    for (const char *json : { "", "\xEF\xBB\xBF", "[\xEF\xBB\xBF]", "\xEF\xBB\xBF\xEF\xBB\xBF[]", "[", "x" })
        EXPECT_TRUE(documentOf(json).isNull()) << json;
}

} // namespace
} // namespace glimmet
