"""A Windows machine of one's own, as a Wine prefix: made in a blink from a prepared one, thrown away afterwards.

The end-to-end tests and the demonstration run the real setup program on such machines. Programs are started through a
small Windows program (tests/tools/raw_run.cpp), since a Unix parent would requote their command lines and see their exit
codes modulo 256.
"""
import fcntl
import hashlib
import itertools
import json
import os
import shutil
import subprocess
import time
from pathlib import Path

REPO = Path(__file__).resolve().parents[2]
BUILD = REPO / "build" / "win64"
BIN = BUILD / "bin"
WINE = REPO / "build" / "wine"
USER = "root"
DATA = rf"C:\users\{USER}\AppData\Local\LumoraPrivateMemory\Velquin"
DEFAULT_FOLDER = r"C:\Program Files\Lumora Velquin"

# Settings of the prepared prefix. Without the first a crash opens a dialog and hangs; the second keeps Wine from writing
# menu entries of the desktop around it.
BASE_SETTINGS = [
    (r"HKCU\Software\Wine\WineDbg", "ShowCrashDialog", "REG_DWORD", "0"),
    (r"HKCU\Software\Wine\DllOverrides", "winemenubuilder.exe", "REG_SZ", ""),
]


def _environment(prefix):
    home = WINE / "home"  # empty: folders in it would be linked into the prefix
    home.mkdir(parents=True, exist_ok=True)
    keep = {k: v for k, v in os.environ.items() if k in ("PATH", "DISPLAY", "TMPDIR")}
    return keep | {
        "HOME": str(home), "WINEPREFIX": str(prefix), "WINEDEBUG": "-all", "WINEARCH": "win64",
        "LC_ALL": "C.UTF-8", "USER": USER, "LOGNAME": USER,
    }


def _quiet(arguments, environment, **more):
    # Wine's services keep whatever standard error they are born with: never a pipe of ours.
    return subprocess.run(arguments, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, **more)


