#include "revenue/AnswerChecks.h"

#include "tests/support/CapturedLog.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const ApiKey key(u"sk_live_51Hq0aaEXAMPLE"_s);

/// What becomes of one answer.
class AnswerChecks : public testing::Test {
protected:
    /// The error text, or "body: " and the body.
    QString checked(const HttpResult &result)
    {
        const auto body = checkedBody(result, rules, apiKey, log.log());
        if (const auto *error = std::get_if<RevenueResult>(&body))
            return error->text;
        return "body: "_L1 + QString::fromUtf8(std::get<QByteArray>(body));
    }
    /// What the log holds of a body.
    QByteArray logged(const QByteArray &body)
    {
        const qsizetype before = log.written().size();
        checked(HttpAnswer{ 200, body });
        return log.written().sliced(before + qsizetype(strlen("[glimmet] Stripe HTTP 200\n")));
    }

    CapturedLog log;
    AnswerRules rules{ .service = u"Stripe"_s, .body = u"page"_s, .headLength = 10 };
    ApiKey apiKey = key;
};

TEST_F(AnswerChecks, isItsBodyWhereAllIsWell)
{
    EXPECT_EQ(checked(HttpAnswer{ 200, "{}" }), u"body: {}"_s);
    EXPECT_EQ(log.written(), "[glimmet] Stripe HTTP 200\n[glimmet] Stripe page:\n{}\n");
}

TEST_F(AnswerChecks, isATransportFailureInWordsBeforeAnythingElse)
{
    EXPECT_EQ(checked(TransportFailure::TimedOut), u"⚠ the request timed out"_s);
    EXPECT_EQ(checked(TransportFailure::ServerNotFound), u"⚠ the server cannot be found"_s);
    EXPECT_EQ(checked(TransportFailure::ConnectionLost), u"⚠ the connection was lost"_s);
    EXPECT_EQ(checked(TransportFailure::InvalidHeader), u"⚠ key cannot be sent"_s);
    EXPECT_EQ(checked(TransportFailure::InvalidAddress), u"⚠ url error"_s);
    EXPECT_EQ(log.written(), "");
}

TEST_F(AnswerChecks, lacksANetworkWhereTheRequestCameToNobody)
{
    const auto lacksNetwork = [this](const HttpResult &result) {
        return std::get<RevenueResult>(checkedBody(result, rules, apiKey, log.log())).lacksNetwork;
    };

    EXPECT_TRUE(lacksNetwork(TransportFailure::ServerNotFound));
    EXPECT_TRUE(lacksNetwork(TransportFailure::CannotConnect));
    EXPECT_FALSE(lacksNetwork(TransportFailure::TimedOut));
    EXPECT_FALSE(lacksNetwork(TransportFailure::InvalidAddress));
    EXPECT_FALSE(lacksNetwork(HttpAnswer{ 401, "{}" }));
    EXPECT_FALSE(lacksNetwork(HttpAnswer{ 200, "" }));
}

TEST_F(AnswerChecks, isTheStatusInWordsBeforeTheBody)
{
    EXPECT_EQ(checked(HttpAnswer{ 401, "{}" }), u"⚠ invalid key"_s);
    EXPECT_EQ(checked(HttpAnswer{ 403, "{}" }), u"⚠ forbidden"_s);
    EXPECT_EQ(checked(HttpAnswer{ 401, "" }), u"⚠ invalid key"_s);
    EXPECT_EQ(
        log.written(), "[glimmet] Stripe HTTP 401\n[glimmet] Stripe HTTP 403\n[glimmet] Stripe HTTP 401\n");
}

TEST_F(AnswerChecks, isAnyOtherStatusByItsNumber)
{
    for (const int status : { 201, 204, 206, 301, 302, 304, 400, 402, 404, 409, 422, 429, 500, 503 })
        EXPECT_EQ(checked(HttpAnswer{ status, "{}" }), u"⚠ http "_s + QString::number(status));
    EXPECT_FALSE(log.written().contains("page"));
}

TEST_F(AnswerChecks, isAnErrorWithoutABody)
{
    EXPECT_EQ(checked(HttpAnswer{ 200, "" }), u"⚠ empty"_s);
    EXPECT_EQ(log.written(), "[glimmet] Stripe HTTP 200\n");
}

TEST_F(AnswerChecks, hasTheWordsOfItsService)
{
    rules = { .service = u"Polar"_s,
        .body = u"response"_s,
        .headLength = 3,
        .empty = u"⚠ empty response"_s,
        .forbidden = u"⚠ no permission"_s,
        .unprocessable = u"⚠ bad request"_s };

    EXPECT_EQ(checked(HttpAnswer{ 403, "{}" }), u"⚠ no permission"_s);
    EXPECT_EQ(checked(HttpAnswer{ 422, "{}" }), u"⚠ bad request"_s);
    EXPECT_EQ(checked(HttpAnswer{ 200, "" }), u"⚠ empty response"_s);
    EXPECT_EQ(checked(HttpAnswer{ 200, "{ }{" }), u"body: { }{"_s);
    EXPECT_TRUE(log.written().endsWith("[glimmet] Polar HTTP 200\n[glimmet] Polar response:\n{ }\n"));
}

