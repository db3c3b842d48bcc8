"""What others on the machine try on a setup that runs with administrator rights."""
import os
import re
import subprocess

import pytest

from product import *  # noqa: F403
from screen import Person

# Names under which planted DLLs are tried: what the setup loads itself, what Windows loads into programs behind their
# back, and classics. DLLs that Windows pins (KnownDLLs) are not among them: Wine pins none.
DLLS = ["msi", "version", "winhttp", "uxtheme", "dwmapi", "propsys", "profapi", "cryptbase", "userenv", "urlmon",
        "netapi32", "secur32", "wtsapi32", "apphelp", "comctl32", "linkinfo", "ntmarta", "windowscodecs",
        "bcrypt", "mpr", "cryptsp", "rsaenh", "crypt32", "msasn1", "dnsapi", "iphlpapi", "mswsock", "schannel", "ncrypt",
        "webio", "winnsi", "dhcpcsvc", "msimg32", "usp10", "oleacc", "uiautomationcore", "d2d1", "dwrite",
        "explorerframe", "xmllite", "actxprxy"]
# Loading beside the program has to be allowed first; Wine does not do it by itself.
PREFER_PLANTED = {"WINEDLLOVERRIDES": ",".join(DLLS) + "=n,b;winemenubuilder.exe="}


def planted(machine):
    return [path.name for path in machine.unix("C:\\").glob("canary*.txt")]


def plant(machine, folder):
    for name in DLLS:
        machine.put(BIN / "canary_dll.dll", rf"{folder}\{name}.dll")
    for name in ("msiexec", "schtasks", "explorer", "cmd"):
        machine.put(BIN / "canary_program.exe", rf"{folder}\{name}.exe")


def test_planted_dlls_and_programs_are_not_used(machine):
    plant(machine, r"C:\downloads")
    plant(machine, r"C:\current")
    machine.put(BIN / "VelquinSetup.exe", r"C:\downloads\VelquinSetup.exe")
    machine.environment |= PREFER_PLANTED
    # The trap works: a program without any defence falls into it.
    machine.put(BIN / "careless_program.exe", r"C:\downloads\careless_program.exe")
    machine.run(r"C:\downloads\careless_program.exe", folder=r"C:\current")
    assert "canary-version.dll.txt" in planted(machine) and "canary.txt" in planted(machine)
    for name in planted(machine):
        machine.unix("C:\\" + name).unlink()

    setup = r"C:\downloads\VelquinSetup.exe"
    code = machine.setup("--install --desktop", program=setup, folder=r"C:\current")
    assert planted(machine) == [] and code == 0
    # What the update client loads is tried with a server that does not answer.
    for options, expected in (("--repair", 0), ("--self-test-update-service", 0), ("--self-test-live-update-manifest", 21)):
        assert machine.setup(options, program=setup, folder=r"C:\current") == expected
        assert planted(machine) == [], options
    # The same beside the installed setup and its temporary copy.
    plant(machine, DEFAULT_FOLDER)
    plant(machine, r"C:\users\root\AppData\Local\Temp")
    assert machine.setup("--uninstall", program=DEFAULT_FOLDER + r"\VelquinSetup.exe", folder=DEFAULT_FOLDER) == 0
    assert machine.wait_for_worker()
    assert planted(machine) == []
    assert not machine.report()["products"]


def test_the_dialog_uses_no_planted_dlls_and_programs(screen, machine):
    """Texts of several scripts, the system's folder picker, an error box, and the log in Explorer."""
    plant(machine, r"C:\downloads")
    plant(machine, r"C:\current")
    machine.put(BIN / "VelquinSetup.exe", r"C:\downloads\VelquinSetup.exe")
    machine.environment |= PREFER_PLANTED
    person = Person(machine).start(program=r"C:\downloads\VelquinSetup.exe", folder=r"C:\current")
    person.act("window 20000 Lumora Velquin Setup", "click install-path-browse", "still 1500", "key Escape", "still 500",
               "click3 install-path-input", "type سلام ไทย 漢字", "click install",
               "window 20000 Invalid install folder", "click open-log", "still 2000")
    # Explorer's window lies in front of the box now; both end with the machine.
    assert planted(machine) == []


def test_the_package_cannot_be_swapped_while_it_is_in_use(doubled):
    doubled.write(r"C:\doubles\msiexec.script", "place attack")
    assert doubled.setup("--install --no-start") == 0
    attempts = dict(line.split(" ", 1) if not line.startswith("remove folder") else ("folder", line[14:])
                    for line in doubled.read(r"C:\doubles\attack.log").splitlines())
    assert attempts.pop("read") == "SUCCEEDED"
    assert set(attempts) == {"write", "truncate", "delete", "rename", "replace", "folder"}
    assert [outcome for outcome in attempts.values() if not outcome.startswith("refused ")] == []


