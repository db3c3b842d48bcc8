#!/usr/bin/env python3
"""windows.py OUTPUT.png: pictures of the example window (examples/): as it opens, larger, with its dialog and a tooltip, and
with the debug overlay, at 100 and at 150 %. Needs a display of its own."""
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "wine"))
from machine import BIN, Machine  # noqa: E402

TITLE = "A window of tavi"
# A name, what is done before the picture, in xdotool's words.
SHOTS = [
    ("window", "search --sync --name TITLE"),
    ("tooltip", "search --name TITLE mousemove --window %1 {tip} sleep 1.2"),
    ("larger", "mousemove 1 1 search --name TITLE windowsize %1 {larger} sleep 0.5"),
    ("overlay", "key ctrl+F12 key shift+F12 sleep 0.5"),
    ("dialog", "key ctrl+F12 key Tab key Return search --sync --name ^Dialog$ sleep 0.5"),
]


def xdotool(environment, words):
    command = [TITLE if word == "TITLE" else word for word in words.split()]
    subprocess.run(["xdotool", *command], env=environment, stdout=subprocess.DEVNULL, check=True, timeout=60)


def take(machine, percent, folder):
    machine.wine("reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD", "/d",
                 str(96 * percent // 100), "/f")
    machine.restart()
    environment = machine.environment
    manager = subprocess.Popen(["openbox"], env=environment, stderr=subprocess.DEVNULL)
    program = machine.start(BIN / "example_window.exe")
    scale = percent / 100
    pictures = []
    try:
        for name, words in SHOTS:
            xdotool(environment, words.format(tip=f"{round(430 * scale)} {round(320 * scale)}",
                                              larger=f"{round(760 * scale)} {round(430 * scale)}"))
            time.sleep(0.5)
            picture = Path(folder) / f"{name}-{percent}.png"
            subprocess.run(["import", "-window", "root", picture], env=environment, check=True, timeout=60)
            # The desktop around the window is black; a rim takes its place.
            subprocess.run(["convert", picture, "-trim", "+repage", "-bordercolor", "#505050", "-border", "12", picture],
                           check=True, timeout=60)
            pictures.append(picture)
    finally:
        program.kill()
        program.wait()
        manager.kill()
        manager.wait()
    return pictures


def main():
    output = Path(sys.argv[1])
    folder = output.with_suffix("")
    folder.mkdir(parents=True, exist_ok=True)
    machine = Machine("gallery")
    try:
        rows = [take(machine, percent, folder) for percent in (100, 150)]
    finally:
        machine.stop()
    subprocess.run(["montage", *sum(rows, []), "-background", "#505050", "-tile", f"{len(SHOTS)}x", "-geometry", "+8+8",
                    output], check=True)


if __name__ == "__main__":
    main()
