"""The update client against servers that behave well and badly, in plain text and under TLS."""
import hashlib
import ssl
from concurrent.futures import ThreadPoolExecutor

import pytest

from product import *  # noqa: F403
from update_host import HOST, Authority, UpdateHost

GET = "The update manifest request failed."
DOWNLOAD = "Setup download request failed."


def cut(length):
    def answer(request):
        request.answer(200, b"x" * 100, Content_Length=str(length))
        request.close_connection = True
    return answer


def stall_within(request):
    request.answer(200, b"x" * 100, Content_Length="1000")
    request.stall()


ANSWERS = {
    "/text": (lambda r: r.answer(200, "größer 漢".encode()), True, "größer 漢"),
    "/created": (lambda r: r.answer(201, b"made"), True, "made"),
    "/empty": (lambda r: r.answer(200), True, ""),
    "/no-content": (lambda r: r.answer(204), True, ""),
    "/chunked": (lambda r: r.answer(200, b"5\r\nhello\r\n3\r\n yo\r\n0\r\n\r\n", Transfer_Encoding="chunked"), True, "hello yo"),
    "/chunked-with-length": (lambda r: r.answer(200, b"2\r\nhi\r\n0\r\n\r\n", Transfer_Encoding="chunked", Content_Length="9"),
                             True, "hi"),
    "/redirect": (lambda r: r.answer(302, Location="/text"), True, "größer 漢"),
    "/not-modified": (lambda r: r.answer(304), False, "The update manifest returned HTTP status 304."),
    "/missing": (lambda r: r.answer(404, b"{}"), False, "The update manifest returned HTTP status 404."),
    "/broken": (lambda r: r.answer(500), False, "The update manifest returned HTTP status 500."),
    "/not-utf8": (lambda r: r.answer(200, b"{\xff}"), False, "The update manifest is not valid UTF-8 text."),
    "/cut": (cut(1000), False, "Could not read update manifest data."),
    "/stall": (stall_within, False, "Could not read the update manifest."),
    "/silent": (lambda r: r.stall(), False, GET),
    "/circle": (lambda r: r.answer(302, Location="/circle"), False, GET),
}


@pytest.mark.parametrize("kind", ["plain", "secure"])
def test_answers_become_text_or_an_error(client, kind):
    host = getattr(client, kind)
    base = f"https://{HOST}" if kind == "secure" else f"http://127.0.0.1:{host.port}"
    for path, (answer, ok, text) in ANSWERS.items():
        host.answers[path] = answer
        assert client("get", f"{base}{path}?a=b", "700") == (ok, text), path
        # Other limits, from 10 seconds on, would end a stalled request, too.
        assert path not in ("/stall", "/silent") or 600 < int(client.milliseconds) < 6000, path
    target, headers = host.requests[0]
    assert target == "/text?a=b"
    assert headers["User-Agent"] == "Velquin/1.0" and headers["Pragma"] == "no-cache"
    assert headers["Cache-Control"] == "no-cache, no-store, max-age=0"
    assert not [line for line in client.machine.log() if "request failed: error=0 " in line], "a reason was lost"


def test_what_cannot_be_reached_or_parsed_is_an_error(client):
    closed = UpdateHost()
    closed.close()
    for url, error in [
        (f"http://127.0.0.1:{closed.port}/", GET),
        ("https://unknown.velquin.example/", GET),
        ("", "WinHTTP could not parse the update URL."),
        ("updates.velquin.example/update.json", "WinHTTP could not parse the update URL."),
        ("ftp://updates.velquin.example/", "WinHTTP could not parse the update URL."),
        (f"https://{HOST}/{'x' * 5000}", "WinHTTP could not parse the update URL."),
        (f"https://{'x' * 300}.example/", "WinHTTP could not parse the update URL."),
    ]:
        assert client("get", url) == (False, error), url
    # Without the proxy, the name has to be resolved.
    del client.machine.environment["http_proxy"]
    for url in (f"https://{HOST}/", f"http://127.0.0.1:{closed.port}/"):
        assert client("get", url) == (False, GET), url
    assert any("error=12029" in line for line in client.machine.log()[-2:]), "the closed port was not asked"


