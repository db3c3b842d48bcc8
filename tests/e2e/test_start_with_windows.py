"""Start with Windows, with a Task Scheduler that keeps a list of tasks and can be told to fail."""
import pytest

from product import *  # noqa: F403

COMMAND = f'"{DEFAULT_FOLDER}\\Velquin.exe" --mount --quiet --tray --config {CONFIG}'


@pytest.fixture
def scheduled(machine):
    machine.use_double("schtasks")
    return machine


def tasks(machine):
    path = machine.unix(r"C:\doubles\tasks.txt")
    lines = path.read_text(encoding="utf-8").splitlines() if path.exists() else []
    return dict(line.split("\t", 1) for line in lines)


def test_a_logon_task_is_made_kept_and_removed(scheduled):
    assert scheduled.setup("--install --no-start") == 0
    assert tasks(scheduled) == {TASK: COMMAND}
    assert set(scheduled.report()["shortcuts"]) == {START_MENU}
    escaped = COMMAND.replace('"', '\\"')
    assert scheduled.calls("schtasks") == [
        rf'C:\windows\system32\schtasks.exe /Create /TN "{TASK}" /TR "{escaped}" /SC ONLOGON /F']
    assert f"Scheduled task installed: {TASK}" in scheduled.log()
    # An upgrade keeps the registration, whatever the option says.
    assert scheduled.setup("--install --no-start --no-startup") == 0
    assert tasks(scheduled) == {TASK: COMMAND}
    # A person who has removed the task keeps it removed, through repair and upgrade.
    scheduled.write(r"C:\doubles\tasks.txt", "")
    assert scheduled.setup("--repair") == 0 and scheduled.setup("--install --no-start") == 0
    assert tasks(scheduled) == {}
    assert scheduled.setup("--uninstall") == 0
    assert_nothing_left(scheduled)


@pytest.mark.parametrize("sign", ["task", "shortcut"])
def test_the_registration_of_an_older_version_is_taken_over(scheduled, sign):
    assert scheduled.setup("--install --no-start --no-startup") == 0
    if sign == "task":
        scheduled.write(r"C:\doubles\tasks.txt", f"{LEGACY_TASK}\told\n")
    else:
        scheduled.put(BIN / "Velquin.exe", LEGACY_STARTUP)
    assert scheduled.setup("--install --no-start") == 0
    assert tasks(scheduled)[TASK] == COMMAND
    assert not scheduled.exists(LEGACY_STARTUP)
    assert scheduled.setup("--uninstall") == 0
    assert tasks(scheduled) == {}


def test_without_start_with_windows_the_tasks_are_deleted(scheduled):
    scheduled.write(r"C:\doubles\tasks.txt", f"{TASK}\tx\n{LEGACY_TASK}\ty\nOther\tz\n")
    assert scheduled.setup("--install --no-start --no-startup") == 0
    assert tasks(scheduled) == {"Other": "z"}


def test_a_failing_scheduler_gives_a_startup_shortcut(scheduled):
    scheduled.write(r"C:\doubles\schtasks.script", "exit 5")
    scheduled.put(BIN / "Velquin.exe", LEGACY_STARTUP)
    assert scheduled.setup("--install --no-start") == 0
    assert scheduled.report()["shortcuts"][STARTUP] == startup_link(DEFAULT_FOLDER)
    assert not scheduled.exists(LEGACY_STARTUP)
    assert "Scheduled task failed; Startup shortcut installed." in scheduled.log()
    # Once the scheduler works again, the task takes the shortcut's place.
    scheduled.unix(r"C:\doubles\schtasks.script").unlink()
    assert scheduled.setup("--repair") == 0
    assert tasks(scheduled) == {TASK: COMMAND} and not scheduled.exists(STARTUP)


def test_when_both_ways_fail_the_rest_is_done_and_the_install_fails(scheduled):
    scheduled.write(r"C:\doubles\schtasks.script", "exit 5")
    folder = scheduled.unix(STARTUP_FOLDER)
    folder.rmdir()
    folder.write_text("a file")
    assert scheduled.setup("--install") == 4
    assert_in_order(scheduled.log(), "shortcut failed: " + STARTUP, "startup registration failed: Autostart registration failed.",
                    "uninstall entry written: ", "repair failed", "MSI install failed", "setup finished: exit=4")
    assert UNINSTALL_KEY in scheduled.report()["registry"]
    assert not scheduled.running("Velquin.exe")


def test_a_scheduler_that_hangs_is_ended_at_the_limit(scheduled):
    scheduled.write(r"C:\doubles\schtasks.script", "sleep 60000")
    scheduled.put(BIN / "VelquinSetupShortLimits.exe", r"C:\setup\VelquinSetup.exe")
    assert scheduled.setup("--install --no-start") == 0
    assert f"scheduled task not created: {TASK} exit=124" in scheduled.log()
    assert scheduled.report()["shortcuts"][STARTUP] == startup_link(DEFAULT_FOLDER)
    assert not scheduled.running("schtasks.exe")
