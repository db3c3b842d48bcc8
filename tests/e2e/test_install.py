"""Installing with the real package and the real Windows Installer."""
import datetime

import pytest

from product import *  # noqa: F403

ODD_FOLDER = "C:\\Meine Programme\\Vélquin – 日本 büro"


def kib(size):
    return (size + 1023) // 1024


def expected_size():
    sizes = {name: path.stat().st_size for name, path in sources().items()}
    below = lambda folder: kib(sum(size for name, size in sizes.items() if name.startswith(folder + "\\")))  # noqa: E731
    return kib(sizes["Velquin.exe"]) + kib(sizes["VelquinSetup.exe"]) + below("skins") + below("assets")


@pytest.mark.parametrize("folder,options", [(DEFAULT_FOLDER, ""), (ODD_FOLDER, f'--install-dir "{ODD_FOLDER}"')])
def test_installs_everything_into_one_folder(machine, folder, options):
    assert machine.setup(f"--install --desktop --no-start {options}") == 0
    assert machine.files(folder) == sorted(sources())
    for name, source in sources().items():
        assert machine.unix(f"{folder}\\{name}").read_bytes() == source.read_bytes(), name
    report = machine.report()
    today = datetime.date.today().strftime("%Y%m%d")
    assert written(report) == registry(folder, today, expected_size())
    assert report["shortcuts"] == {START_MENU: link(folder), DESKTOP: link(folder), STARTUP: startup_link(folder)}
    assert [version for _, version in report["products"]] == [VERSION]
    assert report["pending"] == []
    assert_in_order(machine.log(), f"setup {VERSION} started: mode=install", "install started", "install folder: " + folder,
                    "MSI extracted: ", "msiexec launch install: /i ", "msiexec install exit=0 log=", "copied: ",
                    "shortcut created: " + START_MENU, "shortcut created: " + DESKTOP, "Scheduled task failed; ",
                    "uninstall entry written: " + folder, "application registered: Velquin.exe",
                    "application registered: VelquinSetup.exe", "repair ok", "MSI install ok", "setup finished: exit=0")
    logs = machine.files(DATA + r"\setup-msi-logs")
    assert len(logs) == 1 and logs[0].startswith(f"msi-install-{VERSION}-2") and not set(logs[0]) & set(": ")
    # The whole way back, from the folder itself.
    assert machine.setup("--uninstall", program=folder + r"\VelquinSetup.exe") == 0
    assert machine.wait_for_worker()
    assert_nothing_left(machine, folder)


@pytest.mark.parametrize("options,starts", [("--install", True), ("--INSTALL --Quiet", False),
                                            ("--install --no-start", False),
                                            ("--install --no-start --quiet --restart-app", True)])
def test_starts_the_application_as_asked(machine, options, starts):
    assert machine.setup(options) == 0
    assert ("installed app launch requested through Explorer" if starts else
            "installed app not started, as asked") in machine.log()
    if starts:
        assert machine.wait_until(lambda: any(line.startswith("app started: ") for line in machine.log()))
    else:
        assert not machine.running("Velquin.exe")


def test_first_install_without_startup_registers_none(machine):
    assert machine.setup("--install --no-start --no-startup --repair") == 0
    assert set(machine.report()["shortcuts"]) == {START_MENU}
    assert "setup finished: exit=0" in machine.log()


def test_upgrade_removes_every_older_version_and_keeps_what_is_not_its_own(machine):
    for version in ("1.0.100", "1.0.150"):
        assert machine.wine("msiexec", "/i", str(BIN / f"old-{version}.msi"), "/qn")
    assert sorted(version for _, version in machine.report()["products"]) == ["1.0.100", "1.0.150"]
    machine.write(DEFAULT_FOLDER + r"\skins\own.json", "{}")
    assert machine.setup("--install --no-start") == 0
    assert [version for _, version in machine.report()["products"]] == [VERSION]
    assert machine.files(DEFAULT_FOLDER) == sorted([*sources(), r"skins\own.json"])
    assert "removing existing MSI products before install: 2" in machine.log()
    logs = machine.files(DATA + r"\setup-msi-logs")
    assert len([name for name in logs if name.startswith("msi-remove-existing-")]) == 2
    # A second install of the same version removes that one first and changes nothing else.
    before = machine.report()
    assert machine.setup("--install --no-start") == 0
    after = machine.report()
    assert after["shortcuts"] == before["shortcuts"] and after["products"] == before["products"]


def test_upgrade_stays_where_the_product_is(machine):
    machine.wine("reg", "add", rf"HKLM\{UNINSTALL_KEY}", "/v", "InstallLocation", "/d", "C:/Apps/Velquin/", "/f")
    assert machine.setup("--install --no-start") == 0
    assert machine.files(r"C:\Apps\Velquin") == sorted(sources())
    assert machine.report()["registry"][UNINSTALL_KEY]["InstallLocation"] == r"C:\Apps\Velquin"
    assert not machine.exists(DEFAULT_FOLDER)
    assert r"install folder: C:\Apps\Velquin (registered)" in machine.log()


def test_moving_to_another_folder_leaves_only_what_the_user_keeps_in_the_old_one(machine):
    assert machine.setup(r'--install --no-start --install-dir "C:\First Place"') == 0
    machine.write(r"C:\First Place\skins\own.json", "{}")
    assert machine.setup(r'--install --no-start --install-dir "C:\Second Place"') == 0
    assert machine.files(r"C:\First Place") == [r"skins\own.json"]
    assert machine.files(r"C:\Second Place") == sorted(sources())
    machine.unix(r"C:\First Place\skins\own.json").unlink()
    assert machine.setup(r"--install --no-start --install-dir C:\Third\Place") == 0
    assert not machine.exists(r"C:\Second Place")
    assert machine.report()["shortcuts"][START_MENU] == link(r"C:\Third\Place")


def test_a_reinstall_before_the_restart_is_not_deleted_at_it(machine):
    assert machine.setup("--install --no-start") == 0
    # In use and without sharing, so that it can only go at the restart.
    holder = machine.start(BIN / "hold_file.exe", DEFAULT_FOLDER + r"\VelquinSetup.exe", "20000")
    assert machine.wait_until(lambda: machine.exists(r"C:\held.txt"))
    assert machine.setup("--uninstall") == 0
    pending = [source for source, _ in machine.report()["pending"]]
    assert rf"\??\{DEFAULT_FOLDER}\VelquinSetup.exe" in pending
    machine.unix(r"C:\held.txt").unlink()
    holder.wait(30)
    assert machine.setup("--install --no-start") == 0
    assert machine.report()["pending"] == []
    machine.restart()
    assert machine.files(DEFAULT_FOLDER) == sorted(sources())


def test_a_package_that_cannot_be_written_changes_nothing(machine):
    assert machine.setup("--install --no-start") == 0
    cached = machine.unix(DATA + rf"\setup-msi-cache\{VERSION}-Velquin.msi")
    cached.unlink()
    cached.mkdir()
    before = machine.report()
    assert machine.setup("--install --no-start") == 4
    assert machine.report() == before
    assert_in_order(machine.log(), "embedded payload open failed: ", "MSI extract failed: ", "setup finished: exit=4")
