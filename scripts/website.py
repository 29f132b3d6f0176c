"""The program's web site, for a private desktop: the files that the dialogs read."""

import http.server
import threading

FILES = {
    "/files/Netrove2.ver": "TBS_VER 9.9.9",
    "/files/Netrove2.nwz": "TBS_NWZ New in 9.9.9:\r\n\r\n"
                           "- Searches take half the time on slow computers.\r\n"
                           "- Results files remember how their columns were sorted.",
    "/files/Netrove.don": "TBS_DON Card https://www.example.com/card "
                          "Transfer https://www.example.com/transfer "
                          "Others https://www.example.com/ways",
}


class _Handler(http.server.BaseHTTPRequestHandler):
    def do_GET(self):  # noqa: N802
        body = FILES.get(self.path)
        self.send_response(200 if body else 404)
        self.end_headers()
        self.wfile.write((body or "").encode())

    def log_message(self, *_):
        pass


class WebSite:
    """Starts serving on entry, at `address`; ends on exit."""

    def __enter__(self):
        self._server = http.server.HTTPServer(("127.0.0.1", 0), _Handler)
        self.address = f"http://127.0.0.1:{self._server.server_port}/"
        threading.Thread(target=self._server.serve_forever, daemon=True).start()
        return self

    def __exit__(self, *_):
        self._server.shutdown()
        self._server.server_close()
