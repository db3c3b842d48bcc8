"""The release command on a checkout of the test's own, with a small program in the setup's place. The manifest is read by
the client's own code, which this build has made."""
import json
import os
import subprocess
import sys
import zipfile
from pathlib import Path

import pytest

REPO = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(REPO / "tools" / "release"))
import release  # noqa: E402

VERSION = release.product_settings(REPO)[0]
BASE = "https://updates.test:8443/apps/velquin"
NEWEST = f"# Changes\n## {VERSION}\n- New `thing`.\n### Česky (cs)\n- Nová \\ \"věc\" 🔐.\n### Deutsch (de)\n- Neues.\n"
EARLIER = "## 0.9.10\n- Ten.\n### Česky (cs)\n- Deset.\n## 0.9.9\n- Nine.\n"


SETUP = "build/win64/bin/VelquinSetup.exe"


def make_setup(root, version):
    """A program file with nothing but a version resource and the address that it would ask."""
    number = version.replace(".", ",") + ",0"
    (root / "setup.rc").write_text(f"1 VERSIONINFO FILEVERSION {number} PRODUCTVERSION {number} BEGIN END\n"
                                   f'1 RCDATA {{ L"{BASE}/update.json" }}\n')
    for command in ("windres -i setup.rc -o setup.o", f"ld --dll --no-insert-timestamp setup.o -o {SETUP}"):
        subprocess.run(f"x86_64-w64-mingw32-{command}".split(), cwd=root, check=True)


@pytest.fixture
def make(tmp_path):
    """Makes a checkout of that name."""
    def make_checkout(name="checkout", changelog=NEWEST + EARLIER):
        root = tmp_path / name
        (root / "cmake").mkdir(parents=True)
        (root / SETUP).parent.mkdir(parents=True)
        (root / "CHANGELOG.md").write_text(changelog, encoding="utf-8")
        (root / "cmake/product.cmake").write_bytes((REPO / "cmake/product.cmake").read_bytes())
        (root / "build/win64/CMakeCache.txt").write_text("PRODUCT_UPDATE_HOST:STRING=updates.test:8443\n")
        make_setup(root, VERSION)
        return root
    return make_checkout


def run(root):
    return release.main(["--manifest-check", os.environ["MANIFEST_CHECK"]], root)


def content(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir()}


def test_the_folder_holds_what_the_changelog_and_the_build_say(make):
    root = make()
    assert run(root) == 0
    out = root / "out/release"
    setup, archive = f"VelquinSetup-{VERSION}.exe", f"velquin-update-data-{VERSION}.zip"
    checked = subprocess.run(["sha256sum", "--check", "SHA256SUMS"], cwd=out, check=True, capture_output=True, text=True)
    assert checked.stdout.splitlines() == [f"{name}: OK" for name in sorted([setup, "update.json", archive])]
    sums = {name: digest.upper() for digest, name in map(str.split, (out / "SHA256SUMS").read_text().splitlines())}
    notes = {"changes": "- New thing.", "changes_cs": "- Nová \\ \"věc\" 🔐.", "changes_en": "- New thing.",
             "changes_i18n": {"de": "- Neues."}, "history": [
                 {"version": "0.9.10", "changes": "- Ten.", "changes_cs": "- Deset.", "changes_en": "- Ten."},
                 {"version": "0.9.9", "changes": "- Nine.", "changes_en": "- Nine."}]}
    assert list(json.loads((out / "update.json").read_bytes()).items()) == list({
        "version": VERSION, "release_url": BASE, "setup_url": f"{BASE}/{setup}", "sha256": sums[setup],
        "data_zip_url": f"{BASE}/{archive}", "data_zip_sha256": sums[archive], "data_zip_entry": "update-data.json",
        **notes}.items())
    with zipfile.ZipFile(out / archive) as data:
        assert data.namelist() == ["update-data.json"]
        assert json.loads(data.read("update-data.json")) == {
            "version": VERSION, "setup_file": setup, "setup_size": (root / SETUP).stat().st_size,
            "setup_sha256": sums[setup], **notes}
    assert (out / setup).read_bytes() == (root / SETUP).read_bytes()


