#include "tests/cases_player/AnswerCase.h"

#include <algorithm>

namespace glimmet {

using namespace Qt::StringLiterals;

RevenueProvider AnswerCase::provider() const
{
    if (source == u"stripe"_s)
        return RevenueProvider::Stripe;
    if (source == u"lemonsqueezy"_s)
        return RevenueProvider::LemonSqueezy;
    if (source == u"dodo"_s)
        return RevenueProvider::Dodo;
    if (source == u"polar"_s)
        return RevenueProvider::Polar;
    return RevenueProvider::RevenueCat;
}

std::optional<qsizetype> AnswerCase::refusedPage() const
{
    const auto refused =
        std::find_if(pages.begin(), pages.end(), [](const CasePage &page) { return page.isRefused; });
    if (refused == pages.end())
        return std::nullopt;
    return refused - pages.begin();
}

bool AnswerCase::hasSilentPage() const
{
    return std::any_of(pages.begin(), pages.end(),
        [](const CasePage &page) { return page.answer.ending == ServerAnswer::Ending::Silence; });
}

} // namespace glimmet
