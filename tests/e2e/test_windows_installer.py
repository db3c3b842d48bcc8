"""How the setup judges Windows Installer, with a double of msiexec.exe that records its calls and answers as told."""
import pytest

from product import *  # noqa: F403

PACKAGE = DATA + rf"\setup-msi-cache\{VERSION}-Velquin.msi"


@pytest.mark.parametrize("code,succeeds", [(0, True), (3010, True), (1641, False), (1605, False), (1602, False)])
def test_only_0_and_3010_are_success(doubled, code, succeeds):
    doubled.write(r"C:\doubles\msiexec.script", f"exit {code} place")
    assert doubled.setup("--install --no-start --desktop") == (0 if succeeds else 4)
    call, = doubled.calls("msiexec")
    log_path = call.rsplit(" /L*V ", 1)[1]
    assert call == (rf'C:\windows\system32\msiexec.exe /i {PACKAGE} /qn /norestart INSTALLFOLDER="{DEFAULT_FOLDER}" '
                    rf"STARTWITHWINDOWS=1 DESKTOPSHORTCUT=1 /L*V {log_path}")
    log = doubled.log()
    assert f"msiexec install exit={code} log={log_path}" in log
    assert ("MSI install ok" in log) == succeeds
    # Nothing is registered for a package that was not installed.
    assert (UNINSTALL_KEY in doubled.report()["registry"]) == succeeds
    assert ("msiexec install: Windows has to be restarted to complete it" in log) == (code == 3010)


def test_a_run_beyond_the_limit_is_ended_and_recorded_as_124(doubled):
    doubled.put(BIN / "VelquinSetupShortLimits.exe", r"C:\setup\VelquinSetup.exe")
    doubled.write(r"C:\doubles\msiexec.script", "sleep 60000")
    assert doubled.setup("--install --no-start") == 4
    assert any(line.startswith("msiexec install exit=124 log=") for line in doubled.log())
    assert not doubled.running("msiexec.exe")


def test_an_installer_that_cannot_be_started_fails(doubled):
    doubled.write(r"C:\windows\system32\msiexec.exe", "no program")
    assert doubled.setup("--install --no-start") == 4
    exits = [line for line in doubled.log() if line.startswith("msiexec install exit=")]
    assert len(exits) == 1 and " exit=0 " not in exits[0]
    assert UNINSTALL_KEY not in doubled.report()["registry"]


@pytest.fixture
def two_old_versions(machine):
    for version in ("1.0.100", "1.0.150"):
        assert machine.wine("msiexec", "/i", str(BIN / f"old-{version}.msi"), "/qn")
    machine.use_double("msiexec")
    return machine


def test_a_failing_removal_aborts_the_upgrade_but_all_are_tried(two_old_versions):
    machine = two_old_versions
    machine.write(r"C:\doubles\msiexec.script", "exit 1603\nexit 0")
    assert machine.setup("--install --no-start") == 4
    codes = [code for code, _ in machine.report()["products"]]
    assert [call.split()[1:3] for call in machine.calls("msiexec")] == [["/x", code] for code in codes]
    assert_in_order(machine.log(), "removing existing MSI products before install: 2", "msiexec remove-existing exit=1603",
                    "msiexec remove-existing exit=0", "MSI install aborted: existing product removal failed",
                    "setup finished: exit=4")


@pytest.mark.parametrize("script,code", [("exit 1603\nexit 0", 0), ("exit 3010", 0)])
def test_uninstall_tries_every_version_and_cleans_up_in_any_case(two_old_versions, script, code):
    machine = two_old_versions
    machine.write(r"C:\doubles\msiexec.script", script)
    machine.put(BIN / "Velquin.exe", DEFAULT_FOLDER + r"\Velquin.exe")
    assert machine.setup("--uninstall") == code
    assert len(machine.calls("msiexec")) == 2
    assert ("MSI uninstall ok" in machine.log()) == (script == "exit 3010")
    assert ("uninstall ok" in machine.log()) == (script != "exit 3010")
    assert not machine.exists(DEFAULT_FOLDER + r"\Velquin.exe")
