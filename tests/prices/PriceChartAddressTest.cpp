#include "platform/net/Http.h"
#include "prices/PriceChart.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QUrl>

#include <random>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const QByteArray endpoint = "https://charts.example";

/// The address of the symbol's chart, after `endpoint`.
QByteArray addressOf(const QString &symbol)
{
    return PriceChart::address(endpoint, symbol).value_or("nothing").replace(endpoint, "");
}

/// Whatever the symbol holds, its address asks this host for one step below the charts.
void expectTheChartOf(const QString &symbol)
{
    const QByteArray readable = symbol.left(100).toUtf8().toPercentEncoding();
    const auto address = PriceChart::address(endpoint, symbol);
    ASSERT_TRUE(address) << readable.toStdString();
    EXPECT_TRUE(isSendableAddress(*address)) << readable.toStdString();

    const QUrl url = QUrl::fromEncoded(*address, QUrl::StrictMode);
    const QList<QByteArray> steps = url.path(QUrl::FullyEncoded).toUtf8().split('/');
    EXPECT_EQ(url.adjusted(QUrl::RemovePath | QUrl::RemoveQuery).toEncoded(), endpoint)
        << readable.toStdString();
    EXPECT_EQ(steps.first(4), QList<QByteArray>({ "", "v8", "finance", "chart" })) << readable.toStdString();
    EXPECT_EQ(steps.size(), 5) << readable.toStdString();
    EXPECT_EQ(QByteArray::fromPercentEncoding(steps.last()), PriceChart::normalize(symbol).toUtf8())
        << readable.toStdString();
    EXPECT_EQ(url.query(QUrl::FullyEncoded), u"interval=1h&range=1d"_s) << readable.toStdString();
    EXPECT_FALSE(url.hasFragment()) << readable.toStdString();
}

/// A symbol of up to twelve characters, with many of those that mean something in an address.
QString randomSymbol(std::mt19937 &random)
{
    static const QString special =
        u"%/\\?#@:;&=+.~^ \t\r\n\"'<>[]{}|`\0\u007F\u0085\u00A0\u2028\uFEFF\uFFFD\uFFFF"_s;
    QString symbol;
    for (auto left = random() % 13; left > 0; --left)
        switch (random() % 4) {
        case 0:
            symbol += QChar(char16_t('0' + random() % ('z' - '0' + 1)));
            break;
        case 1:
            symbol += QChar(char16_t(random() % 0xD800));
            break;
        case 2:
            symbol += QStringView(QChar::fromUcs4(char32_t(0x10000 + random() % 0x100000)));
            break;
        default:
            symbol += special.at(qsizetype(random() % std::size_t(special.size())));
        }
    return symbol;
}

TEST(PriceChartSymbol, isUpperCaseWithoutBlanksAround)
{
    EXPECT_EQ(PriceChart::normalize(u"aapl"_s), u"AAPL"_s);
    EXPECT_EQ(PriceChart::normalize(u" \t aapl\t "_s), u"AAPL"_s);
    EXPECT_EQ(PriceChart::normalize(u"\u3000tsla\u00A0"_s), u"TSLA"_s);
    EXPECT_EQ(PriceChart::normalize(u"a b"_s), u"A B"_s);
    EXPECT_EQ(PriceChart::normalize(u"ß"_s), u"SS"_s);
    EXPECT_EQ(PriceChart::normalize(u"é"_s), u"É"_s);
    EXPECT_EQ(PriceChart::normalize(u" \t "_s), u""_s);
    EXPECT_EQ(PriceChart::normalize({}), u""_s);
}

TEST(PriceChartSymbol, keepsLineBreaks)
{
    EXPECT_EQ(PriceChart::normalize(u"btc\n"_s), u"BTC\n"_s);
    EXPECT_EQ(PriceChart::normalize(u" \r\naapl\n "_s), u"\r\nAAPL\n"_s);
}

TEST(PriceChartSymbol, isAPairWithTheDollarForABareCryptoCurrency)
{
    for (const QString &bare :
        { u"BTC"_s, u"ETH"_s, u"SOL"_s, u"BNB"_s, u"XRP"_s, u"DOGE"_s, u"ADA"_s, u"AVAX"_s, u"DOT"_s,
            u"LINK"_s, u"UNI"_s, u"MATIC"_s, u"SHIB"_s, u"LTC"_s, u"BCH"_s, u"ATOM"_s, u"TRX"_s, u"ETC"_s }) {
        EXPECT_EQ(PriceChart::normalize(bare), bare + "-USD"_L1);
        EXPECT_EQ(PriceChart::normalize(' '_L1 + bare.toLower() + u'\t'), bare + "-USD"_L1);
    }
    EXPECT_EQ(PriceChart::normalize(u"Btc"_s), u"BTC-USD"_s);
}

