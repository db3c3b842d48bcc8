"""The host of the updates, on this machine: a web server whose answers a test chooses, well behaved or not, and the proxy
through which a Wine machine reaches it under its public name. So no name of this system has to be changed, no port is
fixed, and many tests can run at once."""
import http.server
import socket
import socketserver
import ssl
import subprocess
import sys
import threading
from pathlib import Path

from machine import BIN, REPO

sys.path.insert(0, str(REPO / "tools" / "release"))
from settings import product_settings  # noqa: E402

HOST = product_settings(REPO)[1]
BASE = f"https://{HOST}/apps/velquin/"


class Authority:
    """A certificate authority of the tests' own, in a folder of theirs."""

    def __init__(self, folder):
        self.folder = Path(folder)
        self.folder.mkdir(parents=True, exist_ok=True)
        self._openssl("req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", "ca.key",
                      "-out", "ca.crt", "-days", "30", "-subj", "/CN=Velquin test authority",
                      "-addext", "basicConstraints=critical,CA:TRUE", "-addext", "keyUsage=critical,keyCertSign,cRLSign")
        self._openssl("x509", "-in", "ca.crt", "-outform", "DER", "-out", "ca.der")
        self.context = self.issue("good")

    def issue(self, name, host=HOST, days=("-days", "20")):
        """A server's certificate and key. Gives a context for serving with it."""
        self._openssl("req", "-newkey", "rsa:2048", "-nodes", "-keyout", f"{name}.key",
                      "-out", f"{name}.csr", "-subj", f"/CN={host}")
        (self.folder / f"{name}.ext").write_text(f"subjectAltName=DNS:{host}\nbasicConstraints=CA:FALSE\n")
        self._openssl("x509", "-req", "-in", f"{name}.csr", "-CA", "ca.crt", "-CAkey", "ca.key", "-CAcreateserial",
                      "-out", f"{name}.crt", "-extfile", f"{name}.ext", *days)
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(self.folder / f"{name}.crt", self.folder / f"{name}.key")
        return context

    def _openssl(self, *arguments):
        subprocess.run(["openssl", *arguments], cwd=self.folder, check=True, capture_output=True)


class _Server(socketserver.ThreadingMixIn, socketserver.TCPServer):
    allow_reuse_address = True
    daemon_threads = True
    block_on_close = False

    def __init__(self, handler, context=None):
        super().__init__(("127.0.0.1", 0), handler)
        self.context = context
        self.port = self.server_address[1]
        threading.Thread(target=self.serve_forever, args=(0.05,), daemon=True).start()

    def finish_request(self, request, client_address):
        if self.context:
            try:
                request = self.context.wrap_socket(request, server_side=True)
            except OSError:  # a client that does not trust us hangs up
                return
        super().finish_request(request, client_address)

    def handle_error(self, request, client_address):
        pass  # clients end connections as they like


class UpdateHost:
    """Serves `files` (path → bytes or Path) and `answers` (path → function of the request handler). Each path is asked for
    with its query, which is kept in `requests` with the headers."""

    def __init__(self, context=None):
        self.files, self.answers, self.requests = {}, {}, []
        self.stop_waiting = threading.Event()
        host = self

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def do_GET(self):
                # Wine's WinHTTP writes the whole address where it talks through a proxy.
                target = self.path.removeprefix(f"https://{HOST}:443")
                path = target.split("?")[0]
                host.requests.append((target, dict(self.headers)))
                if path in host.answers:
                    host.answers[path](self)
                elif path in host.files:
                    body = host.files[path]
                    self.send_response(200)
                    size = body.stat().st_size if isinstance(body, Path) else len(body)
                    self.send_header("Content-Length", str(size))
                    self.end_headers()
                    if isinstance(body, Path):
                        with open(body, "rb") as file:
                            self.connection.sendfile(file)
                    else:
                        self.wfile.write(body)
                else:
                    self.answer(404, b"not here")

            def answer(self, status, body=b"", **headers):
                self.send_response(status)
                for name, value in headers.items():
                    self.send_header(name.replace("_", "-"), value)
                if "Transfer_Encoding" not in headers and "Content_Length" not in headers and status not in (204, 304):
                    self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)
                self.wfile.flush()

            def stall(self):
                """Answers nothing more until the test is over."""
                self.close_connection = True
                host.stop_waiting.wait(60)

            def log_message(self, *arguments):
                pass

        self.server = _Server(Handler, context)
        self.port = self.server.port

    def publish(self, folder):
        """Serves all files of a folder where the updates are published."""
        for file in Path(folder).iterdir():
            self.files["/apps/velquin/" + file.name] = file

    def close(self):
        self.stop_waiting.set()
        self.server.shutdown()
        self.server.server_close()


class Proxy:
    """A proxy that only knows how to connect: `routes` maps "host:port" to a port of this machine. For any other host it
    answers as for one that does not exist. Plain requests it hands on to this machine."""

    def __init__(self, routes):
        class Handler(socketserver.StreamRequestHandler):
            rbufsize = 0

            def handle(self):
                head = [self.rfile.readline()]
                while head[-1].strip():
                    head.append(self.rfile.readline())
                method, target = head[0].decode("ascii").split()[:2]
                hosts = [line.split(b":", 1)[1].strip().decode() for line in head if line.lower().startswith(b"host:")]
                if method == "CONNECT" and target in routes:
                    self.connect(routes[target], b"", b"HTTP/1.1 200 Connection established\r\n\r\n")
                elif method == "GET" and hosts and hosts[0].startswith("127.0.0.1:"):
                    self.connect(int(hosts[0][10:]), b"".join(head), b"")
                else:
                    self.wfile.write(b"HTTP/1.1 502 Bad Gateway\r\nContent-Length: 0\r\nConnection: close\r\n\r\n")

            def connect(self, port, there, back):
                try:
                    other = socket.create_connection(("127.0.0.1", port))
                except OSError:
                    return
                with other:
                    other.sendall(there)
                    self.wfile.write(back)
                    pump = threading.Thread(target=_pump, args=(other, self.connection), daemon=True)
                    pump.start()
                    _pump(self.connection, other)
                    pump.join()

        self.server = _Server(Handler)
        self.port = self.server.port

    def close(self):
        self.server.shutdown()
        self.server.server_close()


class Client:
    """The update client on a machine, and the servers it can reach: `plain`, and `secure` under the public name."""

    def __init__(self, machine, authority):
        self.machine = machine
        machine.put(authority.folder / "ca.der", r"C:\ca.der")
        assert machine.wine(BIN / "trust_certificate.exe", r"C:\ca.der")
        self.plain, self.secure = UpdateHost(), UpdateHost(authority.context)
        self.routes = {f"{HOST}:443": self.secure.port}
        self.proxy = Proxy(self.routes)
        machine.environment["http_proxy"] = f"http://127.0.0.1:{self.proxy.port}"

    def __call__(self, *arguments, timeout=120):
        """Runs one command of tests/tools/update_client.cpp. Gives (done, text or error)."""
        self.machine.wine(BIN / "update_client.exe", r"C:\result.txt", *arguments, timeout=timeout)
        state, self.milliseconds, text = self.machine.read(r"C:\result.txt").split("\n", 2)
        return state == "ok", text

    def close(self):
        for server in (self.plain, self.secure, self.proxy):
            server.close()


def _pump(source, target):
    try:
        while data := source.recv(1 << 18):
            target.sendall(data)
        target.shutdown(socket.SHUT_WR)
    except OSError:
        pass
