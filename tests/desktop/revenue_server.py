"""The servers of the five revenue platforms in one, told apart by the name that they are asked by."""

import json
import time
from typing import Callable, NamedTuple
from urllib.parse import parse_qs, urlsplit

from desktop.https_server import Answer, Ending, HttpsServer


class Sale(NamedTuple):
    cents: int
    days_ago: float = 1


class Page(NamedTuple):
    """A page of a platform's list; those that have no list answer with one."""
    sales: list
    number: int
    is_last: bool
    currency: str


class Platform(NamedTuple):
    name: str
    host: str
    account: str
    key: str
    write: Callable
    accept: str = "application/json"


def moment(sale):
    return time.time() - sale.days_ago * 24 * 60 * 60


def moment_text(sale):
    return time.strftime("%Y-%m-%dT%H:%M:%S.000000Z", time.gmtime(moment(sale)))


def total(page):
    return sum(sale.cents for sale in page.sales)


def polar_metrics(page):
    return {"periods": [{"revenue": sale.cents, "succeeded_checkouts": 1} for sale in page.sales]}


def revenuecat_metrics(page):
    return {"metrics": [{"id": "num_tx_last_28_days", "value": len(page.sales)},
                        {"id": "revenue", "value": total(page)}]}


def dodo_page(page):
    return {"items": [{"status": "succeeded", "currency": page.currency.upper(), "total_amount": sale.cents,
                       "created_at": moment_text(sale)} for sale in page.sales],
            "next_cursor": None if page.is_last else f"after_{page.number}"}


def stripe_page(page):
    return {"data": [{"id": f"after_{page.number}", "status": "succeeded", "currency": page.currency,
                      "amount": sale.cents, "created": int(moment(sale))} for sale in page.sales],
            "has_more": not page.is_last}


def lemonsqueezy_page(page):
    return {"data": [{"attributes": {"status": "paid", "total": sale.cents, "created_at": moment_text(sale)}}
                     for sale in page.sales],
            "links": {"next": None if page.is_last else "https://api.lemonsqueezy.com/v1/orders"}}


POLAR = Platform("Polar", "api.polar.sh", "polar_api_key", "polar_oat_EXAMPLE/of+Polar", polar_metrics)
REVENUECAT = Platform("RevenueCat", "api.revenuecat.com", "revenuecat_api_key", "sk_EXAMPLEofRevenueCat",
                      revenuecat_metrics)
DODO = Platform("Dodo", "live.dodopayments.com", "dodo_api_key", "dodo_live_EXAMPLE.of.Dodo", dodo_page)
STRIPE = Platform("Stripe", "api.stripe.com", "stripe_api_key", "rk_live_EXAMPLEofStripe", stripe_page)
LEMON_SQUEEZY = Platform("Lemon Squeezy", "api.lemonsqueezy.com", "lemonsqueezy_api_key",
                         "eyJ0eXAiOiJKV1QifQ.EXAMPLE.of-Lemon_Squeezy", lemonsqueezy_page,
                         "application/vnd.api+json")
PLATFORMS = [POLAR, REVENUECAT, DODO, STRIPE, LEMON_SQUEEZY]
PROJECT = {"revenuecat_project_id": "proj1ab2c3d4"}
KEYS = {platform.account: platform.key for platform in PLATFORMS} | PROJECT


class RevenueServer(HttpsServer):
    """Answers with the pages of each platform's sales; a test may change them and the keys that are good at any
    moment. Whatever the answer, it begins by telling the key that came."""

    def __init__(self, listening, certificate):
        self.pages = {platform: [[Sale(500), Sale(1200)]] for platform in PLATFORMS}
        self.keys = {platform: platform.key for platform in PLATFORMS}
        self.currency = "usd"
        self.status = 200
        self.ending = Ending.COMPLETE
        self.delay = 0
        super().__init__(listening, certificate)

    def answer(self, request):
        platform = next((each for each in PLATFORMS if each.host == request.headers["Host"]), None)
        status = self._status(platform, request)
        came = {"came": request.headers["Authorization"]}
        body = came | (platform.write(self._page(platform, request)) if status == 200 else {"error": "no"})
        return Answer(status, json.dumps(body).encode(), self.ending, self.delay)

    def _status(self, platform, request):
        if platform is None:
            return 404
        return self.status if request.headers["Authorization"] == f"Bearer {self.keys[platform]}" else 401

    def _page(self, platform, request):
        pages, number = self.pages[platform], page_number(request)
        return Page(pages[number], number, number + 1 == len(pages), self.currency)

    def asked(self, platform):
        """The requests to one platform so far, in the order of arrival."""
        return [request for request in self.requests if request.headers["Host"] == platform.host]

    def targets(self, platform):
        return [request.target for request in self.asked(platform)]


def page_number(request):
    query = parse_qs(urlsplit(request.target).query)
    if "page[number]" in query:
        return int(query["page[number]"][0]) - 1
    return int(query["starting_after"][0].removeprefix("after_")) + 1 if "starting_after" in query else 0
