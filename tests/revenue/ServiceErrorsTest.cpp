#include "tests/revenue/ServedRevenue.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using enum RevenueProvider;
using Ending = ServerAnswer::Ending;

constexpr RevenueProvider all[]{ Polar, RevenueCat, Dodo, Stripe, LemonSqueezy };
constexpr RevenueProvider paged[]{ Dodo, Stripe, LemonSqueezy };

/// What each service says when something goes wrong.
class ServiceErrors : public ServedRevenue {
protected:
    QString textFor(RevenueProvider provider, const ServerAnswer &given)
    {
        answer = [given](const ReceivedRequest &) { return given; };
        return fetched(query(provider));
    }
    QString textForStatus(RevenueProvider provider, int status)
    {
        return textFor(provider, { .status = status, .body = R"({"error":"x"})" });
    }
};

TEST_F(ServiceErrors, areTheSameForARefusedKey)
{
    for (const RevenueProvider provider : all)
        EXPECT_EQ(textForStatus(provider, 401), u"⚠ invalid key"_s) << int(provider);
}

TEST_F(ServiceErrors, nameAMissingPermissionInTheServicesWords)
{
    for (const RevenueProvider provider : { Polar, Dodo, Stripe, LemonSqueezy })
        EXPECT_EQ(textForStatus(provider, 403), u"⚠ forbidden"_s) << int(provider);
    EXPECT_EQ(textForStatus(RevenueCat, 403), u"⚠ no permission"_s);
}

TEST_F(ServiceErrors, nameABadRequestForPolarOnly)
{
    EXPECT_EQ(textForStatus(Polar, 422), u"⚠ bad request"_s);
    for (const RevenueProvider provider : { RevenueCat, Dodo, Stripe, LemonSqueezy })
        EXPECT_EQ(textForStatus(provider, 422), u"⚠ http 422"_s) << int(provider);
}

TEST_F(ServiceErrors, nameAnyOtherStatusByItsNumber)
{
    for (const RevenueProvider provider : all)
        for (const int status : { 201, 400, 404, 429, 500, 503 })
            EXPECT_EQ(textForStatus(provider, status), u"⚠ http "_s + QString::number(status))
                << int(provider);
    EXPECT_EQ(textFor(Polar, { .status = 204 }), u"⚠ http 204"_s);
}

TEST_F(ServiceErrors, nameARedirectionToElsewhereByItsNumber)
{
    const ServerAnswer elsewhere{ .status = 302,
        .headers = { { "Location", "https://elsewhere.example/" } } };

    EXPECT_EQ(textFor(Stripe, elsewhere), u"⚠ http 302"_s);
    EXPECT_EQ(server.requests().size(), 1);
}

TEST_F(ServiceErrors, nameAMissingBodyInTheServicesWords)
{
    for (const RevenueProvider provider : { RevenueCat, Dodo, Stripe, LemonSqueezy })
        EXPECT_EQ(textFor(provider, { .body = "" }), u"⚠ empty"_s) << int(provider);
    EXPECT_EQ(textFor(Polar, { .body = "" }), u"⚠ empty response"_s);
}

TEST_F(ServiceErrors, areParseErrorsForPagesThatAreNone)
{
    for (const RevenueProvider provider : paged)
        for (const char *body : { "no json", "{}", "[]", "null", "{\"data\":{},\"items\":{}}", " " })
            EXPECT_EQ(textFor(provider, { .body = body }), u"⚠ parse error"_s) << int(provider) << body;
}

TEST_F(ServiceErrors, areZerosForMetricsThatAreNone)
{
    for (const RevenueProvider provider : { Polar, RevenueCat })
        for (const char *body : { "no json", "{}", "[]", "null", "{\"periods\":{},\"metrics\":{}}", " " })
            EXPECT_EQ(textFor(provider, { .body = body }), u"💰 $0.00"_s) << int(provider) << body;
}

