#!/usr/bin/env python3
"""Shows the setup program at its main job on a fresh Wine machine: installs, breaks something, repairs, uninstalls, and
says after each step what is on the machine. Ends with one line that tells whether all of it held."""
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "wine"))
from machine import DATA, DEFAULT_FOLDER, Machine  # noqa: E402

UNINSTALL_KEY = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\LumoraVelquin"
COLORS = {"bold": "1", "dim": "2", "good": "32", "bad": "31", "name": "36"} if sys.stdout.isatty() else {}


def paint(kind, text):
    return f"\033[{COLORS[kind]}m{text}\033[0m" if kind in COLORS else text


class Demo:
    def __init__(self, machine):
        self.machine = machine
        self.failures = []

    def title(self, text):
        print(f"\n{paint('bold', text)}")

    def row(self, name, text=""):
        print(f"  {paint('name', name)}{'  ' if text != '' else ''}{text}")

    def check(self, what, holds):
        print(f"  {paint('good', 'ok ') if holds else paint('bad', 'NO ')} {what}")
        if not holds:
            self.failures.append(what)

    def run(self, title, options, program=r"C:\setup\VelquinSetup.exe"):
        self.title(title)
        print(paint("dim", f'  > "{program}" {options}'))
        code = self.machine.setup(options, program=program)
        self.check(f"exit code {code}", code == 0)

    def show_machine(self):
        report = self.machine.report()
        self.title("Install folder")
        files = self.machine.files(DEFAULT_FOLDER) if self.machine.exists(DEFAULT_FOLDER) else []
        for file in files:
            size = self.machine.unix(f"{DEFAULT_FOLDER}\\{file}").stat().st_size
            print(f"  {size:>9,}  {file}")
        self.title("Registry (HKEY_LOCAL_MACHINE)")
        for key, values in report["registry"].items():
            if values:
                self.row(key)
                for name, value in values.items():
                    print(f"      {name or '(default)':<22} {value}")
        self.title("Shortcuts")
        for path, link in report["shortcuts"].items():
            self.row(path)
            print(f"      -> {link['target']} {link['arguments']}".rstrip())
        startup = [p for p in report["shortcuts"] if "\\Startup\\" in p]
        method = "Startup shortcut (Wine's schtasks cannot create tasks; on Windows a logon task)" if startup else "none"
        self.title("Start with Windows")
        self.row(method)
        return report

    def show_log(self, skip):
        self.title("Setup log")
        lines = self.machine.log()
        for line in lines[skip:]:
            print(paint("dim", f"  {line}"))
        return len(lines)


def main():
    print(paint("bold", "Velquin Setup under Wine, on a fresh machine"))
    machine = Machine("demo")
    try:
        demo = Demo(machine)
        demo.run("Install", "--install --desktop --no-start")
        installed = demo.show_machine()
        read = demo.show_log(0)
        demo.check("the product is installed", len(installed["products"]) == 1 and UNINSTALL_KEY in installed["registry"])

        demo.title("Break something")
        shortcut = next(path for path in installed["shortcuts"] if "Start Menu" in path and "Startup" not in path)
        machine.unix(shortcut).unlink()
        machine.wine("reg", "delete", rf"HKLM\{UNINSTALL_KEY}", "/v", "UninstallString", "/f")
        broken = machine.report()
        demo.check(f"deleted {shortcut}", shortcut not in broken["shortcuts"])
        demo.check("deleted the value UninstallString", "UninstallString" not in broken["registry"][UNINSTALL_KEY])

        demo.run("Repair", "--repair")
        repaired = machine.report()
        demo.check("the shortcut is back", repaired["shortcuts"].get(shortcut) == installed["shortcuts"][shortcut])
        demo.check("the registry is as it was", repaired["registry"] == installed["registry"])
        demo.show_log(read)

        demo.run("Uninstall from the install folder", "--uninstall --remove-config",
                 program=DEFAULT_FOLDER + r"\VelquinSetup.exe")
        print("  (the setup has handed over to its temporary copy; waiting for that)")
        machine.wait_for_worker()
        left = machine.report()
        demo.check("no file of the product", not machine.exists(DEFAULT_FOLDER))
        demo.check("no registry entry", not left["registry"])
        demo.check("no shortcut", not left["shortcuts"])
        demo.check("no installed package", not left["products"])
        demo.check("no user data, the log included", not machine.exists(DATA))
        worker = [source for source, target in left["pending"] if target == ""]
        demo.check("the temporary copy goes at the next restart", len(worker) == 1 and "uninstall-worker" in worker[0])
        demo.title(paint("good", "All of it held.") if not demo.failures else
                   paint("bad", f"{len(demo.failures)} of the checks failed: " + "; ".join(demo.failures)))
        return 1 if demo.failures else 0
    finally:
        machine.stop()


if __name__ == "__main__":
    sys.exit(main())