def test_a_package_planted_beforehand_is_replaced_and_never_written_through(machine):
    cache = DATA + r"\setup-msi-cache"
    machine.write(r"C:\precious.txt", "precious")
    machine.unix(cache).mkdir(parents=True)
    os.link(machine.unix(r"C:\precious.txt"), machine.unix(cache + rf"\{VERSION}-Velquin.msi"))
    assert machine.setup("--install --no-start") == 0
    assert machine.read(r"C:\precious.txt") == "precious"


@pytest.mark.parametrize("level", ["setup-msi-cache", "data", "above"])
def test_a_link_on_the_way_to_the_package_is_refused(machine, level):
    link = {"setup-msi-cache": DATA + r"\setup-msi-cache", "data": DATA, "above": DATA.rsplit("\\", 1)[0]}[level]
    link_to_folder(machine, link, r"C:\elsewhere")
    assert machine.setup("--install --no-start") == 4
    assert not list(machine.unix(r"C:\elsewhere").rglob("*.msi"))
    assert not machine.exists(DEFAULT_FOLDER) and not machine.report()["registry"]
    assert any(line.startswith("embedded payload refused, a link lies in its path: ") for line in machine.log())


def test_the_temporary_worker_cannot_be_swapped(machine):
    machine.put(BIN / "canary_program.exe", r"C:\canary_program.exe")
    assert machine.setup("--install --no-start") == 0
    attacker = machine.start(BIN / "worker_attacker.exe", r"C:\canary_program.exe", "40")
    assert machine.wait_until(lambda: machine.exists(r"C:\attacker-ready.txt"))
    code = machine.setup("--uninstall", program=DEFAULT_FOLDER + r"\VelquinSetup.exe")
    assert machine.wait_for_worker()
    machine.write(r"C:\attacker-stop.txt", "")
    attacker.wait(60)
    seen, refused = map(int, machine.read(r"C:\attacker.txt").split())
    assert seen > 0 and refused > 0
    # Either the worker is what it should be, or there is none; a foreign program never runs.
    assert planted(machine) == []
    if code == 0:
        assert not machine.report()["products"]
    else:
        assert code == 6 and machine.exists(DEFAULT_FOLDER + r"\Velquin.exe")


def test_removing_the_user_data_never_passes_through_a_link(machine):
    assert machine.setup("--install --no-start") == 0
    machine.write(r"C:\survivor\deep\file.txt", "keep")
    link_to_folder(machine, DATA + r"\linked", r"C:\survivor")
    link_to_folder(machine, DATA + r"\folder\linked", r"C:\survivor\deep")
    assert machine.setup("--uninstall --remove-config") == 0
    assert machine.read(r"C:\survivor\deep\file.txt") == "keep"
    assert {"link left in place, not followed: " + DATA + r"\linked",
            "link left in place, not followed: " + DATA + r"\folder\linked"} <= set(machine.log())
    assert not machine.exists(DATA + r"\setup-msi-cache")


@pytest.mark.parametrize("level", ["data", "above"])
def test_user_data_that_is_itself_a_link_is_left_alone(machine, level):
    assert machine.setup("--install --no-start") == 0
    subprocess.run(["rm", "-r", str(machine.unix(DATA.rsplit("\\", 1)[0]))], check=True)
    machine.write(r"C:\survivor\Velquin\file.txt", "keep")
    if level == "data":
        link_to_folder(machine, DATA, r"C:\survivor\Velquin")
    else:
        link_to_folder(machine, DATA.rsplit("\\", 1)[0], r"C:\survivor")
    assert machine.setup("--uninstall --remove-config") == 0
    assert machine.read(r"C:\survivor\Velquin\file.txt") == "keep"


@pytest.mark.parametrize("name", ["skins", r"assets\more", "skins\\deep\\er"])
def test_links_in_the_install_folder_are_not_followed(machine, name):
    assert machine.setup("--install --no-start") == 0
    machine.write(r"C:\survivor\file.txt", "keep")
    place = DEFAULT_FOLDER + "\\" + name
    subprocess.run(["rm", "-rf", str(machine.unix(place))], check=True)
    link_to_folder(machine, place, r"C:\survivor")
    assert machine.setup("--uninstall") == 0
    assert machine.read(r"C:\survivor\file.txt") == "keep"
    assert "link left in place, not followed: " + place in machine.log()
    assert not machine.exists(DEFAULT_FOLDER + r"\Velquin.exe")


def test_every_child_program_is_named_by_its_full_path(doubled):
    doubled.write(r"C:\doubles\msiexec.script", "place")
    assert doubled.setup("--install --no-start") == 0 and doubled.setup("--uninstall") == 0
    calls = doubled.calls("msiexec") + doubled.calls("schtasks")
    assert len(calls) >= 4
    assert [call for call in calls if not re.match(r"(?i)C:\\windows\\system32\\(msiexec|schtasks)\.exe /", call)] == []
