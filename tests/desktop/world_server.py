"""The servers of prices and of revenue in one: everything that the program ever asks."""

from desktop.price_server import HOST, PriceServer
from desktop.revenue_server import RevenueServer


class WorldServer(RevenueServer, PriceServer):
    def answer(self, request):
        kind = PriceServer if request.headers["Host"] == HOST else RevenueServer
        return kind.answer(self, request)
