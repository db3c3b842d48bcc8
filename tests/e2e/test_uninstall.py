"""Uninstalling: from the install folder through the temporary copy, from elsewhere, and what stays."""
import pytest

from product import *  # noqa: F403


def test_from_the_install_folder_the_temporary_copy_does_the_work(machine):
    assert machine.setup("--install --desktop --no-start") == 0
    machine.write(CONFIG, "{}")
    # The worker inherits this current folder, which it has to remove.
    assert machine.setup("--UnInstall --quiet", program=DEFAULT_FOLDER + r"\VelquinSetup.exe", folder=DEFAULT_FOLDER) == 0
    assert machine.wait_for_worker()
    assert_nothing_left(machine)
    assert machine.read(CONFIG) == "{}"
    assert_in_order(machine.log(), f"setup {VERSION} started: mode=uninstall", "temp uninstall worker launched: ",
                    "setup finished: exit=0", f"setup {VERSION} started: mode=uninstall", "uninstall started",
                    "msiexec launch uninstall: /x ", "registry key deleted: ",
                    "file deleted: ", "install folder removed: ", "MSI uninstall ok",
                    "scheduled delete on reboot: ", "setup finished: exit=0")
    assert "--temp-uninstall-worker" in [line for line in machine.log() if line.startswith(f"setup {VERSION}")][-1]
    pending = machine.report()["pending"]
    assert len(pending) == 1 and "VelquinSetup-uninstall-worker-" in pending[0][0] and pending[0][1] == ""
    worker = pending[0][0].removeprefix("\\??\\")
    assert machine.exists(worker)
    machine.restart()
    assert not machine.exists(worker)


@pytest.mark.parametrize("options", ["--uninstall --remove-config", "--uninstall --temp-uninstall-worker --remove-config"])
def test_from_elsewhere_it_works_in_place(machine, options):
    assert machine.setup("--install --desktop --no-start") == 0
    machine.write(CONFIG, "{}")
    machine.write(DATA + r"\deep\er\file.txt", "x")
    assert machine.setup(options) == 0
    assert_nothing_left(machine)
    assert not machine.exists(parent_folder(DATA))
    pending = [source for source, _ in machine.report()["pending"]]
    assert pending == ([r"\??\C:\setup\VelquinSetup.exe"] if "worker" in options else [])


def test_removes_what_older_versions_left(machine):
    assert machine.setup("--install --no-start --no-startup") == 0
    for path in (LEGACY_START_MENU, LEGACY_STARTUP, STARTUP):
        machine.put(BIN / "Velquin.exe", path)
    machine.write(PROGRAMS + r"\Vantorik\Other.lnk", "someone else's")
    assert machine.setup("--uninstall") == 0
    assert_nothing_left(machine)
    assert not machine.exists(parent_folder(LEGACY_START_MENU))
    assert machine.exists(PROGRAMS + r"\Vantorik\Other.lnk")


def test_files_of_others_in_the_install_folder_stay(machine):
    assert machine.setup(r"--install --no-start --install-dir C:\Tools") == 0
    machine.write(r"C:\Tools\mine.txt", "mine")
    assert machine.setup("--uninstall") == 0
    assert machine.files(r"C:\Tools") == ["mine.txt"]
    machine.restart()
    assert machine.files(r"C:\Tools") == ["mine.txt"]


def test_a_file_in_use_goes_at_the_next_restart(machine):
    assert machine.setup("--install --no-start") == 0
    holder = machine.start(BIN / "hold_file.exe", DEFAULT_FOLDER + r"\VelquinSetup.exe", "20000")
    assert machine.wait_until(lambda: machine.exists(r"C:\held.txt"))
    assert machine.setup("--uninstall") == 0
    assert machine.files(DEFAULT_FOLDER) == ["VelquinSetup.exe"]
    machine.unix(r"C:\held.txt").unlink()
    holder.wait(30)
    machine.restart()
    assert not machine.exists(DEFAULT_FOLDER)


def test_a_file_that_cannot_even_be_scheduled_is_reported(machine):
    assert machine.setup("--install --no-start") == 0
    with left_behind(machine, DEFAULT_FOLDER + r"\VelquinSetup.exe"):
        assert machine.setup("--uninstall") == 2
        assert_in_order(machine.log(), "schedule delete on reboot failed: " + DEFAULT_FOLDER + r"\VelquinSetup.exe error=",
                        "delete failed: " + DEFAULT_FOLDER + r"\VelquinSetup.exe", "MSI uninstall failed",
                        "MSI uninstall unavailable or failed; falling back to legacy uninstall path",
                        "uninstall completed with errors", "setup finished: exit=2")


def test_uninstalling_nothing_succeeds(machine):
    assert machine.setup("--uninstall") == 0
    assert_in_order(machine.log(), "MSI uninstall unavailable or failed", "install folder already gone: ", "uninstall ok")


def test_closes_the_running_application(machine):
    assert machine.setup("--install") == 0
    assert machine.wait_until(lambda: any(line.startswith("app started: ") for line in machine.log()))
    # A second one by the same user hands over to the first.
    machine.wine(DEFAULT_FOLDER + r"\Velquin.exe", "--mount", "--tray", "--config", CONFIG)
    assert any(line.startswith("app already runs: ") and "mount=yes quiet=no tray=yes" in line for line in machine.log())
    assert machine.setup("--uninstall") == 0
    assert_in_order(machine.log(), "uninstall started", "app ended", "process closed pid=", "MSI uninstall ok")
    assert_nothing_left(machine)


def test_a_worker_that_cannot_be_made_leaves_everything_in_place(machine):
    assert machine.setup("--install --no-start") == 0
    machine.write(r"C:\no-folder", "a file")
    before = machine.report()
    assert machine.setup("--uninstall", program=DEFAULT_FOLDER + r"\VelquinSetup.exe",
                         environment={"TMP": r"C:\no-folder\sub", "TEMP": r"C:\no-folder\sub"}) == 6
    assert machine.report() == before
    assert any(line.startswith("temp uninstall worker copy failed: C:\\no-folder\\sub\\") for line in machine.log())


def parent_folder(path):
    return path.rsplit("\\", 1)[0]
