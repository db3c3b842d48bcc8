"""The configuration file survives what can happen to it while it is saved."""
import os
import random
import signal
import time

from product import *  # noqa: F403

FILE = r"C:\settings\velquin.json"
SAVE = BIN / "save_configuration.exe"


def letters(machine):
    """The one letter that all texts of the file consist of; the file has to be whole."""
    text = machine.read(FILE)
    assert text.startswith("{\n") and text.endswith("\n}\n")
    found = {value[0] for value in text.split('"')[1::2] if len(value) > 1000 and len(set(value)) == 1}
    assert len(found) == 1 and len(text) > 5000
    return found.pop()


def test_a_crash_leaves_the_old_file_or_the_new_one(machine):
    machine.unix(r"C:\settings").mkdir()
    moments = random.Random(5)
    for _ in range(12):
        writer = machine.start(SAVE, FILE, "forever", "60000")
        try:
            assert machine.wait_until(lambda: machine.exists(FILE))
            time.sleep(moments.uniform(0.1, 0.4))
        finally:
            os.kill(writer.pid, signal.SIGKILL)
            writer.wait()
        assert letters(machine) in "ab"
    # What a crash may leave behind is in nobody's way.
    machine.write(FILE + ".new", "half of a")
    assert machine.wait_until(lambda: machine.wine(SAVE, FILE, "c", "2000"))
    assert letters(machine) == "c"
    assert machine.files(r"C:\settings") == ["velquin.json"]


def test_a_full_disk_leaves_the_old_file(machine):
    with disk(machine, r"C:\settings", "size=64k"):
        assert machine.wine(SAVE, FILE, "a", "2000")
        before = machine.read(FILE)
        assert not machine.wine(SAVE, FILE, "b", "20000")
        assert machine.read(FILE) == before
        assert machine.files(r"C:\settings") == ["velquin.json", "velquin.log"]
        assert "configuration not saved, the file could not be replaced: " in machine.read(r"C:\settings\velquin.log")