TEST_F(ServiceErrors, nameALostConnection)
{
    for (const RevenueProvider provider : all)
        EXPECT_EQ(textFor(provider, { .body = R"({"data":[]})", .ending = Ending::CutInBody }),
            u"⚠ the connection was lost"_s)
            << int(provider);
    EXPECT_EQ(textFor(Stripe, { .ending = Ending::CutBeforeAnswer }), u"⚠ the connection was lost"_s);
}

TEST_F(ServiceErrors, nameAServerThatIsNotThere)
{
    server.close();

    for (const RevenueProvider provider : all)
        EXPECT_EQ(fetched(query(provider)), u"⚠ the server cannot be reached"_s) << int(provider);
}

TEST_F(ServiceErrors, nameASilentServer)
{
    EXPECT_EQ(textFor(Stripe, { .ending = Ending::Silence }), u"⚠ the request timed out"_s);
    EXPECT_EQ(textFor(Polar, { .ending = Ending::Silence }), u"⚠ the request timed out"_s);
}

TEST_F(ServiceErrors, nameAServerThatNobodyVouchesFor)
{
    const HttpsServer stranger([](const ReceivedRequest &) { return ServerAnswer{ .body = "{}" }; },
        HttpsServer::Certificate::UnknownAuthority);
    services.emplace(*http, log.log(), clock, clock, region, endpointsAt(stranger.origin()));

    for (const RevenueProvider provider : all)
        EXPECT_EQ(fetched(query(provider)), u"⚠ the server's identity cannot be verified"_s) << int(provider);
    EXPECT_TRUE(stranger.requests().isEmpty());
}

TEST_F(ServiceErrors, nameAKeyThatIsNoHeader)
{
    for (const RevenueProvider provider : all) {
        for (const QString &key : { u"sk_live_1\nX: y"_s, u"sk_live_1\r"_s, u"sk\0live"_s }) {
            RevenueQuery broken = query(provider);
            broken.apiKey = ApiKey(key);

            EXPECT_EQ(fetched(broken), u"⚠ key cannot be sent"_s) << int(provider);
        }
    }
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(ServiceErrors, nameAProjectThatIsNoPartOfAnAddress)
{
    for (const QString &project : { u"proj 1"_s, u" proj1"_s, u"proj1 "_s, u"projé"_s, u"proj\n1"_s,
             u"proj%1"_s, u"proj\"1"_s, u"pr\0j"_s }) {
        RevenueQuery broken = query(RevenueCat);
        broken.projectID = project;
        texts.clear();
        services->fetch(broken, collected());

        EXPECT_EQ(texts, QStringList{ u"⚠ url error"_s }) << project.toStdString();
    }
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(ServiceErrors, areNoneWhereTheUserHasStillToEnterSomething)
{
    RevenueQuery empty = query(RevenueCat);
    empty.apiKey = ApiKey(u" \t "_s);
    empty.projectID = u""_s;
    services->fetch(empty, collected());
    empty.provider = Polar;
    services->fetch(empty, collected());
    empty.provider = RevenueCat;
    empty.apiKey = ApiKey(u"sk_1"_s);
    empty.projectID = u" \t"_s;
    services->fetch(empty, collected());

    EXPECT_EQ(texts, (QStringList{ u"add api key"_s, u"add api key"_s, u"add project id"_s }));
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(ServiceErrors, comeOnceEachAndNeverWithinTheCallThatSends)
{
    answer = [](const ReceivedRequest &) { return ServerAnswer{ .status = 500, .body = "x" }; };
    for (const RevenueProvider provider : all)
        services->fetch(query(provider), collected());
    EXPECT_TRUE(texts.isEmpty());

    ASSERT_TRUE(waitForTexts(5));
    fetched(query(Stripe));

    EXPECT_EQ(texts.size(), 1);
    EXPECT_EQ(server.requests().size(), 6);
}

} // namespace
} // namespace glimmet
