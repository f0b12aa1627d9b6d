"""The server of prices: answers for each symbol that it knows, with prices that a test may change at any moment."""

import json
from urllib.parse import unquote, urlsplit

from desktop.https_server import Answer, Ending, HttpsServer

HOST = "query1.finance.yahoo.com"
PATH = "/v8/finance/chart/"


class PriceServer(HttpsServer):
    def __init__(self, listening, certificate):
        self.prices = {}
        self.status = 200
        self.ending = Ending.COMPLETE
        super().__init__(listening, certificate)

    def set_price(self, symbol, price, previous_close, closes=(1.0, None, 2)):
        self.prices[symbol] = chart(symbol, price, previous_close, closes)

    def answer(self, request):
        found = self.prices.get(symbol_of(request))
        status = self.status if found else 404
        return Answer(status, json.dumps(found if status == 200 else refusal(status)).encode(), self.ending)

    def asked_symbols(self):
        """The symbols of all requests so far, in the order of arrival."""
        return [symbol_of(request) for request in self.requests]


def symbol_of(request):
    return unquote(urlsplit(request.target).path.removeprefix(PATH))


def chart(symbol, price, previous_close, closes):
    meta = {"currency": "USD", "symbol": symbol, "regularMarketPrice": price, "chartPreviousClose": previous_close}
    times = [1735689600 + 3600 * hour for hour in range(len(closes))]
    result = {"meta": meta, "timestamp": times, "indicators": {"quote": [{"close": list(closes)}]}}
    return {"chart": {"result": [result], "error": None}}


def refusal(status):
    code = "Not Found" if status == 404 else str(status)
    return {"chart": {"result": None, "error": {"code": code, "description": "No data found"}}}
