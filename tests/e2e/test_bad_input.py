"""Wrong input and a hostile environment: a clear failure, a log line, nothing lost."""

import pytest

from product import *  # noqa: F403

REFUSED = "install folder refused, nothing was changed: "


@pytest.fixture
def installed(machine):
    """A machine with an older version installed, which no failed install may cost it."""
    assert machine.wine("msiexec", "/i", str(BIN / "old-1.0.150.msi"), "/qn")
    return machine


@pytest.mark.parametrize("folder,reason", [
    (r"C:\bad<name>", "is no valid folder name"),
    (r"C:\what?", "is no valid folder name"),
    ("C:\\", "it is a root"),
    (r"Q:\no\such\drive", "its drive or share cannot be reached"),
    (r"C:\a-file", "a file stands in its way"),
    (r"C:\a-file\below", "a file stands in its way"),
    (r"\\.\C:\device", "it is not a full path"),
    ("C:\\" + "x" * 300, "it is longer than"),
    ("C:\\" + "long\\" * 60, "it is longer than"),
])
def test_an_unusable_install_folder_changes_nothing(installed, folder, reason):
    installed.write(r"C:\a-file", "data")
    before = installed.report(), installed.files(DEFAULT_FOLDER)
    assert installed.setup(f'--install --no-start --install-dir "{folder.rstrip(chr(92)) if len(folder) > 3 else folder + "."}"') == 4
    assert (installed.report(), installed.files(DEFAULT_FOLDER)) == before
    refusals = [line for line in installed.log() if line.startswith(REFUSED)]
    assert len(refusals) == 1 and reason in refusals[0]
    assert_in_order(installed.log(), REFUSED, "install failed", "setup finished: exit=4")


def test_a_backslash_before_the_closing_quotation_mark_is_explained(installed):
    assert installed.setup(r'--install --install-dir "C:\Apps\" --no-start') == 4
    assert any(REFUSED in line and "leave out the backslash" in line for line in installed.log())


@pytest.mark.parametrize("options", ["ro,size=64m", "size=256k"])
def test_a_read_only_or_full_disk_changes_nothing(installed, options):
    with disk(installed, r"C:\target", options):
        before = installed.report()
        assert installed.setup(r'--install --no-start --install-dir "C:\target\in here"') == 4
        assert installed.report() == before
        refusal, = [line for line in installed.log() if line.startswith(REFUSED)]
        assert ("cannot be written to" if "ro" in options else "KiB left") in refusal


def test_a_full_disk_for_the_package_is_reported(installed):
    with disk(installed, r"C:\users\root\AppData\Local", "size=64k"):
        before = installed.report()
        assert installed.setup("--install --no-start") == 4
        assert installed.report() == before
        assert_in_order(installed.log(), "embedded payload write failed: ", "MSI extract failed: ", "setup finished: exit=4")
        assert installed.files(DATA) == ["velquin.log"]


@pytest.mark.parametrize("options,folder", [
    ("--install --no-start --install-dir", DEFAULT_FOLDER),  # last: no folder was given
    ('--install --no-start --install-dir "   "', DEFAULT_FOLDER),
    ("--install --no-start --install-dir --desktop", r"C:\start here\--desktop"),
    ('--install --no-start --install-dir "..\\other/./place"', r"C:\other\place"),
])
def test_how_the_folder_option_is_read(machine, options, folder):
    machine.unix(r"C:\start here").mkdir()
    assert machine.setup(options, folder=r"C:\start here") == 0
    assert machine.files(folder) == sorted(sources())
    assert (DESKTOP in machine.report()["shortcuts"]) == ("--desktop" in options)


@pytest.mark.parametrize("kind,value", [("REG_DWORD", "5"), ("REG_SZ", "   "), ("REG_SZ", "C:\\"),
                                        ("REG_SZ", r"Apps\Velquin"), ("REG_MULTI_SZ", r"C:\multi"),
                                        ("REG_BINARY", "00ff")])
def test_a_registered_folder_of_the_wrong_kind_is_ignored(machine, kind, value):
    machine.wine("reg", "add", rf"HKLM\{UNINSTALL_KEY}", "/v", "InstallLocation", "/t", kind, "/d", value, "/f")
    assert machine.setup("--install --no-start") == 0
    assert machine.files(DEFAULT_FOLDER) == sorted(sources())


def test_a_log_that_cannot_be_written_stops_nothing(machine):
    machine.unix(DATA + r"\velquin.log").mkdir(parents=True)
    assert machine.setup("--install --no-start") == 0
    assert machine.setup("--uninstall") == 0
    assert_nothing_left(machine)


def test_a_log_that_is_a_link_is_not_written_through(machine):
    machine.write(r"C:\precious\file.txt", "precious")
    machine.unix(DATA).mkdir(parents=True)
    machine.unix(DATA + r"\velquin.log").symlink_to(machine.unix(r"C:\precious"))
    assert machine.setup("--install --no-start") == 0
    assert machine.files(r"C:\precious") == ["file.txt"]


def test_without_local_app_data_the_temporary_folder_takes_its_place(machine):
    data = r"C:\users\root\AppData\Local\Temp\LumoraPrivateMemory\Velquin"
    assert machine.setup("--install --no-start", environment={"LOCALAPPDATA": None}) == 0
    assert "MSI install ok" in machine.read(data + r"\velquin.log")
    assert not machine.exists(DATA + r"\velquin.log")
    assert machine.report()["shortcuts"][STARTUP] == startup_link(DEFAULT_FOLDER, data + r"\velquin.json")


def test_without_any_folder_variable_the_fallbacks_hold(machine):
    environment = {name: None for name in ("LOCALAPPDATA", "APPDATA", "USERPROFILE")}
    assert machine.setup("--install --no-start --desktop", environment=environment) == 0
    assert machine.setup("--uninstall --remove-config", environment=environment) == 0
    assert_nothing_left(machine)


def test_enormous_arguments_are_survived(machine):
    assert machine.setup("--install --no-start " + "x" * 29000) == 0
    assert machine.setup('--install-dir "' + "y" * 29000 + '" --install --no-start') == 4
    assert max(map(len, machine.log())) < 32000
    many = " ".join(["--no-start"] * 2500)
    assert machine.setup(f"--uninstall {many}", program=DEFAULT_FOLDER + r"\VelquinSetup.exe") == 0
    assert machine.wait_for_worker()
    assert_nothing_left(machine)