TEST_F(AnswerChecks, isLoggedUpToItsServicesNumberOfCharacters)
{
    EXPECT_EQ(logged("0123456789"), "[glimmet] Stripe page:\n0123456789\n");
    EXPECT_EQ(logged("0123456789x"), "[glimmet] Stripe page:\n0123456789\n");
    EXPECT_EQ(
        logged("012345678👨‍👩‍👧x"), "[glimmet] Stripe page:\n012345678👨‍👩‍👧\n");
}

TEST_F(AnswerChecks, isLoggedWithItsLineBreaks)
{
    EXPECT_EQ(logged("{\n \"a\":\n12}"), "[glimmet] Stripe page:\n{\n \"a\":\n12\n");
}

TEST_F(AnswerChecks, isNotLoggedWhereItIsNoUtf8)
{
    EXPECT_EQ(logged("{\"a\":\"\xFF\"}"), "");
    EXPECT_EQ(logged(QByteArray(1000, 'x') + '\xC3'), "");
}

TEST_F(AnswerChecks, isLoggedWithoutTheKeyThatTheServerSendsBack)
{
    EXPECT_EQ(logged("a sk_live_51Hq0aaEXAMPLE b"), "[glimmet] Stripe page:\na ••• b\n");
    EXPECT_EQ(logged("sk_live_51Hq0aaEXAMPLEsk_live_51Hq0aaEXAMPLE"), "[glimmet] Stripe page:\n••••••\n");
}

TEST_F(AnswerChecks, isMaskedBeforeItIsCut)
{
    // The cut goes through the key.
    EXPECT_EQ(logged("01234567sk_live_51Hq0aaEXAMPLE"), "[glimmet] Stripe page:\n01234567••\n");
}

TEST_F(AnswerChecks, isMaskedWhereverTheKeyStandsInALongBody)
{
    const QByteArray bytes = key.characters().toUtf8();
    rules.headLength = 8190;
    for (int before = 8100; before < 8200; ++before) {
        const QByteArray body = QByteArray(before, 'x') + bytes + bytes + QByteArray(20'000, 'y');
        const QByteArray text = QByteArray(before, 'x') + "••••••" + QByteArray(20'000, 'y');

        EXPECT_EQ(
            logged(body), "[glimmet] Stripe page:\n" + QString::fromUtf8(text).first(8190).toUtf8() + '\n')
            << before;
    }
}

TEST_F(AnswerChecks, isLoggedWhereItsFirstCharactersAreLong)
{
    const QByteArray longCharacter = "e" + QByteArray("\xCC\x81").repeated(5000);

    EXPECT_EQ(
        logged(longCharacter + "0123456789"), "[glimmet] Stripe page:\n" + longCharacter + "012345678\n");
    EXPECT_EQ(
        logged("\xEF\xBB\xBF" + longCharacter + "x"), "[glimmet] Stripe page:\n" + longCharacter + "x\n");
}

TEST_F(AnswerChecks, isReadWithTheKeyInIt)
{
    EXPECT_EQ(checked(HttpAnswer{ 200, "sk_live_51Hq0aaEXAMPLE" }), u"body: sk_live_51Hq0aaEXAMPLE"_s);
}

TEST(MaskedText, hasNoKeyInAnyFormInWhichJsonHasIt)
{
    EXPECT_EQ(masked("[\"a/b/c/d/e\",\"a\\/b\\/c\\/d\\/e\"]", ApiKey(u"a/b/c/d/e"_s)), "[\"•••\",\"•••\"]");
    EXPECT_EQ(masked("\"back\\\\slash\\\"\"", ApiKey(u"back\\slash\""_s)), "\"•••\"");
    EXPECT_EQ(masked("\"back\\\\slash\\/\"", ApiKey(u"back\\slash/"_s)), "\"•••\"");
    EXPECT_EQ(masked("schlüssel-ä", ApiKey(u"schlüssel-ä"_s)), "•••");
}

TEST(MaskedText, hasNoKeyWithoutTheBlanksAroundIt)
{
    EXPECT_EQ(masked("you sent sk_live_51.", ApiKey(u" sk_live_51\t"_s)), "you sent •••.");
    EXPECT_EQ(masked("you sent  sk_live_51 .", ApiKey(u" sk_live_51 "_s)), "you sent •••.");
}

TEST(MaskedText, keepsAKeyTooShortToBeOne)
{
    EXPECT_EQ(masked("a 1234567 b", ApiKey(u"1234567"_s)), "a 1234567 b");
    EXPECT_EQ(masked("a 12345678 b", ApiKey(u"12345678"_s)), "a ••• b");
    EXPECT_EQ(masked("a 1234567 b", ApiKey(u"1234567   "_s)), "a 1234567 b");
    EXPECT_EQ(masked("text", ApiKey()), "text");
}

TEST(MaskedText, isNoCopyWhereTheKeyIsNotInIt)
{
    const QByteArray body = "a body that may be long";

    EXPECT_EQ(masked(body, ApiKey(u"sk/live\"51 "_s)).constData(), body.constData());
}

TEST(AuthorizedRequest, carriesTheKeyAsItIs)
{
    const HttpRequest request =
        authorizedRequest("https://a.example/b", ApiKey(u" k é "_s), "application/json");

    EXPECT_EQ(request.address, "https://a.example/b");
    EXPECT_EQ(*request.authorization, "Bearer  k é ");
    EXPECT_EQ(
        request.headers, (QList<std::pair<QByteArray, QByteArray>>{ { "Accept", "application/json" } }));
}

} // namespace
} // namespace glimmet
