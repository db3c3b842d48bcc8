#!/usr/bin/env python3
"""Writes out/release, the folder that is uploaded as it is to publish this version: the setup, the update manifest, the
update data and the digests of all of them. docs/updates.md describes them.

The same setup and changelog give the same bytes. The folder is put in place only when the update client's own code has read the
manifest back and everything in it is true of the files; until then an earlier release stays as it was.
"""
import argparse
import hashlib
import io
import json
import subprocess
import sys
import tempfile
import zipfile
from pathlib import Path

import pefile

from changelog import CZECH, ENGLISH, Refused, numbers, read_changelog, split_at
from settings import product_settings

REPO = Path(__file__).resolve().parents[2]
DATA_ENTRY = "update-data.json"
SUMS = "SHA256SUMS"
COLORS = {"bold": "1", "dim": "2", "good": "32", "name": "36"} if sys.stdout.isatty() else {}


def paint(kind, text):
    return f"\033[{COLORS[kind]}m{text}\033[0m" if kind in COLORS else text


# What is published ---------------------------------------------------------------------------------------------------

def setup_versions(setup):
    """The versions of file and product in the setup's version resource; none when it has no such resource."""
    try:
        pe = pefile.PE(data=setup, fast_load=True)
        pe.parse_data_directories([pefile.DIRECTORY_ENTRY["IMAGE_DIRECTORY_ENTRY_RESOURCE"]])
        fixed = pe.VS_FIXEDFILEINFO[0]
    except (pefile.PEFormatError, AttributeError, ValueError):
        return []
    words = ((fixed.FileVersionMS, fixed.FileVersionLS), (fixed.ProductVersionMS, fixed.ProductVersionLS))
    return [".".join(str(half) for word in pair for half in (word >> 16, word & 0xFFFF)) for pair in words]


def read_setup(path, version, host):
    setup = path.read_bytes()
    if f"https://{host}/apps/velquin/update.json".encode("utf-16-le") not in setup:
        raise Refused(f"{path.name} does not ask {host} for updates; build it anew")
    found = setup_versions(setup)
    if not found or any(numbers(own) != numbers(version) for own in found):
        named = " / ".join(dict.fromkeys(found)) or "unknown"
        raise Refused(f"{path.name} is version {named}, not {version}; build it anew")
    return setup


def notes_of(section):
    return {
        "changes": section.text(ENGLISH),  # for readers of every language without notes of its own
        "changes_cs": section.text(CZECH),
        "changes_en": section.text(ENGLISH),
        "changes_i18n": {tag: section.text(tag) for tag in section.notes if tag not in (ENGLISH, CZECH)},
    }


def history_entry(section):
    return {"version": section.version} | {key: value for key, value in notes_of(section).items() if value}


def history_of(present, earlier):
    # To a client an empty history is the mark of a broken manifest. So the first release of all, which has none, and no
    # other one, is its own history; a client shows a version once, even where it stands in both places.
    return [history_entry(section) for section in earlier or [present]]


def sha256(data):
    return hashlib.sha256(data).hexdigest().upper()


def to_json(document):
    return (json.dumps(document, ensure_ascii=False, indent=2) + "\n").encode()


def zip_of(name, data):
    """An archive of one file that is the same wherever it is made: fixed date and rights, and nothing left to the
    compressor of the day."""
    entry = zipfile.ZipInfo(name)  # dated 1980-01-01, the first day that archives know
    entry.create_system, entry.external_attr = 3, 0o100644 << 16
    stream = io.BytesIO()
    with zipfile.ZipFile(stream, "w", zipfile.ZIP_STORED) as archive:
        archive.writestr(entry, data)
    return stream.getvalue()


def compose(version, host, setup, present, earlier):
    """The manifest, the update data, and all files by name."""
    base = f"https://{host}/apps/velquin"
    setup_name, zip_name = f"VelquinSetup-{version}.exe", f"velquin-update-data-{version}.zip"
    notes, history = notes_of(present), history_of(present, earlier)
    data = {"version": version, "setup_file": setup_name, "setup_size": len(setup), "setup_sha256": sha256(setup)}
    data |= notes | {"history": history}
    archive = zip_of(DATA_ENTRY, to_json(data))
    # The version comes first and the history, which has keys of the same names, last: whoever searches the text for a key
    # finds the one of this version.
    manifest = {
        "version": version,
        "release_url": base,
        "setup_url": f"{base}/{setup_name}",
        "sha256": sha256(setup),
        "data_zip_url": f"{base}/{zip_name}",
        "data_zip_sha256": sha256(archive),
        "data_zip_entry": DATA_ENTRY,
        **notes,
        "history": history,
    }
    files = {setup_name: setup, zip_name: archive, "update.json": to_json(manifest)}
    files[SUMS] = "".join(f"{sha256(files[name]).lower()}  {name}\n" for name in sorted(files)).encode()
    return manifest, data, files


# The check of what was written ---------------------------------------------------------------------------------------

def flat(value, name=""):
    """The texts of a document by their path, as manifest_check names them; without empty ones."""
    if isinstance(value, str):
        return {name: value} if value else {}
    members = value.items() if isinstance(value, dict) else enumerate(value)
    return {path: text for key, member in members
            for path, text in flat(member, f"{name}.{key}" if name else str(key)).items()}


def read_as_client(manifest_check, manifest):
    """What the client's own code reads, by name."""
    result = subprocess.run([manifest_check, manifest], capture_output=True, check=False)
    if result.returncode != 0:
        reason = " ".join(result.stderr.decode(errors="replace").split())
        raise Refused(f"the client would refuse update.json: {reason}")
    pairs = (line.split("=", 1) for line in result.stdout.decode().split("\n") if line)
    return {name: json.loads(f'"{value}"') for name, value in pairs}


