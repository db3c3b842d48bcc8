#!/usr/bin/env python3
"""dialog.py [OUT.png]: shows the setup's dialog on the display, on a fresh Wine machine, until the person closes it; or, given
a file, takes a picture of it as it is without and with the product, one above the other."""
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "wine"))
from machine import Machine  # noqa: E402

TITLE = "Lumora Velquin Setup"
RIM = "#3a3d40"


def picture(machine, path):
    """A picture of the dialog alone, closed again afterwards."""
    program = machine.start(machine.unix(r"C:\setup\VelquinSetup.exe"))
    try:
        window = subprocess.run(["xdotool", "search", "--sync", "--onlyvisible", "--name", f"^{TITLE}$"],
                                env=machine.environment, capture_output=True, text=True, check=True, timeout=60)
        time.sleep(1)  # until it has been painted
        subprocess.run(["import", "-window", window.stdout.split()[0], str(path)], env=machine.environment, check=True, timeout=60)
    finally:
        program.kill()
        program.wait()


def main():
    machine = Machine("dialog")
    try:
        if len(sys.argv) == 1:
            return 0 if machine.setup(timeout=3600) != "timeout" else 1
        out = Path(sys.argv[1])
        manager = subprocess.Popen(["openbox"], env=machine.environment, stderr=subprocess.DEVNULL)
        try:
            pictures = [out.with_name(f"{out.stem}-{state}.png") for state in ("new", "installed")]
            picture(machine, pictures[0])
            if machine.setup("--install --no-start") != 0:
                sys.exit("the install failed")
            picture(machine, pictures[1])
        finally:
            manager.kill()
            manager.wait()
        subprocess.run(["convert", *map(str, pictures), "-bordercolor", RIM, "-border", "12", "-append", str(out)], check=True)
        return 0
    finally:
        machine.stop()


if __name__ == "__main__":
    sys.exit(main())
