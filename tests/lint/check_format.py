#!/usr/bin/env python3
"""All C++ files are formatted as .clang-format says (./dev format mends them)."""
import subprocess
import sys

from sources import REPO, files, report


def main():
    sources = [str(path) for path in files("*.h", "*.cpp")]
    result = subprocess.run(["clang-format", "--dry-run", "--Werror", "--ferror-limit=1", *sources], cwd=REPO,
                            capture_output=True, text=True, check=False)
    problems = [line for line in result.stderr.splitlines() if "error:" in line]
    if result.returncode != 0 and not problems:
        problems = [result.stderr]
    return report(problems, f"format of {len(sources)} files")


if __name__ == "__main__":
    sys.exit(main())
