#pragma once

#include "revenue/AnswerChecks.h"
#include "revenue/RevenueAccumulator.h"
#include "revenue/RevenueFetcher.h"
#include "revenue/ServiceWorld.h"

#include <QObject>

#include <memory>
#include <vector>

namespace glimmet {

class JsonValue;

/// One page of a list of orders, newest first.
struct RevenuePage {
    std::vector<PagedOrder> orders; ///< those that count if their time does
    std::optional<QString> nextCursor; ///< what asks for the next page; none: this is the last
};

/// A page, or the error that ends the chain.
using RevenuePageResult = std::variant<RevenuePage, RevenueResult>;

/// What Stripe, Lemon Squeezy and Dodo have in common: a list of orders that is read page by page to its end,
/// whatever the period, and folded into totals, a slice of a long page at a time. Where the list does not end
/// within its world's bounds, the chain of pages does, as one that cannot be read. Keeps nothing between
/// fetches: every chain carries its own accumulator, and chains that overlap know nothing of each other. Main
/// thread.
class PagedRevenueService : public QObject {
    Q_OBJECT

public:
    /// Reads an answer that is a JSON object with at least one member; nothing where it is no page. Called on
    /// the network's thread.
    using PageParser = std::function<std::optional<RevenuePage>(const JsonValue &answer)>;

    /// Computes one figure over the account's whole list. Ends with exactly one call of `completion`, never
    /// within this call.
    void fetch(const RevenueQuery &query, const RevenueFetcher::Completion &completion);

protected:
    PagedRevenueService(ServiceWorld world, AnswerRules rules, QObject *parent);

    const ServiceWorld &world() const { return m_world; }

    /// Where the page is that `cursor` asks for (none: the first).
    virtual QByteArray pageAddress(const std::optional<QString> &cursor) const = 0;
    virtual PageParser pageParser(const RevenueQuery &query, const std::optional<QString> &cursor) const = 0;
    /// Says which times are in the period, for one page.
    virtual std::function<bool(Instant)> periodTest(RevenueMode period) const;
    virtual QByteArray acceptedType() const { return "application/json"; }
    /// The line that tells of the finished totals.
    virtual QString summary(const RevenueQuery &query, const RevenueAccumulator &totals) const = 0;
    /// The currency that the figure is written in.
    virtual QString displayedCurrency(const RevenueQuery &query) const = 0;

private:
    struct Chain;
    using ChainPointer = std::shared_ptr<Chain>;

    void fetchPage(const ChainPointer &chain, const std::optional<QString> &cursor);
    void takePage(const ChainPointer &chain, RevenuePageResult result);
    void foldSlice(const ChainPointer &chain);
    void goOn(const ChainPointer &chain);
    void finish(const Chain &chain) const;

    ServiceWorld m_world;
    AnswerRules m_rules;
};

/// "Today/revenue": the choices of a fetch in its summary.
QString choicesText(const RevenueQuery &query);

} // namespace glimmet