@pytest.mark.filterwarnings("ignore:ssl.TLSVersion.TLSv1_1")
def test_only_a_server_that_is_who_it_says_is_trusted(client, authority, tmp_path):
    long_ago = ("-not_before", "20200101000000Z", "-not_after", "20210101000000Z")
    old_protocol = authority.issue("old_protocol")
    old_protocol.set_ciphers("ALL:@SECLEVEL=0")
    old_protocol.minimum_version = old_protocol.maximum_version = ssl.TLSVersion.TLSv1_1
    for name, context in [
        ("of another name", authority.issue("other", host="other.velquin.example")),
        ("expired", authority.issue("expired", days=long_ago)),
        ("of an authority nobody knows", Authority(tmp_path / "strangers").issue("stranger")),
        ("older than TLS 1.2", old_protocol),
    ]:
        host = UpdateHost(context)
        try:
            host.answers["/text"] = ANSWERS["/text"][0]
            client.routes[f"{HOST}:443"] = host.port
            assert client("get", f"https://{HOST}/text") == (False, GET), name
            assert host.requests == [], name
        finally:
            host.close()
    # Nor does a trusted one lead away from TLS.
    client.routes[f"{HOST}:443"] = client.secure.port
    client.plain.answers["/text"] = ANSWERS["/text"][0]
    client.secure.answers["/away"] = lambda r: r.answer(302, Location=f"http://127.0.0.1:{client.plain.port}/text")
    assert client("get", f"https://{HOST}/away") == (False, GET)
    assert client("download", f"https://{HOST}/away", r"C:\away.exe") == (False, DOWNLOAD)
    assert client.plain.requests == [] and not client.machine.exists(r"C:\away.exe")
    # And what it hands out does not come back to it.
    client.secure.answers["/cookie"] = lambda r: r.answer(302, Location="/text", Set_Cookie="id=1; Path=/")
    client.secure.answers["/text"] = ANSWERS["/text"][0]
    assert client("get", f"https://{HOST}/cookie")[0]
    assert "Cookie" not in client.secure.requests[-1][1]


def test_a_download_is_the_file_or_nothing(client):
    machine, url = client.machine, f"https://{HOST}/setup.exe"
    content = bytes(range(256)) * 5000 + b"end"
    client.secure.files["/setup.exe"] = content
    target = r"C:\new\setup ü.exe"
    assert client("download", url, target) == (False, "Could not create the downloaded setup file.")
    machine.write(target, "an older and " + "longer " * 300000)
    for address in (url, url + "?a=b"):
        assert client("download", address, target) == (True, "")
        assert machine.unix(target).read_bytes() == content
    queries = [path.split("?", 1)[1] for path, _ in client.secure.requests]
    assert queries[-1].startswith(f"a=b&vlqn_cb={VERSION}-") and queries[-2].startswith(f"vlqn_cb={VERSION}-")
    assert len(set(queries)) == len(queries)

    machine.unix(target).unlink()
    for path, (answer, ok, error) in {
        "/missing": (lambda r: r.answer(404), False, "Setup download returned HTTP status 404."),
        "/cut": (cut(1000000), False, "Could not read setup download data."),
        "/stall": (stall_within, False, "Could not read setup download."),
        "/silent": (lambda r: r.stall(), False, DOWNLOAD),
        "/empty": (lambda r: r.answer(204), True, ""),
    }.items():
        client.secure.answers[path] = answer
        assert client("download", f"https://{HOST}{path}", target, "700") == (ok, error), path
        assert machine.exists(target) == ok, path
    assert client("download", "setup.exe", target) == (False, "WinHTTP cannot parse setup URL.")
    assert machine.unix(target).read_bytes() == b"", "a failure before the file is begun leaves what is there"
    machine.unix(r"C:\folder").mkdir()
    assert client("download", url, r"C:\folder") == (False, "Could not create the downloaded setup file.")
    with disk(machine, r"C:\small", "size=256k"):
        assert client("download", url, r"C:\small\setup.exe") == (False, "Could not write the downloaded setup file.")
        assert machine.files(r"C:\small") == []


