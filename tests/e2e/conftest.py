"""A machine for each test, and what the tests share. When a test fails, the setup log of its machine is shown."""
import re
import sys
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools" / "wine"))
from machine import BIN, Machine  # noqa: E402
from screen import Screen  # noqa: E402
from update_host import Authority, Client  # noqa: E402


@pytest.fixture
def machine(request):
    made = Machine("test-" + re.sub(r"\W+", "-", f"{request.node.path.stem}-{request.node.name}")[:80])
    yield made
    print("setup log:", *made.log(), sep="\n  ")
    made.stop()


@pytest.fixture(scope="module")
def screen(tmp_path_factory):
    """A screen of its own for the programs of a file's tests from the first test on that asks for it."""
    with pytest.MonkeyPatch.context() as patch:
        made = Screen(tmp_path_factory.mktemp("screen"))
        patch.setenv("DISPLAY", made.display)
        yield made
        made.close()


@pytest.fixture
def doubled(machine):
    """A machine whose Windows Installer and Task Scheduler tools are recording doubles."""
    machine.use_double("msiexec")
    machine.use_double("schtasks")
    machine.put(BIN / "Velquin.exe", r"C:\doubles\Velquin.exe")
    return machine


@pytest.fixture(scope="module")
def authority(tmp_path_factory):
    """A certificate authority, which the machines of `client` trust."""
    return Authority(tmp_path_factory.mktemp("authority"))


@pytest.fixture
def client(machine, authority):
    """The update client on a machine that reaches servers of this test."""
    made = Client(machine, authority)
    yield made
    made.close()