def check_release(folder, manifest, data, manifest_check):
    """Everything is read back from the disk, and the names and digests of the files are those that the client read."""
    on_disk = {path.name: path.read_bytes() for path in folder.iterdir()}
    client = read_as_client(manifest_check, folder / "update.json")
    history = manifest["history"]
    meant = flat(manifest) | {"history": str(len(history))}
    if history[0]["version"] != manifest["version"]:
        meant["offered_to"] = history[0]["version"]
    differing = sorted(name for name in client.keys() | meant.keys() if client.get(name) != meant.get(name))
    if differing:
        raise Refused(f"the client reads update.json otherwise than meant: {', '.join(differing)}")

    for url, digest in (("setup_url", "sha256"), ("data_zip_url", "data_zip_sha256")):
        name = client[url].removeprefix(client["release_url"] + "/")
        if sha256(on_disk.get(name, b"")) != client[digest]:
            raise Refused(f"the file {name} is not the one that update.json announces")
    with zipfile.ZipFile(io.BytesIO(on_disk[client["data_zip_url"].rsplit("/", 1)[1]])) as archive:
        if archive.namelist() != [client["data_zip_entry"]]:
            raise Refused(f"the update data holds {archive.namelist()}, not {client['data_zip_entry']} alone")
        read_back = json.loads(archive.read(client["data_zip_entry"]))
    setup = on_disk.get(read_back["setup_file"], b"")
    if read_back != data or (read_back["setup_size"], read_back["setup_sha256"]) != (len(setup), sha256(setup)):
        raise Refused(f"{DATA_ENTRY} does not describe what is published")

    listed = dict(reversed(line.split("  ", 1)) for line in on_disk.pop(SUMS).decode().split("\n") if line)
    if listed != {name: sha256(content).lower() for name, content in on_disk.items()}:
        raise Refused(f"{SUMS} does not describe what is published")


def put_in_place(made, folder, aside):
    if folder.exists():
        folder.rename(aside)
    try:
        made.rename(folder)
    except BaseException:  # an interrupt, too, must not cost the earlier one
        if aside.exists():
            aside.rename(folder)
        raise


def write_release(files, folder, check):
    """Writes the files to a folder beside, checks them there and puts that in the place of an earlier one."""
    folder.parent.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="release-", dir=folder.parent) as work:
        made = Path(work) / "made"
        made.mkdir()
        for name, content in files.items():
            (made / name).write_bytes(content)
        check(made)
        put_in_place(made, folder, Path(work) / "earlier")


# The command ---------------------------------------------------------------------------------------------------------

def summary(folder, version, host, files, present):
    setup = next(iter(files))
    width = max(map(len, files))
    yield paint("bold", f"\nVelquin Setup {version}, ready to be published: {folder}")
    for name, content in sorted(files.items()):
        gap = " " * (width - len(name))
        yield f"  {len(content):>10,}  {paint('name', name)}{gap}  {paint('dim', sha256(content).lower())}"
    yield paint("bold", "\nUpload")
    yield f"  all files to https://{host}/apps/velquin/, update.json last; then run on Windows"
    yield paint("dim", f"  > start /wait {setup} --self-test-live-update-manifest")
    yield paint("bold", "\nFor administrators: is a downloaded file the published one?")
    yield paint("dim", f"  $ sha256sum --check --ignore-missing {SUMS}")
    yield paint("dim", f"  > certutil -hashfile {setup} SHA256")
    yield paint("good", "\nThe update client's own code has read the manifest; all files are what it announces.")
    if present.unreleased:
        yield f"Hint: CHANGELOG.md still calls {version} unreleased; take '(unreleased)' away when you publish it."
    if host.endswith(".example"):
        yield f"Hint: no client can reach {host}; docs/updates.md tells how to build for your own host."


def refuse_other_build(folder, manifest, unreleased):
    """A version that is published keeps its bytes: who has it would never be offered others of the same number."""
    earlier = folder / "update.json"
    if unreleased or not earlier.is_file():
        return
    published = json.loads(earlier.read_bytes())
    if published["version"] == manifest["version"] and published["sha256"] != manifest["sha256"]:
        raise Refused(f"{folder.name} holds another build of {manifest['version']}, which is not called unreleased; raise the "
                      "version, or remove that folder if it was never published")


def read_sources(root):
    """What has to be right before anything is built."""
    version, host = product_settings(root)
    return version, host, *split_at(version, read_changelog(root / "CHANGELOG.md"))


def release(root, folder, manifest_check):
    version, host, present, earlier = read_sources(root)
    setup = read_setup(root / "build" / "win64" / "bin" / "VelquinSetup.exe", version, host)
    manifest, data, files = compose(version, host, setup, present, earlier)
    refuse_other_build(folder, manifest, present.unreleased)
    write_release(files, folder, lambda made: check_release(made, manifest, data, manifest_check))
    shown = folder.relative_to(root) if folder.is_relative_to(root) else folder
    print("\n".join(summary(shown, version, host, files, present)))


def main(arguments, root=REPO):
    parser = argparse.ArgumentParser(description="Writes the folder that is uploaded to publish this version.")
    parser.add_argument("--output", type=Path, default=root / "out/release", help="the folder, instead of out/release")
    parser.add_argument("--manifest-check", type=Path, default=root / "build/native-release/bin/manifest_check",
                        help="the program that reads the manifest as the client does")
    parser.add_argument("--check", action="store_true", help="only say whether version, host and changelog are fit for it")
    options = parser.parse_args(arguments)
    try:
        if options.check:
            read_sources(root)
        else:
            release(root, options.output.absolute(), options.manifest_check)
    except (Refused, OSError) as error:
        print(f"[dev] error: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
