"""Which mode runs, what the self-tests answer, the setup without options, and a setup that carries no package."""
import subprocess
import sys
import time

import pytest

from product import *  # noqa: F403

sys.path.insert(0, str(REPO / "tools" / "texts"))
from catalog import read_po  # noqa: E402


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


@pytest.mark.parametrize("locale,setting,column", [
    ("C.UTF-8", None, "en"), ("cs_CZ.UTF-8", "auto", "cs"), ("nn_NO.UTF-8", "xx", "no"), ("cs_CZ.UTF-8", "pl_pl", "pl")])
def test_without_options_a_message_box_in_the_users_language_tells_what_works(machine, tmp_path, locale, setting, column):
    """The language is that of the configuration, else that of Windows, which Wine takes from the locale."""
    title = next(entry.msgstr for entry in read_po(REPO / "localization" / "po" / f"{column}.po")
                 if entry.msgid == "Lumora Velquin Setup")
    if locale != "C.UTF-8":
        name, charset = locale.split(".")
        subprocess.run(["localedef", "-i", name, "-f", charset, str(tmp_path / locale)], check=True)
    if setting is not None:
        machine.write(DATA + r"\velquin.json", f'{{"Language": "{setting}"}}')
    machine.environment |= {"LC_ALL": locale, "LOCPATH": str(tmp_path)}
    started = machine.start(machine.unix(r"C:\setup\VelquinSetup.exe"))
    machine.environment["LC_ALL"] = "C.UTF-8"  # for what runs beside it
    try:
        assert machine.wait_until(lambda: machine.wine(BIN / "window_closer.exe", title), 30)
        assert started.wait(30) == 4
    finally:
        started.kill()
    assert "interactive setup: the dialog is not part of this build" in machine.log()
    assert not machine.exists(DEFAULT_FOLDER)


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