def prepare_base():
    """Makes the prefix that machines are cloned from, once for each Wine version and set of settings."""
    version = subprocess.run(["wine", "--version"], capture_output=True, text=True, check=True).stdout
    key = hashlib.sha256(repr((version, BASE_SETTINGS, USER)).encode()).hexdigest()[:12]
    base = WINE / f"base-{key}"
    WINE.mkdir(parents=True, exist_ok=True)
    with open(WINE / "lock", "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        if base.exists():
            return base
        for old in WINE.glob("base-*"):
            shutil.rmtree(old)
        fresh = WINE / "base-new"
        fresh.mkdir()
        environment = _environment(fresh)
        _quiet(["wineserver", "-p"], environment)
        _quiet(["wineboot", "-i"], environment, check=True, timeout=300)
        for key_path, name, kind, value in BASE_SETTINGS:
            _quiet(["wine", "reg", "add", key_path, "/v", name, "/t", kind, "/d", value, "/f"], environment, check=True,
                   timeout=60)
        _quiet(["wineserver", "-k"], environment)
        _wait_for_server_end(environment)
        fresh.rename(base)
    return base


def _wait_for_server_end(environment):
    # The server writes the registry files when it ends; -w answers at once when none runs.
    _quiet(["wineserver", "-w"], environment, timeout=30)


class Machine:
    """One machine. Paths with a drive letter are Windows paths; `unix` translates those of drive C."""

    def __init__(self, name):
        base = prepare_base()
        self.prefix = WINE / "machines" / name
        self._jobs = itertools.count()
        if self.prefix.exists():
            self.stop()
        self.prefix.parent.mkdir(parents=True, exist_ok=True)
        # Hard links, but for the registry files, which the server writes in place.
        subprocess.run(["cp", "-al", str(base), str(self.prefix)], check=True)
        for file in ("system.reg", "user.reg", "userdef.reg"):
            subprocess.run(["cp", "--remove-destination", str(base / file), str(self.prefix / file)], check=True)
        self.environment = _environment(self.prefix)
        _quiet(["wineserver", "-p"], self.environment)
        _quiet(["wine", "cmd", "/c", "exit"], self.environment, timeout=60)
        self.unix("C:\\jobs").mkdir()
        self.put(BIN / "VelquinSetup.exe", r"C:\setup\VelquinSetup.exe")

    def stop(self):
        _quiet(["wineserver", "-k"], _environment(self.prefix))
        _wait_for_server_end(_environment(self.prefix))
        shutil.rmtree(self.prefix, ignore_errors=True)

    def restart(self):
        """Restarts Windows, so to speak: a fresh server carries out the deletions that are pending."""
        _quiet(["wineserver", "-k"], self.environment)
        _wait_for_server_end(self.environment)
        _quiet(["wineserver", "-p"], self.environment)
        _quiet(["wineboot", "-r"], self.environment, timeout=120)

    def unix(self, path):
        assert path[:2].upper() == "C:", path
        result = self.prefix / "drive_c"
        for part in filter(None, path[2:].split("\\")):
            exact = result / part
            if not os.path.lexists(exact) and result.is_dir():
                # Windows does not care for case, this system does.
                exact = next((e for e in result.iterdir() if e.name.lower() == part.lower()), exact)
            result = exact
        return result

    def exists(self, path):
        return os.path.lexists(self.unix(path))

    def put(self, source, path):
        """Copies a file of this system to a Windows path, never through a hard link of the prepared prefix."""
        target = self.unix(path)
        target.parent.mkdir(parents=True, exist_ok=True)
        target.unlink(missing_ok=True)
        shutil.copy(source, target)

    def write(self, path, text):
        target = self.unix(path)
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(text, encoding="utf-8", newline="")

    def read(self, path):
        return self.unix(path).read_text(encoding="utf-8")

    def wine(self, *arguments, timeout=60):
        """Runs a Windows program with arguments that survive requoting. True when it succeeded."""
        return _quiet(["wine", *map(str, arguments)], self.environment, timeout=timeout).returncode == 0

    def start(self, *arguments):
        """Starts a Windows program and does not wait for it."""
        return subprocess.Popen(["wine", *map(str, arguments)], env=self.environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def run(self, command_line, folder="C:\\", timeout=120, environment=None):
        """Runs a raw command line. Gives the full exit code, or "timeout" or "launch <error code>"."""
        job = rf"C:\jobs\{next(self._jobs)}.txt"
        settings = [name if value is None else f"{name}={value}" for name, value in (environment or {}).items()]
        self.write(job, "\n".join([command_line, folder, str(int(timeout * 1000)), *settings]))
        _quiet(["wine", str(BIN / "raw_run.exe"), job], self.environment, timeout=timeout + 30)
        result = self.read(job + ".exit")
        return int(result) if result.isdigit() else result

    def setup(self, options="", program=r"C:\setup\VelquinSetup.exe", **more):
        """Runs the setup program with its options as they would stand in a command line."""
        return self.run(f'"{program}" {options}'.strip(), **more)

    def log(self):
        """The texts of the setup log's lines, without their time stamps."""
        path = self.unix(DATA + r"\velquin.log")
        if not path.is_file():
            return []
        return [line.split("  ", 2)[2] for line in path.read_text(encoding="utf-8").splitlines() if "  " in line]

    def report(self, *links):
        """What the setup may have changed: registry, shortcuts, pending deletions, installed packages."""
        out = r"C:\jobs\report.json"
        assert self.wine(BIN / "machine_report.exe", out, *links)
        return json.loads(self.read(out))

    def files(self, folder):
        """All files below a folder, as paths relative to it."""
        root = self.unix(folder)
        return sorted(str(p.relative_to(root)).replace("/", "\\") for p in root.rglob("*") if p.is_file())

    def use_double(self, name, script=None):
        """Puts a recording double in the place of a system tool (see tests/tools)."""
        self.put(BIN / f"{name}_double.exe", rf"C:\windows\system32\{name}.exe")
        self.wine("reg", "add", r"HKCU\Software\Wine\DllOverrides", "/v", f"{name}.exe", "/d", "native", "/f")
        self.unix(r"C:\doubles").mkdir(exist_ok=True)
        if script is not None:
            self.write(rf"C:\doubles\{name}.script", "\n".join(script))

    def calls(self, name):
        """The raw command lines that a double was called with."""
        path = self.unix(rf"C:\doubles\{name}.log")
        return path.read_text(encoding="utf-8").splitlines() if path.exists() else []

    def running(self, name):
        """The ids (of this system) of the machine's processes whose program path contains `name`."""
        mark = f"WINEPREFIX={self.prefix}".encode()
        found = []
        for process in Path("/proc").glob("[0-9]*"):
            try:
                if name.encode() in (process / "cmdline").read_bytes().split(b"\0")[0] and mark in (
                        process / "environ").read_bytes().split(b"\0"):
                    found.append(int(process.name))
            except OSError:  # ended meanwhile, or not ours to read
                continue
        return found

    def wait_for_worker(self, seconds=60):
        """Waits for the temporary copy of the setup that uninstalls to end."""
        return self.wait_until(lambda: not self.running("VelquinSetup-uninstall-worker"), seconds)

    def wait_until(self, condition, seconds=20):
        """Waits for something that happens on its own; false when it did not in time."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            if condition():
                return True
            time.sleep(0.05)
        return condition()


def parent_of(path):
    return path.rsplit("\\", 1)[0]
