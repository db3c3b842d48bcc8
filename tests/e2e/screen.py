"""A screen, and a person in front of it."""
import concurrent.futures
import os
import subprocess
import time

from machine import BIN


class Screen:
    """A display of its own: pointer and keyboard belong to a display, and other tests run at the same time. No window manager
    runs on it: Wine itself decides which of its windows has the keyboard, which input from another program then reaches."""

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

    def picture(self, path):
        """Takes a picture of all that is on the screen."""
        subprocess.run(["import", "-window", "root", str(path)], env=self.environment, check=True, timeout=60)

    def close(self):
        self._server.terminate()
        self._server.wait()


class Person:
    """Acts on the windows of a machine (tests/tools/person.cpp tells the steps), and runs the setup for it."""

    def __init__(self, machine):
        self.machine = machine
        self.setup = None

    def start(self, program=r"C:\setup\VelquinSetup.exe", **more):
        """Starts the setup without options; its exit code comes with `exit_code`."""
        self.setup = concurrent.futures.ThreadPoolExecutor(1).submit(self.machine.setup, program=program, **more)
        return self

    def exit_code(self):
        return self.setup.result(150)

    def act(self, *steps, timeout=90):
        """Does the steps and gives what they found, a text each. A step that fails fails the test."""
        script, out = r"C:\jobs\person.txt", r"C:\jobs\person.out"
        self.machine.write(script, "\n".join(steps))
        assert self.machine.wine(BIN / "person.exe", script, out, timeout=timeout)
        found = self.machine.read(out).splitlines()
        assert not found or not found[-1].startswith("failed: "), found[-1]
        return found

    def tell(self, title, *controls):
        """What the framework says about controls of the window with a title: a dictionary for each."""
        told = self.act(f"window 20000 {title}", *(f"tell {control}" for control in controls))
        return [dict(entry.split("=", 1) for entry in text.split(" | ") if "=" in entry) for text in told]
