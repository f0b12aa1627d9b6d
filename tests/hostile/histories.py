"""Whole histories, page by page from a real nginx, that ends connections as it likes."""

from typing import NamedTuple

from desktop.own_namespaces import IS_ROOT
from desktop.processes import wait_for
from hostile.measuring import Meter, timed
from hostile.nginx import CENTS, Nginx
from hostile.revenue_desktop import RevenueDesktop

# Few enough that every history needs many connections.
KEEPALIVE_REQUESTS = 7
ONE_HISTORY_SECONDS = 600


class Histories(NamedTuple):
    chains: int
    pages: int
    # How often the program told of a whole history, and what it shows at last.
    whole: int
    text: str
    seconds: float
    peak_kilobytes: int
    cpu_seconds: float
    reloads: int


def whole_history(pages):
    return f"{pages * CENTS}¢, {pages} charges"


def figure(pages):
    return f"💰 ${pages * CENTS / 100:,.2f}"


def fetch(binary, chains, pages, reloads):
    """Has the program fetch so many whole histories of so many pages; with `reloads`, under constant ones."""
    with RevenueDesktop(binary) as place, Nginx(place, pages, KEEPALIVE_REQUESTS, IS_ROOT) as nginx:
        place.launch()
        told = len(place.glimmet.output())
        meter = Meter(place.glimmet.process.pid)

        def fetch_all():
            for chain in range(chains):
                # The choice of the platform asks for it; one chain that is lost is one that is missing in the end.
                place.begin("Stripe") if chain == 0 else place.refresh()
                if reloads:
                    nginx.reload_until(lambda: not place.is_fetching(), ONE_HISTORY_SECONDS)
                else:
                    wait_for(lambda: not place.is_fetching(), ONE_HISTORY_SECONDS, "the end of the history")

        _, seconds = timed(fetch_all)
        cost = meter.stop()
        return Histories(chains, pages, place.glimmet.output()[told:].count(whole_history(pages)),
                         place.shows(figure(pages)), seconds, cost.peak_kilobytes, cost.cpu_seconds, nginx.reloads)
