#!/usr/bin/env python3
"""The papers are true: options and exit codes as in the code, links that lead somewhere, the present version, every
folder and command named."""
import re
import sys

from sources import REPO, files, report, text

sys.path.insert(0, str(REPO / "tools" / "release"))
from settings import product_names  # noqa: E402

OPTION = re.compile(r"--[a-z][a-z-]+")


def code_options():
    source = text("setup/options.cpp") + text("setup/options.h")
    table = text("setup/options.cpp").split("kOptions[] = {", 1)[1].split("\n};", 1)[0]
    constants = dict(re.findall(r'(k\w+Option)\[\] = L"(--[a-z-]+)"', source))
    return {constants.get(name, name.strip('L"')) for name in re.findall(r"^\s*\{([^,]+),", table, re.MULTILINE)}


def option_problems():
    paper = text("docs/command-line.md")
    documented = set(re.findall(r"^\| `(--[a-z-]+)", paper, re.MULTILINE))
    options = code_options()
    if len(options) < 15:
        yield f"only {len(options)} options were found in the code"
    yield from (f"docs/command-line.md lacks {option}" for option in options - documented)
    yield from (f"docs/command-line.md names {option}, which the program does not know" for option in documented - options)
    codes = set(re.findall(r"= (\d+),", text("setup/exit_codes.h")))
    listed = set(re.findall(r"^\| (\d+) \|", paper, re.MULTILINE))
    if codes != listed:
        yield f"docs/command-line.md lists the exit codes {sorted(listed)}, the code has {sorted(codes)}"


def key_problems():
    """The tables of keys of the configuration and of the manifest name the keys of the code."""
    def rows(name):
        first = [line.split("|")[1] for line in text(name).splitlines() if line.startswith("| `")]
        return {key for cell in first for key in re.findall(r"`(\w+)`", cell)}

    for paper, source, besides in (
            ("docs/configuration.md", "core/configuration.cpp", {"Name", "Enabled", "ui_state_schema_version"}),
            ("docs/updates.md", "update/manifest.h", set())):
        keys = set(re.findall(r'\{L?"(\w+)", &', text(source))) - besides
        if len(keys) < 8:
            yield f"only {len(keys)} keys were found in {source}"
        yield from (f"{paper} lacks the key {key}" for key in keys - rows(paper))


def link_problems():
    for path in files("*.md"):
        for target in re.findall(r"\]\(([^)#]+)(?:#[^)]*)?\)", text(path)):
            if not re.match(r"[a-z]+:", target) and not (REPO / path.parent / target).exists():
                yield f"{path}: {target} does not exist"


def content_problems():
    version = product_names(REPO)["PRODUCT_VERSION"]
    if f"## {version}" not in text("CHANGELOG.md"):
        yield f"CHANGELOG.md has no section for {version}"
    commands = re.findall(r"^  ([a-z]+)\b", text("dev").split("<<'TEXT'")[1].split("\nTEXT")[0], re.MULTILINE)
    if len(commands) < 8:
        yield f"only the commands {commands} were found in ./dev"
    readme, architecture = text("README.md"), text("docs/architecture.md")
    yield from (f"README.md does not name ./dev {command}" for command in commands if f"./dev {command}" not in readme)
    folders = {str(path.parts[0]) for path in files("*") if len(path.parts) > 1 and not path.parts[0].startswith(".")}
    yield from (f"README.md does not name the folder {folder}" for folder in folders if f"`{folder}/`" not in readme)
    code = {str(path.parent) for path in files("*.h") if path.parts[0] in {"base", "core", "setup", "product", "tavi",
                                                                           "update", "localization"}}
    yield from (f"docs/architecture.md does not name {folder}" for folder in code if f"`{folder}/`" not in architecture)
    if not (REPO / "LICENSE").is_file():
        yield "there is no LICENSE"


def hook_problems():
    """The table of a control's hooks names each virtual operation of the code once, and nothing else."""
    sources = text("tavi/core/control.h") + text("tavi/core/input_target.h")
    operations = re.findall(r"^    virtual (?:[\w:<>&* ]+?[ *&])?(~?\w+)\(", sources, re.MULTILINE)
    operations = ["destructor" if name.startswith("~") else name for name in operations]
    table = text("docs/architecture.md").split("### What a control may override", 1)[1].split("\n### ", 1)[0]
    listed = re.findall(r"^\| \d+ \| `?(\w+)`? ", table, re.MULTILINE)
    if sorted(operations) != sorted(listed):
        yield (f"docs/architecture.md lists the hooks otherwise than the code: only one of them has "
               f"{sorted(set(operations) ^ set(listed))}")


def main():
    problems = [*option_problems(), *key_problems(), *link_problems(), *content_problems(), *hook_problems()]
    return report(problems, f"{len(files('*.md'))} papers")


if __name__ == "__main__":
    sys.exit(main())
