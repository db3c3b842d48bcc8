"""Which mode runs, what the self-tests answer, and a setup that carries no package."""
import time

import pytest

from product import *  # noqa: F403


@pytest.mark.parametrize("options,code,line", [
    ("--self-test", 1, "product core self-test failed: "),
    ("--SELF-TEST-UPDATE-SERVICE", 0, "update service self-test passed"),
    ("--self-test-mount-diagnostics", 22, "mount diagnostics self-test failed: "),
    ("--SELF-TEST-LIVE-UPDATE-MANIFEST", 21, "live update manifest self-test failed: "),
    ("--self-test-live-update-manifest --self-test-mount-diagnostics", 22, "mount diagnostics self-test failed: "),
    ("--self-test-update-service --repair", 5, "repair failed"),
])
def test_self_tests_answer_with_their_own_codes(machine, options, code, line):
    assert machine.setup(options) == code
    assert machine.log()[-2].startswith(line)
    assert machine.log()[-1] == f"setup finished: exit={code}"


def test_a_setup_without_a_package_installs_the_files_beside_it(machine):
    folder = r"C:\loose"
    machine.put(BIN / "VelquinSetupLoose.exe", folder + r"\AnyName.exe")
    machine.put(BIN / "Velquin.exe", folder + r"\Velquin.exe")
    for name in ("one.json", "two.JSON", "notes.txt"):
        machine.write(rf"{folder}\skins\{name}", name)
    for name in ("picture.png", "picture.svg"):
        machine.write(rf"{folder}\assets\{name}", name)
    program = folder + r"\AnyName.exe"
    assert machine.setup('--install --no-start --install-dir "C:\\new place"', program=program) == 0
    assert machine.files(r"C:\new place") == ["Velquin.exe", "VelquinSetup.exe", r"assets\picture.png",
                                              r"skins\one.json", r"skins\two.JSON"]
    assert_in_order(machine.log(), "install started", "copied: ", "repair ok", "install ok")
    assert machine.report()["shortcuts"][START_MENU] == link(r"C:\new place")
    # Without the application beside it everything else is done, and the install fails.
    machine.unix(folder + r"\Velquin.exe").unlink()
    machine.unix(r"C:\new place\skins\one.json").unlink()
    assert machine.setup("--install --no-start", program=program) == 4
    assert rf"missing source: {folder}\Velquin.exe" in machine.log() and "install failed" in machine.log()
    assert machine.exists(r"C:\new place\skins\one.json")
    # Installing from the install folder itself copies nothing onto itself.
    assert machine.setup("--uninstall", program=program) == 0
    assert_nothing_left(machine, r"C:\new place")


def test_the_log_of_one_run_tells_its_time_and_order(machine):
    before = time.time() - 2
    assert machine.setup("--self-test") == 1
    lines = machine.unix(DATA + r"\velquin.log").read_bytes().decode("utf-8").split("\n")
    assert lines[-1] == "" and len(lines) == 5
    for line in lines[:-1]:
        date, clock, _ = line.split("  ", 2)
        stamp = time.mktime(time.strptime(f"{date} {clock}", "%d.%m.%Y %H:%M:%S"))
        assert before <= stamp <= time.time() + 1
        assert not date.startswith("0")
