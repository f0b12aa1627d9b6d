"""A real nginx in the program's own network, with a list of payments that is many pages long."""

import json
import shutil
import signal
import threading

from desktop.processes import wait_for
from hostile.answers import metrics

# What one page adds to the figure, in cents.
CENTS = 100
CONFIGURATION = """daemon off;
pid {folder}/pid;
error_log {folder}/error.log;
{user}worker_processes 2;
events {{ worker_connections 256; }}
http {{
    access_log {folder}/access.log;
    client_body_temp_path {folder}/body;
    proxy_temp_path {folder}/proxy;
    fastcgi_temp_path {folder}/fastcgi;
    uwsgi_temp_path {folder}/uwsgi;
    scgi_temp_path {folder}/scgi;
    default_type application/json;
    keepalive_requests {requests};
    server {{
        listen 443 ssl;
        ssl_certificate {certificate};
        ssl_certificate_key {key};
        root {folder}/root;
        location = /v1/charges {{ try_files /pages/$arg_starting_after.json /pages/first.json; }}
        location /v1/metrics/ {{ try_files /metrics.json =404; }}
    }}
}}
"""


def page(number, is_last):
    sale = {"id": f"ch_{number}", "status": "succeeded", "currency": "usd", "amount": CENTS,
            "created": 1735689600 - number}
    return json.dumps({"data": [sale], "has_more": not is_last})


class Nginx:
    """Serves in a `with` block. Each connection ends after so many `requests`, as the server sees fit."""

    def __init__(self, lane, pages, requests, is_root):
        self._desktop, self._network = lane.desktop, lane.network
        self._folder = lane.desktop.folder / "nginx"
        self._write_pages(pages)
        certificate = lane.certificates / "good.pem"
        self._configuration = self._folder / "nginx.conf"
        # Workers of root are another user otherwise, who may not read here.
        self._configuration.write_text(CONFIGURATION.format(
            folder=self._folder, certificate=certificate, key=certificate.with_suffix(".key"), requests=requests,
            user="user root;\n" if is_root else ""))
        self.reloads = 0

    def _write_pages(self, count):
        folder = self._folder / "root" / "pages"
        folder.mkdir(parents=True)
        (folder.parent / "metrics.json").write_bytes(metrics(CENTS))
        for number in range(count):
            name = f"ch_{number - 1}" if number else "first"
            (folder / f"{name}.json").write_text(page(number, number + 1 == count))

    def __enter__(self):
        self._network.let_programs_listen_everywhere()
        self._process = self._desktop.start("nginx", [
            *self._network.wrapper, shutil.which("nginx", path="/usr/sbin:/usr/bin:/sbin:/bin"),
            "-p", str(self._folder), "-c", str(self._configuration), "-e", str(self._folder / "error.log")])
        wait_for(lambda: self._is_up() or self._process.poll() is not None, 15, "nginx")
        return self

    def _is_up(self):
        pid = self._folder / "pid"
        return pid.exists() and pid.read_text().strip()

    def __exit__(self, *_):
        self._desktop.stop(self._process)

    def asked_pages(self):
        """How often a page was asked for, as nginx has it in its log."""
        log = self._folder / "access.log"
        return sum("/v1/charges" in line for line in log.read_text().splitlines())

    def reload_until(self, condition, seconds, pause=0.1):
        """Has it load its settings again and again, which ends its connections, until the condition holds."""
        end = threading.Event()

        def reload():
            while not end.wait(pause):
                self._process.send_signal(signal.SIGHUP)
                self.reloads += 1

        thread = threading.Thread(target=reload, daemon=True)
        thread.start()
        try:
            wait_for(condition, seconds, "the end of the history")
        finally:
            end.set()
            thread.join()
