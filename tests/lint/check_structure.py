#!/usr/bin/env python3
"""The code keeps to its plan: floors, portable and Windows code, what the shipped programs may not pay for, headers."""
import re
import sys

from sources import FLOORS, REPO, files, is_shipped, report, text

INCLUDE = re.compile(r'^\s*#include ["<]([^">]+)[">]', re.MULTILINE)
WINDOWS_HEADERS = {"windows.h", "objbase.h", "shlobj.h", "shellapi.h", "msi.h", "tlhelp32.h", "winhttp.h"}
# Each of them brings the C++ library's locale code, three quarters of a megabyte.
TOO_LARGE = {"filesystem", "iostream", "sstream", "fstream", "format", "print", "regex", "locale"}


def floor_of(path):
    for height, folders in enumerate(FLOORS):
        for folder in folders:
            if str(path).startswith(folder + "/"):
                return height, folder
    return None


def is_windows_file(path):
    return path.stem.endswith("_win32") or "win32" in path.parent.parts


def windows_problems(path):
    for name in INCLUDE.findall(text(path)):
        is_windows = name.lower() in WINDOWS_HEADERS or "win32/" in name
        if not is_windows_file(path) and ((is_windows and path.suffix == ".cpp") or name.endswith("_win32.h")):
            yield f"{path}: portable code includes {name}"


def problems_of(path):
    content = text(path)
    height, folder = floor_of(path)
    for name in INCLUDE.findall(content):
        other = floor_of(name)
        if other and (other[0] > height or (other[0] == height and other[1] != folder)):
            yield f"{path}: includes {name} of a floor that is not below"
        if name.lower() in WINDOWS_HEADERS and path.suffix == ".h" and not is_windows_file(path):
            yield f"{path}: a header for portable code includes {name}"
        if name in TOO_LARGE:
            yield f"{path}: <{name}> is too large for the shipped programs"
    if path.suffix == ".h":
        if "#pragma once" not in content:
            yield f"{path}: no #pragma once"
        if not content.startswith("//"):
            yield f"{path}: does not say in its first lines what it is for"


def text_problems(path):
    content = text(path)
    if str(REPO) in content:
        yield f"{path}: names a path of this machine"
    if "\t" in content and path.suffix in {".h", ".cpp", ".py", ".cmake", ".json", ".svg"}:
        yield f"{path}: holds a tab"
    if "\r" in content or (content and not content.endswith("\n")):
        yield f"{path}: line ends are not plain line feeds to the last line"


def main():
    sources = [path for path in files("*.h", "*.cpp") if is_shipped(path)]
    texts = files("*.h", "*.cpp", "*.py", "*.sh", "*.cmake", "*.txt", "*.md", "*.json", "*.svg", "*.wxs", "dev")
    if len(sources) < 20 or len(texts) < 40:
        return report(["hardly any files were found"], "structure")
    problems = [problem for path in sources for problem in problems_of(path)]
    problems += [problem for path in [*sources, *files("bench/*.cpp", "fuzz/*.cpp", "examples/*.cpp")] for problem in windows_problems(path)]
    problems += [problem for path in texts for problem in text_problems(path)]
    return report(problems, f"structure of {len(sources)} sources and {len(texts)} texts")


if __name__ == "__main__":
    sys.exit(main())
