"""From the start of a program to its first frame: the setup's dialog beside a bare window and beside the wizard of another
maker of installers."""
import statistics
import subprocess
import sys
from pathlib import Path

REPO = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(REPO / "tools" / "wine"))
from figures import line  # noqa: E402
from machine import BIN  # noqa: E402

# To the wizard, and to the memory that it takes.
WIZARD_RATIO = 1.0
MEMORY_RATIO = 2.0
ROUNDS = 9

PROGRAMS = {
    "bare": ("Bare window", r"C:\bench\bare_window.exe"),
    "wizard": ("Wizard Setup: Installation Folder", r"C:\bench\wizard.exe"),
    "dialog": ("Lumora Velquin Setup", r"C:\setup\VelquinSetup.exe"),
}


SHARE_ROUNDS = 15


def print_shares(machine):
    """What the dialog spends the time on, in the order in which it does."""
    rounds = []
    for _ in range(SHARE_ROUNDS):
        if not machine.wine(BIN / "dialog_timer.exe", r"C:\shares.out", timeout=60):
            sys.exit("the timer of the dialog failed")
        rounds.append({name: int(microseconds) / 1000 for name, microseconds in
                       map(str.split, machine.read(r"C:\shares.out").splitlines())})
    # The quickest of the rounds: what else the machine does can only slow them down.
    shares = ", ".join(f"{name} {min(each[name] for each in rounds):.1f} ms" for name in rounds[0])
    print(f"    its shares, the quickest of {SHARE_ROUNDS} rounds: {shares}")


def make_wizard(path):
    subprocess.run(["makensis", "-V1", "-NOCD", f"-DOUT={path}", f"-DPACKAGE={REPO}/build/win64/installer/Velquin.msi",
                    f"-DSKINS={REPO}/resources/skins", str(REPO / "bench" / "wizard.nsi")], check=True)


def bench_dialog(machine):
    """On a machine where it was started before: the first start of all unpacks the skins."""
    wizard = machine.unix(r"C:\bench\wizard.exe")
    wizard.parent.mkdir(exist_ok=True)
    make_wizard(wizard)
    machine.put(BIN / "bare_window.exe", r"C:\bench\bare_window.exe")
    entries = [f"{title}|{command}" for title, command in PROGRAMS.values()]
    for rounds in (1, ROUNDS):
        machine.write(r"C:\start.txt", "\n".join([str(rounds), *entries]))
        if not machine.wine(BIN / "start_timer.exe", r"C:\start.txt", r"C:\start.out", timeout=600):
            sys.exit("the timer of starts failed")
    times, memory = {name: [] for name in PROGRAMS}, {}
    for row in machine.read(r"C:\start.out").splitlines():
        if row.startswith("failed"):
            sys.exit(f"no window came: {entries[int(row.split()[1])]}")
        number, microseconds, kibibytes = map(int, row.split())
        name = list(PROGRAMS)[number]
        times[name].append(microseconds / 1000)
        memory[name] = kibibytes
    bare, wizard_time, ours = (statistics.median(times[name]) for name in PROGRAMS)
    line("start of the dialog to its first frame, to a wizard", ours / wizard_time, WIZARD_RATIO, "",
         f"({ours:.0f} ms to {wizard_time:.0f} ms, medians of {ROUNDS}; a bare window takes {bare:.0f} ms)")
    print_shares(machine)
    line("memory at the dialog, to a wizard", memory["dialog"] / memory["wizard"], MEMORY_RATIO, "",
         f"({memory['dialog'] / 1024:.1f} MiB to {memory['wizard'] / 1024:.1f} MiB, a bare window "
         f"{memory['bare'] / 1024:.1f} MiB)")
