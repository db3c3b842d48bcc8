"""The setup's dialog, driven as a person does: what is seen is found on the screen, mouse and keyboard are real input, and
each run is judged by its exit code, by the machine and by the log."""
import subprocess
import sys

import pytest

from product import *  # noqa: F403
from screen import Person

sys.path.insert(0, str(REPO / "tools" / "texts"))
from catalog import read_po  # noqa: E402

TITLE = "Lumora Velquin Setup"
FOLDER = "C:\\Werkzeuge\\Vélquin"


@pytest.fixture
def person(screen, machine):
    """A person at a machine without the product."""
    return Person(machine)


@pytest.fixture
def owner(person):
    """A person at a machine with the product, which starts with Windows and has no shortcut on the desktop."""
    assert person.machine.setup("--install --no-start") == 0
    return person


@pytest.fixture
def tester(screen, doubled):
    """A person at a machine whose Windows Installer and Task Scheduler do as the test says."""
    return Person(doubled)


def close_box(title):
    return f"window 60000 {title}", "click ok", "gone 5000"


def assert_nothing_happened(machine):
    assert_nothing_left(machine, DEFAULT_FOLDER)
    assert not any("install started" in line or "msiexec" in line for line in machine.log())


def test_installs_with_the_options_that_were_changed(person):
    person.start()
    [field, start, desktop] = person.tell(TITLE, "install-path-input", "start-with-windows", "desktop-shortcut")
    assert (field["bounds"], field["text"]) == ("(76, 214, 420x32)", DEFAULT_FOLDER)
    assert (start["bounds"], desktop["bounds"]) == ("(76, 254, 250x28)", "(350, 254, 250x28)")
    person.act(f"window 5000 {TITLE}", "click3 install-path-input", f"type {FOLDER}", "click start-with-windows",
               "click desktop-shortcut", "click install", "gone 20000", *close_box("Installed"))
    assert person.exit_code() == 0
    machine = person.machine
    assert machine.files(FOLDER) == sorted(sources())
    assert machine.report()["shortcuts"] == {START_MENU: link(FOLDER), DESKTOP: link(FOLDER)}
    assert machine.wait_until(lambda: any(line.startswith("app started: ") for line in machine.log()))
    assert_in_order(machine.log(), f"setup {VERSION} started: mode=interactive", "install started",
                    f"install folder: {FOLDER} (chosen)", "MSI install ok", "installed app launch requested",
                    "setup finished: exit=0")


def test_the_keyboard_does_all_of_it(person):
    """Return is the primary button; before it Tab goes from the field over "Browse" to both boxes, as the eye reads."""
    person.start()
    person.act(f"window 20000 {TITLE}", "click install-path-input", "key Tab", "key Tab", "key Space", "key Tab", "key Space",
               "key Return", *close_box("Installed"))
    assert person.exit_code() == 0
    assert person.machine.report()["shortcuts"] == {START_MENU: link(DEFAULT_FOLDER), DESKTOP: link(DEFAULT_FOLDER)}


@pytest.mark.parametrize("steps", [("click close",), ("click chrome-close",), ("key Escape",), ("key alt+F4",),
                                   ("right chrome-drag", "still 500", "type c")])
def test_closing_does_nothing(person, steps):
    person.start()
    person.act(f"window 20000 {TITLE}", *steps, "gone 5000")
    assert person.exit_code() == 0
    assert_nothing_happened(person.machine)


@pytest.mark.parametrize("steps,title,line", [
    (("key Delete",), "Invalid install folder", None),
    (("type Velquin",), "Invalid install folder", None),
    (("type \\\\?\\pipe\\x",), "Invalid install folder", None),
    (("type C:\\con\\Velquin",), "Install failed", "install folder refused"),
])
def test_a_folder_that_cannot_be_used_is_refused(person, steps, title, line):
    person.start()
    person.act(f"window 20000 {TITLE}", "click3 install-path-input", *steps, "click install", *close_box(title))
    assert person.exit_code() == 4
    assert line is None or any(text.startswith(line) for text in person.machine.log())
    assert not person.machine.report()["products"]