TEST(PriceChartSymbol, isNoPairForWhatIsNoBareCryptoCurrency)
{
    for (const QString &symbol : { u"BTC-USD"_s, u"BTC-EUR"_s, u"AAPL"_s, u"USDT"_s, u"PEPE"_s, u"BT"_s,
             u"BTCC"_s, u"B TC"_s, u"BTC-"_s, u"^GSPC"_s })
        EXPECT_EQ(PriceChart::normalize(symbol), symbol);
    EXPECT_EQ(PriceChart::normalize(u"eth-usd"_s), u"ETH-USD"_s);
}

TEST(PriceChartAddress, asksForTheHourlyClosesOfOneDay)
{
    EXPECT_EQ(PriceChart::address(endpoint, u" btc"_s),
        "https://charts.example/v8/finance/chart/BTC-USD?interval=1h&range=1d");
    EXPECT_EQ(PriceChart::address("https://[::1]:8443", u"aapl"_s),
        "https://[::1]:8443/v8/finance/chart/AAPL?interval=1h&range=1d");
}

TEST(PriceChartAddress, encodesWhatIsNoLetterOrDigit)
{
    const auto step = [](const QString &symbol) {
        return addressOf(symbol).replace("/v8/finance/chart/", "").replace("?interval=1h&range=1d", "");
    };

    EXPECT_EQ(step(u"^GSPC"_s), "%5EGSPC");
    EXPECT_EQ(step(u"EURUSD=X"_s), "EURUSD%3DX");
    EXPECT_EQ(step(u"BRK.B"_s), "BRK.B");
    EXPECT_EQ(step(u"A B"_s), "A%20B");
    EXPECT_EQ(step(u"A/B"_s), "A%2FB");
    EXPECT_EQ(step(u"?q=1"_s), "%3FQ%3D1");
    EXPECT_EQ(step(u"#f"_s), "%23F");
    EXPECT_EQ(step(u"%2e%2e"_s), "%252E%252E");
    EXPECT_EQ(step(u"é😀"_s), "%C3%89%F0%9F%98%80");
    EXPECT_EQ(step(u"A\0B"_s), "A%00B");
    EXPECT_EQ(step(u""_s), "");
}

TEST(PriceChartAddress, isThatOfOneChartWhateverTheSymbolHolds)
{
    for (const QString &symbol :
        { u"BTC"_s, u"^GSPC"_s, u"EURUSD=X"_s, u"A B"_s, u"A/B"_s, u"/"_s, u"//evil.example"_s, u"../../x"_s,
            u"../"_s, u"/.."_s, u"..."_s, u".a"_s, u"?q=1"_s, u"&range=5y"_s, u"#f"_s, u"%2e%2e"_s, u"%2F"_s,
            u"%"_s, u"ß"_s, u"é"_s, u"日本"_s, u"😀"_s, u"A\0B"_s, u"\0"_s, u"@evil.example"_s, u":80"_s,
            u"\\"_s, u"..\\..\\x"_s, u"\r\nX: y"_s, u"\u202Ebtc"_s, u"\uFFFF"_s, u""_s })
        expectTheChartOf(symbol);
}

TEST(PriceChartAddress, isThatOfOneChartForALongSymbol)
{
    expectTheChartOf(QString(16'000, u'a'));
    expectTheChartOf(u"../"_s.repeated(3'200));
}

TEST(PriceChartAddress, isTooLongToBeSentForAnEndlessSymbol)
{
    const auto address = PriceChart::address(endpoint, QString(100'000, u'a'));

    ASSERT_TRUE(address);
    EXPECT_FALSE(isSendableAddress(*address));
}

TEST(PriceChartAddress, isThatOfOneChartForRandomSymbols)
{
    std::mt19937 random(20260504); // NOLINT(cert-msc51-cpp): the same symbols in every run.
    for (int round = 0; round < 5'000; ++round) {
        const QString symbol = randomSymbol(random);
        const QString normalized = PriceChart::normalize(symbol);
        if (normalized != u"."_s && normalized != u".."_s)
            expectTheChartOf(symbol);
    }
}

TEST(PriceChartAddress, isNothingForAnotherFolder)
{
    for (const QString &symbol : { u"."_s, u".."_s, u" .. "_s, u"\t.\u00A0"_s })
        EXPECT_EQ(PriceChart::address(endpoint, symbol), std::nullopt) << symbol.toStdString();
}

TEST(PriceChartAddress, isNothingForWhatIsNoText)
{
    const QChar high(0xD83D);
    const QChar low(0xDE00);

    for (const QString &symbol :
        { QString(high), QString(low), "A"_L1 + high, low + "A"_L1, QString(low) + high })
        EXPECT_EQ(PriceChart::address(endpoint, symbol), std::nullopt);
}

} // namespace
} // namespace glimmet
