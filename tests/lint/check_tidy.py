#!/usr/bin/env python3
"""clang-tidy finds nothing in the shipped code: the portable half as built natively, the rest as built for Windows.

A file that passed is not looked at again until it, one of our headers that it includes, or the settings change.
usage: check_tidy.py NATIVE_BUILD WINDOWS_BUILD
"""
import concurrent.futures
import hashlib
import json
import os
import re
import subprocess
import sys
from pathlib import Path

from sources import REPO, files, is_shipped, report, text

INCLUDE = re.compile(r'^\s*#include "([^"]+)"', re.MULTILINE)
FOR_WINDOWS = ["--extra-arg=--target=x86_64-w64-mingw32", "--extra-arg=-Wno-unknown-warning-option"]


def with_headers(path, seen):
    """The file and all of our files that it includes."""
    if path not in seen and (REPO / path).is_file():
        seen.add(path)
        for name in INCLUDE.findall(text(path)):
            with_headers(Path(name), seen)
    return seen


def fingerprint(path, command):
    digest = hashlib.sha256(text(".clang-tidy").encode() + repr(command).encode())
    for file in sorted(with_headers(path, set())):
        digest.update(str(file).encode() + text(file).encode())
    return digest.hexdigest()


def compiled(build):
    database = json.loads((Path(build) / "compile_commands.json").read_text(encoding="utf-8"))
    return {Path(entry["file"]).resolve() for entry in database}


def main(native, windows):
    native, windows = Path(native).resolve(), Path(windows).resolve()
    stamps = native / "tidy"
    stamps.mkdir(exist_ok=True)
    natively, for_windows = compiled(native), compiled(windows)
    jobs, problems = [], []
    for path in files("*.cpp"):
        if not is_shipped(path):
            continue
        full = (REPO / path).resolve()
        if full not in natively and full not in for_windows:
            problems.append(f"{path}: in no build")
            continue
        build, more = (native, []) if full in natively else (windows, FOR_WINDOWS)
        command = ["clang-tidy", "--quiet", "-p", str(build), *more, str(path)]
        stamp = stamps / (str(path).replace("/", "-") + ".passed")
        mark = fingerprint(path, command)
        if not stamp.exists() or stamp.read_text(encoding="ascii") != mark:
            jobs.append((command, stamp, mark))

    def run(job):
        command, stamp, mark = job
        result = subprocess.run(command, cwd=REPO, capture_output=True, text=True, check=False)
        if result.returncode == 0:
            stamp.write_text(mark, encoding="ascii")
            return []
        found = [line for line in result.stdout.splitlines() if ": error:" in line or ": warning:" in line]
        return found or [f"{command[-1]}: clang-tidy failed: {result.stderr.strip()[-300:]}"]

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for found in pool.map(run, jobs):
            problems += found
    return report(sorted(set(problems)), f"clang-tidy on {len(jobs)} changed files")


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
