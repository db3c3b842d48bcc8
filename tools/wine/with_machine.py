#!/usr/bin/env python3
"""with_machine.py NAME CMD...: runs a command with a Wine machine of its own as the current one (WINEPREFIX), warm, so
that Windows programs start fast and share no state with anything else."""
import os
import subprocess
import sys

from machine import Machine


def main():
    machine = Machine(sys.argv[1])
    try:
        environment = os.environ | machine.environment
        return subprocess.run(sys.argv[2:], env=environment, stdin=subprocess.DEVNULL, check=False).returncode
    finally:
        machine.stop()


if __name__ == "__main__":
    sys.exit(main())
