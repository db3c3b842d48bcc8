"""A screen with a window manager, and a person in front of it."""
import os
import subprocess
import time

from machine import BIN


class Screen:
    """A display of its own: pointer and keyboard belong to a display, and other tests run at the same time."""

    def __init__(self, folder):
        number = folder / "display"
        with open(number, "wb") as out:
            self._server = subprocess.Popen(
                ["Xvfb", "-displayfd", str(out.fileno()), "-screen", "0", "1600x1000x24", "-nolisten", "tcp", "-noreset"],
                pass_fds=[out.fileno()], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        end = time.monotonic() + 20
        while not number.read_text(encoding="ascii").endswith("\n"):
            assert self._server.poll() is None and time.monotonic() < end, "Xvfb did not start"
            time.sleep(0.05)
        self.display = ":" + number.read_text(encoding="ascii").strip()
        self.environment = os.environ | {"DISPLAY": self.display}
        # Without one no window ever gets the keyboard.
        self._manager = subprocess.Popen(["openbox"], env=self.environment, stdin=subprocess.DEVNULL,
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def picture(self, path):
        """Takes a picture of all that is on the screen."""
        subprocess.run(["import", "-window", "root", str(path)], env=self.environment, check=True, timeout=60)

    def close(self):
        for process in (self._manager, self._server):
            process.terminate()
            process.wait()


class Person:
    """Acts on the windows of a machine (tests/tools/person.cpp tells the steps)."""

    def __init__(self, machine):
        self.machine = machine

    def act(self, *steps, timeout=90):
        """Does the steps and gives what they found, a text each. A step that fails fails the test."""
        script, out = r"C:\jobs\person.txt", r"C:\jobs\person.out"
        self.machine.write(script, "\n".join(steps))
        assert self.machine.wine(BIN / "person.exe", script, out, timeout=timeout)
        found = self.machine.read(out).splitlines()
        assert not found or not found[-1].startswith("failed: "), found[-1]
        return found

    def tell(self, control):
        """What the framework says about a control of the window that is looked at, by name."""
        return dict(entry.split("=", 1) for entry in self.act(f"tell {control}")[0].split(" | ") if "=" in entry)