def test_only_the_right_bytes_over_https_are_accepted(client):
    machine, url, target = client.machine, f"https://{HOST}/setup.exe", r"C:\setup.exe"
    content = b"setup" * 30000
    client.secure.files["/setup.exe"] = client.plain.files["/setup.exe"] = content
    digest = hashlib.sha256(content).hexdigest()
    for expected in (digest, digest.upper()):
        assert client("verify", url, expected, target, "Setup") == (True, target)
        assert machine.unix(target).read_bytes() == content
    mismatch = " SHA-256 does not match the live update manifest."
    missing = " URL or SHA-256 is missing from the live update manifest."
    for address, expected, label, error in [
        (url, digest[:-1] + ("0" if digest[-1] != "0" else "1"), "Setup", "Setup" + mismatch),
        (url, digest[:-1], "Setup", "Setup" + mismatch),
        (url, digest + " ", "Update data ZIP", "Update data ZIP" + mismatch),
        (f"https://{HOST}/none", digest, "Setup", "Setup download failed: Setup download returned HTTP status 404."),
        ("", digest, "Setup", "Setup" + missing),
        (url, "", "Setup", "Setup" + missing),
        (f"http://127.0.0.1:{client.plain.port}/setup.exe", digest, "Setup",
         "Setup download failed: The address is not an HTTPS address."),
    ]:
        machine.unix(target).unlink(missing_ok=True)
        assert client("verify", address, expected, target, label) == (False, error), error
        assert not machine.exists(target), error
    # A link in the place of the file is replaced, not written through.
    machine.write(r"C:\precious.txt", "precious")
    machine.unix(target).hardlink_to(machine.unix(r"C:\precious.txt"))
    assert client("verify", url, digest, target, "Setup") == (True, target)
    assert machine.read(r"C:\precious.txt") == "precious"
    # Where a folder link leads to is where the file is held.
    link_to_folder(machine, r"C:\link", r"C:\real")
    assert client("verify", url, digest, r"C:\link\setup.exe", "Setup") == (True, r"C:\real\setup.exe")


def test_digests_of_files_of_any_size(client):
    machine = client.machine
    gibibyte = 1 << 30
    for name, content in {"empty": b"", "abc": b"abc", "chunk": b"x" * 65536, "more": b"y" * 65537}.items():
        machine.unix(rf"C:\{name}").write_bytes(content)
        assert client("sha256", rf"C:\{name}") == (True, hashlib.sha256(content).hexdigest().upper())
    with open(machine.unix(r"C:\sparse"), "wb") as file:
        file.truncate(3 * gibibyte)
    with open(machine.unix(r"C:\sparse"), "rb") as file, ThreadPoolExecutor() as pool:
        peer = pool.submit(hashlib.file_digest, file, "sha256")
        answer = client("sha256", r"C:\sparse", timeout=300)
        assert answer == (True, peer.result().hexdigest().upper())
    unreadable = (False, "Could not open the downloaded setup for SHA-256 verification.")
    assert client("sha256", r"C:\missing") == unreadable
    assert client("sha256", "C:\\windows") == unreadable


def test_large_bodies_end_in_an_error(client):
    for name, body in {"blanks": b" " * (50 << 20), "deep": b"[" * (5 << 20)}.items():
        client.secure.files["/apps/velquin/update.json"] = body
        before = len(client.machine.log())
        assert client.machine.setup("--self-test-live-update-manifest", timeout=60) == 21, name
        assert_in_order(client.machine.log()[before:], "update manifest is no JSON document: ",
                        "update check failed: Update manifest does not contain a version.",
                        "live update manifest self-test failed: Live update manifest check failed: Update manifest does")
