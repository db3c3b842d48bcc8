"""What an installed product looks like, in one place for all tests."""
import contextlib
import os
import subprocess

import pytest

from machine import BIN, BUILD, DATA, DEFAULT_FOLDER, REPO  # noqa: F401
from update_host import product_settings

UNINSTALL_KEY = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\LumoraVelquin"
PROGRAMS = r"C:\ProgramData\Microsoft\Windows\Start Menu\Programs"
START_MENU = PROGRAMS + r"\Vantorik\Lumora Velquin.lnk"
LEGACY_START_MENU = PROGRAMS + r"\Lumora\Lumora Velquin.lnk"
STARTUP_FOLDER = r"C:\users\root\AppData\Roaming\Microsoft\Windows\Start Menu\Programs\Startup"
STARTUP = STARTUP_FOLDER + r"\Lumora Velquin.lnk"
LEGACY_STARTUP = STARTUP_FOLDER + r"\Lumora - Quenbria VeraCrypt mount.lnk"
DESKTOP = r"C:\users\root\Desktop\Lumora Velquin.lnk"
CONFIG = DATA + r"\velquin.json"
TASK = "Lumora Velquin"
LEGACY_TASK = "Lumora - Quenbria VeraCrypt mount"
VERSION = product_settings(REPO)[0]

BUTTONS = [f"velquin_{picture}{state}.png" for picture in ("check_updates", "update_available")
           for state in ("", "_disabled", "_hot", "_pressed")]
SKINS = sorted(p.name for p in (REPO / "resources" / "skins").glob("*.json"))


def sources():
    """Each installed file and the file of the build that it has to equal."""
    files = {"Velquin.exe": BIN / "Velquin.exe", "VelquinSetup.exe": BIN / "VelquinSetup.exe"}
    files |= {rf"assets\{name}": BUILD / "resources" / name for name in BUTTONS}
    files |= {rf"skins\{name}": REPO / "resources" / "skins" / name for name in SKINS}
    return files


def registry(folder, install_date, size):
    """The keys and values below HKEY_LOCAL_MACHINE that the setup writes for a product in `folder`."""
    app, setup = folder + r"\Velquin.exe", folder + r"\VelquinSetup.exe"
    keys = {UNINSTALL_KEY: {
        "DisplayIcon": f'"{app}",0', "DisplayName": "Lumora Velquin", "DisplayVersion": VERSION, "EstimatedSize": size,
        "InstallDate": install_date, "InstallLocation": folder, "NoModify": 1, "NoRepair": 1, "Publisher": "Vantorik",
        "QuietUninstallString": f'"{setup}" --uninstall --quiet', "UninstallString": f'"{setup}" --uninstall',
    }}
    for file, path, name, description in (("Velquin.exe", app, "Lumora Velquin", "Velquin manager"),
                                          ("VelquinSetup.exe", setup, "Lumora Velquin Setup", "Installer for Velquin")):
        keys[rf"Software\Microsoft\Windows\CurrentVersion\App Paths\{file}"] = {"": path, "Path": folder}
        classes = rf"Software\Classes\Applications\{file}"
        keys[classes] = {"ApplicationCompany": "Vantorik", "ApplicationDescription": description,
                         "FriendlyAppName": name}
        keys[classes + r"\ApplicationIcon"] = {"": path + ",0"}
        keys[classes + r"\shell\open\command"] = {"": f'"{path}"'}
    return keys


def written(report):
    """The report's keys of the setup itself that hold values: without the package's own."""
    return {k: v for k, v in report["registry"].items() if v and not k.startswith(r"Software\Vantorik")}


def link(folder, arguments="", description="Manage VeraCrypt startup mappings."):
    app = folder + r"\Velquin.exe"
    return {"target": app, "arguments": arguments, "folder": folder, "description": description, "icon": app,
            "iconIndex": 0, "show": 7}


def startup_link(folder, config=CONFIG):
    return link(folder, "--mount --quiet --tray --config " + config,
                "Mount configured VeraCrypt mappings at Windows logon.")


def assert_nothing_left(machine, folder=DEFAULT_FOLDER):
    report = machine.report()
    assert not machine.exists(folder)
    assert not report["registry"] and not report["shortcuts"] and not report["products"]


@contextlib.contextmanager
def disk(machine, path, options):
    """A disk of its own, mounted at a folder of drive C with options such as "size=64k", as long as the block runs."""
    folder = machine.unix(path)
    folder.mkdir(parents=True, exist_ok=True)
    if subprocess.run(["mount", "-t", "tmpfs", "-o", options, "tmpfs", str(folder)], check=False).returncode != 0:
        pytest.skip("this system does not allow mounts")
    try:
        yield
    finally:
        subprocess.run(["umount", str(folder)], check=True)


@contextlib.contextmanager
def left_behind(machine, path):
    """A file that can be deleted neither now nor at the next restart, as long as the block runs."""
    holder = machine.start(BIN / "hold_file.exe", path, "20000")
    assert machine.wait_until(lambda: machine.exists(r"C:\held.txt"))
    # A value of another type in the place of the list of pending renames: nothing can be added to it.
    machine.wine("reg", "add", r"HKLM\SYSTEM\CurrentControlSet\Control\Session Manager", "/v",
                 "PendingFileRenameOperations", "/t", "REG_DWORD", "/d", "1", "/f")
    try:
        yield
    finally:
        machine.unix(r"C:\held.txt").unlink()
        holder.wait(30)


def link_to_folder(machine, link, target):
    machine.unix(target).mkdir(parents=True, exist_ok=True)
    machine.unix(link).parent.mkdir(parents=True, exist_ok=True)
    os.symlink(machine.unix(target), machine.unix(link))


def assert_in_order(lines, *wanted):
    """Each wanted text begins a line, in this order."""
    rest = iter(lines)
    for text in wanted:
        assert any(line.startswith(text) for line in rest), f"missing or out of order: {text}"
