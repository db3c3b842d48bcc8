"""What the maker's release command writes, published under the real host name, and what the setup says of it."""
import json
import shutil
import subprocess
import sys

import pytest

from product import *  # noqa: F403

FAILED = "live update manifest self-test failed: "


@pytest.fixture(scope="module")
def release(tmp_path_factory):
    """A folder as it would be uploaded."""
    folder = tmp_path_factory.mktemp("release") / "out"
    subprocess.run([sys.executable, str(REPO / "tools/release/release.py"), "--output", str(folder),
                    "--manifest-check", str(REPO / "build/native/bin/manifest_check")], check=True)
    return folder


@pytest.fixture
def published(client, release, tmp_path):
    """A copy of it that a test may change, served as published."""
    client.folder = tmp_path / "published"
    shutil.copytree(release, client.folder)
    client.secure.publish(client.folder)
    return client


def edit(folder, change):
    manifest = json.loads((folder / "update.json").read_text(encoding="utf-8"))
    change(manifest)
    (folder / "update.json").write_text(json.dumps(manifest), encoding="utf-8")


def test_a_release_passes_the_check_of_the_setup(published):
    machine = published.machine
    temporary = machine.unix(r"C:\users\root\AppData\Local\Temp")
    before = sorted(temporary.iterdir())
    assert machine.setup("--self-test-live-update-manifest") == 0
    assert_in_order(machine.log(), f"update check ok: current={VERSION} latest={VERSION}",
                    "live update manifest self-test passed", "setup finished: exit=0")
    asked = [path.split("?")[0] for path, _ in published.secure.requests]
    assert asked == ["/apps/velquin/update.json", f"/apps/velquin/VelquinSetup-{VERSION}.exe",
                     f"/apps/velquin/velquin-update-data-{VERSION}.zip"]
    assert all(f"vlqn_cb={VERSION}-" in path for path, _ in published.secure.requests)
    assert sorted(temporary.iterdir()) == before, "downloads were left behind"


def flip_a_byte(name):
    def change(folder):
        file, = folder.glob(name)
        content = bytearray(file.read_bytes())
        content[len(content) // 2] ^= 1
        file.write_bytes(content)
    return change


def edited(change):
    return lambda folder: edit(folder, change)


@pytest.mark.parametrize("change,line", [
    (flip_a_byte("*.exe"), "Setup SHA-256 does not match the live update manifest."),
    (flip_a_byte("*.zip"), "Update data ZIP SHA-256 does not match the live update manifest."),
    (edited(lambda m: m.update(version="1.0.1")),
     f"Live update manifest version 1.0.1 does not match app version {VERSION}."),
    (edited(lambda m: m.pop("history")), "Live update manifest history is empty."),
    (edited(lambda m: m.pop("data_zip_url")), "Update data ZIP URL or SHA-256 is missing from the live update manifest."),
    (edited(lambda m: m.update(setup_url=m["setup_url"].replace("https:", "http:"))),
     "Setup download failed: The address is not an HTTPS address."),
    (lambda folder: (folder / "update.json").write_bytes(b'{"version": "1.0.'),
     "Live update manifest check failed: Update manifest does not contain a version."),
    (lambda folder: (folder / "update.json").unlink(),
     "Live update manifest check failed: The update manifest returned HTTP status 404."),
], ids=lambda value: value[:40] if isinstance(value, str) else "")
def test_whatever_is_wrong_with_it_is_said(published, change, line):
    change(published.folder)
    published.secure.files.clear()
    published.secure.publish(published.folder)
    assert published.machine.setup("--self-test-live-update-manifest") == 21
    assert published.machine.log()[-2:] == [FAILED + line, "setup finished: exit=21"]
    left = published.machine.files(r"C:\users\root\AppData\Local\Temp")
    assert not [name for name in left if name.startswith("Velquin.")]


def test_an_unreachable_host_fails(machine):
    assert machine.setup("--self-test-live-update-manifest", timeout=60) == 21
    assert_in_order(machine.log(), "update check failed: The update manifest request failed.",
                    FAILED + "Live update manifest check failed: The update manifest request failed.")


def test_the_offline_check_needs_no_network(machine):
    machine.environment["http_proxy"] = "http://127.0.0.1:1"
    assert machine.setup("--self-test-update-service") == 0
    assert machine.log()[-2:] == ["update service self-test passed", "setup finished: exit=0"]
    # Where the temporary folder cannot be written to, it says so.
    machine.write(r"C:\no folder", "a file")
    assert machine.setup("--self-test-update-service", environment={"TMP": r"C:\no folder", "TEMP": r"C:\no folder"}) == 20
    assert machine.log()[-2] == ("update service self-test failed: "
                                 "Could not write the update service SHA-256 probe file.")