def test_repairs_and_keeps_what_the_product_has(owner):
    machine = owner.machine
    before = machine.report()
    machine.unix(START_MENU).unlink()
    owner.start()
    [field] = owner.tell(TITLE, "install-path-input")
    assert (field["bounds"], field["text"]) == ("(76, 214, 530x32)", DEFAULT_FOLDER)
    # What is typed into the field does not arrive: it is there to be read.
    owner.act(f"window 5000 {TITLE}", "click3 install-path-input", "type x", "click repair", *close_box("Repaired"))
    assert owner.exit_code() == 0
    assert machine.report() == before
    assert "repair ok" in machine.log()


def test_reinstalls_with_the_settings_of_the_product(person):
    machine = person.machine
    machine.use_double("schtasks")  # Wine's own claims that there is every task
    assert machine.setup("--install --no-start --desktop --no-startup") == 0
    machine.unix(DEFAULT_FOLDER + r"\Velquin.exe").write_bytes(b"damaged")
    person.start().act(f"window 20000 {TITLE}", "click reinstall", *close_box("Reinstalled"))
    assert person.exit_code() == 0
    assert machine.files(DEFAULT_FOLDER) == sorted(sources())
    assert machine.unix(DEFAULT_FOLDER + r"\Velquin.exe").stat().st_size > 1000
    assert machine.report()["shortcuts"] == {START_MENU: link(DEFAULT_FOLDER), DESKTOP: link(DEFAULT_FOLDER)}
    assert_in_order(machine.log(), "setup finished: exit=0", "install started", "removing existing MSI products",
                    "MSI install ok", "installed app launch requested")


def test_uninstalls(owner):
    owner.start().act(f"window 20000 {TITLE}", "click uninstall", *close_box("Uninstalled"))
    assert owner.exit_code() == 0
    assert_nothing_left(owner.machine, DEFAULT_FOLDER)


def test_a_failed_install_says_so_and_leads_to_the_log(tester):
    """While Windows Installer works a small window tells; it cannot be closed. Then the truth, with a way to the log."""
    machine = tester.machine
    machine.use_double("msiexec", ["wait exit 1603"])
    tester.start().act(f"window 20000 {TITLE}", "click install", "gone 5000")
    [bar] = tester.tell(TITLE, "setup-progress")
    assert bar["visible"] == "yes"
    tester.act(f"window 5000 {TITLE}", "key Escape", "key alt+F4", "still 300", f"window 100 {TITLE}")
    machine.write(r"C:\doubles\go", "")
    [explorer] = tester.act("window 20000 Install failed", "click open-log", "other 60000")
    assert explorer == "ExplorerWClass 'Velquin'"  # Wine's Explorer at the folder of the log
    tester.act("key alt+F4", *close_box("Install failed"))
    assert tester.exit_code() == 4
    assert "msiexec install exit=1603" in " ".join(machine.log()) and not machine.running("Velquin.exe")
    assert not any("app launch" in line for line in machine.log())


def test_a_failed_uninstall_ends_with_its_code(owner):
    machine = owner.machine
    with left_behind(machine, DEFAULT_FOLDER + r"\VelquinSetup.exe"):
        owner.start().act(f"window 20000 {TITLE}", "click uninstall", *close_box("Uninstall failed"))
        assert owner.exit_code() == 2


@pytest.mark.parametrize("locale,setting,column", [
    ("C.UTF-8", None, "en"), ("cs_CZ.UTF-8", "auto", "cs"), ("nn_NO.UTF-8", "xx", "no"), ("cs_CZ.UTF-8", "pl_pl", "pl")])
def test_speaks_the_users_language(person, tmp_path, locale, setting, column):
    """The language is that of the configuration, else that of Windows, which Wine takes from the locale."""
    machine = person.machine
    texts = {entry.msgid: entry.msgstr for entry in read_po(REPO / "localization" / "po" / f"{column}.po")}
    if locale != "C.UTF-8":
        name, charset = locale.split(".")
        subprocess.run(["localedef", "-i", name, "-f", charset, str(tmp_path / locale)], check=True)
    if setting is not None:
        machine.write(DATA + r"\velquin.json", f'{{"Language": "{setting}"}}')
    machine.environment |= {"LC_ALL": locale, "LOCPATH": str(tmp_path)}
    person.start()
    [button] = person.tell(texts[TITLE], "install")
    assert button["text"] == texts["Install"]
    person.act(f"window 5000 {texts[TITLE]}", "key Escape", "gone 5000")
    assert person.exit_code() == 0
