#!/usr/bin/env python3
"""skins.py OUTPUT FOLDER|FILE.json: has skin_gallery draw the skins into the folder OUTPUT. Needs a display of its own."""
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "wine"))
from machine import BIN, Machine  # noqa: E402

SECONDS = 600


def windows_path(path):
    """The path as Windows programs see it: drive Z is the root of this system."""
    return "Z:" + str(Path(path).resolve()).replace("/", "\\")


def main():
    output, source = map(Path, sys.argv[1:3])
    output.mkdir(parents=True, exist_ok=True)
    for old in output.rglob("*.png"):
        old.unlink()
    machine = Machine("skins")
    try:
        drawn = machine.wine(BIN / "skin_gallery.exe", windows_path(output), windows_path(source), timeout=SECONDS)
    finally:
        machine.stop()
    pictures = sorted(output.rglob("*.png"))
    if not drawn or not pictures:
        sys.exit("the skins could not be drawn")
    print(f"{len(pictures)} pictures in {output}")


if __name__ == "__main__":
    main()
