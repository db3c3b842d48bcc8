#!/usr/bin/env python3
"""with_machine.py NAME CMD...: runs a command with a Wine machine of its own as the current one (WINEPREFIX), warm, so
that Windows programs start fast and share no state with anything else."""
import os
import subprocess
import sys

from machine import BIN, Machine


def main():
    machine = Machine(sys.argv[1])
    # The first window of a machine starts Wine's desktop, which keeps its parent's pipes until the last window has gone.
    # One that stays for the whole run, with no pipe of ours, spares every test that wait.
    machine.start(BIN / "Velquin.exe")
    try:
        environment = os.environ | machine.environment
        return subprocess.run(sys.argv[2:], env=environment, stdin=subprocess.DEVNULL, check=False).returncode
    finally:
        machine.stop()


if __name__ == "__main__":
    sys.exit(main())
