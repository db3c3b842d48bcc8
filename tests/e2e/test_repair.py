"""Repairing what was installed."""
import pytest

from product import *  # noqa: F403


def test_repair_restores_what_is_broken_and_keeps_what_was_chosen(machine):
    assert machine.setup("--install --desktop --no-start") == 0
    whole = machine.report()
    machine.unix(START_MENU).unlink()
    machine.wine("reg", "delete", rf"HKLM\{UNINSTALL_KEY}", "/v", "QuietUninstallString", "/f")
    machine.wine("reg", "delete", r"HKLM\Software\Classes\Applications\Velquin.exe", "/f")
    machine.put(BIN / "Velquin.exe", LEGACY_START_MENU)
    assert machine.report() != whole
    # --desktop and --no-startup change nothing: a repair keeps the state that it finds.
    assert machine.setup("--repair --uninstall --no-startup") == 0
    assert machine.report() == whole
    assert not machine.exists(parent(LEGACY_START_MENU))
    machine.unix(DESKTOP).unlink()
    assert machine.setup("--repair --desktop") == 0
    assert not machine.exists(DESKTOP)


@pytest.mark.parametrize("missing", ["Velquin.exe", "VelquinSetup.exe"])
def test_repair_with_a_missing_file_does_the_rest_and_fails(machine, missing):
    assert machine.setup("--install --no-start") == 0
    for link_path in (START_MENU, STARTUP):
        machine.unix(link_path).unlink()
    machine.unix(DEFAULT_FOLDER + "\\" + missing).unlink()
    for key in (UNINSTALL_KEY, r"Software\Microsoft\Windows\CurrentVersion\App Paths" + "\\" + missing):
        machine.wine("reg", "delete", rf"HKLM\{key}", "/f")
    assert machine.setup("--repair") == 5
    report = machine.report()
    assert UNINSTALL_KEY in report["registry"] and START_MENU in report["shortcuts"]
    # An application is only registered while its file is there.
    assert missing not in [key.rsplit("\\", 1)[-1] for key in report["registry"] if "App Paths" in key]
    assert_in_order(machine.log(), "installed file missing: ", "shortcut created: " + START_MENU,
                    "uninstall entry written: ", "application registration skipped, file missing: ", "repair failed",
                    "setup finished: exit=5")


def test_repair_of_nothing_fails_with_its_own_code(machine):
    assert machine.setup("--repair") == 5
    assert "repair failed" in machine.log()


def parent(path):
    return path.rsplit("\\", 1)[0]