def test_a_first_release_is_its_own_history_and_the_same_at_any_time(make, monkeypatch):
    first, second = make("first", NEWEST), make("second", NEWEST)
    assert run(first) == 0
    monkeypatch.setattr("time.time", lambda: 2e9)
    assert run(second) == 0 and run(second) == 0
    assert content(first / "out/release") == content(second / "out/release")
    history = json.loads((first / "out/release/update.json").read_bytes())["history"]
    assert [entry["version"] for entry in history] == [VERSION]


def test_a_published_version_keeps_its_bytes(make, capsys):
    root = make()
    assert run(root) == 0 and run(root) == 0
    (root / SETUP).write_bytes((root / SETUP).read_bytes() + b"another build")
    assert run(root) == 1
    assert "release holds another build of " in capsys.readouterr().err
    (root / "CHANGELOG.md").write_text(NEWEST.replace(f"## {VERSION}", f"## {VERSION} (unreleased)") + EARLIER)
    assert run(root) == 0
    # What needs no build is refused before one.
    assert release.main(["--check"], root) == 0
    (root / "CHANGELOG.md").write_text(EARLIER)
    assert release.main(["--check"], root) == 1


def change(file, old, new):
    """Changes a file of the checkout, or one of a release before it is checked (those have no folder)."""
    def replace(folder):
        path, = folder.glob(file)
        assert old in path.read_bytes()
        path.write_bytes(path.read_bytes().replace(old, new))

    def apply(root, monkeypatch):
        if "/" in file or file == "CHANGELOG.md":
            replace(root)
        else:
            check = release.check_release
            monkeypatch.setattr(release, "check_release", lambda made, *rest: (replace(made), check(made, *rest)))
    return apply


def pack(name, old, new):
    """Packs other update data than meant; the manifest names the digest of that very archive."""
    return lambda _, monkeypatch, zip_of=release.zip_of: monkeypatch.setattr(
        release, "zip_of", lambda _, data: zip_of(name, data.replace(old, new)))


@pytest.mark.parametrize("spoil,error", [
    (change("CHANGELOG.md", b"# Changes", b"## 99999.0\n- Later."), f"version {VERSION} is not newer than 99999.0"),
    (change("build/*/CMakeCache.txt", b"=", b"=https://"), "PRODUCT_UPDATE_HOST is 'https://updates.test:8443'"),
    (change("build/*/CMakeCache.txt", b".test", b".other"), "VelquinSetup.exe does not ask updates.other:8443"),
    (lambda root, _: make_setup(root, "1.0.7"), "VelquinSetup.exe is version 1.0.7.0, not "),
    (change(SETUP, b"MZ", b"ZM"), "VelquinSetup.exe is version unknown, not "),
    (lambda root, _: (root / SETUP).unlink(), "No such file"),
    (change("VelquinSetup-*.exe", b"MZ", b"ZM"), ".exe is not the one that update.json announces"),
    (change("*.zip", b"- Nine.", b"- None."), ".zip is not the one that update.json announces"),
    (pack("update-data.json", b"- Nine.", b"- None."), "update-data.json does not describe"),
    (pack("data.json", b"", b""), "the update data holds ['data.json'], not update-data.json alone"),
    (change("SHA256SUMS", b"update.json", b"else.json"), "SHA256SUMS does not describe"),
    (change("update.json", VERSION.encode(), b"0.0.1"), "refuse update.json: Live update manifest version 0.0.1 "),
    (change("update.json", b"https:", b"http:"), "is not an HTTPS address"),
    (change("update.json", b'"history"', b'"History"'), "history is empty"),
    (change("update.json", b'"release_url"', b'"Release_url"'), "otherwise than meant: release_url"),
    (change("update.json", b"Deset", b"Dest"), "otherwise than meant: history.0.changes_cs"),
    (change("update.json", b"- Neues", b"\xff"), "not valid UTF-8"),
    (change("update.json", b'"history": [', b'"history": [['), "after an array element. (at character "),
])
def test_a_failed_release_leaves_the_earlier_one(make, capsys, monkeypatch, spoil, error):
    root = make()
    assert run(root) == 0
    earlier = content(root / "out/release")
    capsys.readouterr()
    spoil(root, monkeypatch)
    assert run(root) == 1
    told = capsys.readouterr()
    assert error in told.err and told.err.count("\n") == 1 and told.out == ""
    assert content(root / "out/release") == earlier and os.listdir(root / "out") == ["release"]
