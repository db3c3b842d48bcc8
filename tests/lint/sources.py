"""The repository's own files, for the checks that look at all of them."""
import subprocess
from pathlib import Path

REPO = Path(__file__).resolve().parents[2]
# Code that is shipped, by floor: a folder may include what stands at its own place or below.
FLOORS = [["base"], ["core", "tavi/core"], ["localization", "tavi/theme", "tavi/text"], ["tavi/controls", "update"],
          ["setup", "product"]]


def files(*patterns):
    """Paths below the repository, tracked or new but not ignored, that match one of the patterns."""
    listed = subprocess.run(["git", "-C", str(REPO), "ls-files", "--cached", "--others", "--exclude-standard", *patterns],
                            capture_output=True, text=True, check=True).stdout.splitlines()
    return [Path(name) for name in sorted(set(listed)) if (REPO / name).is_file()]


def text(path):
    return (REPO / path).read_text(encoding="utf-8")


def is_shipped(path):
    return any(str(path).startswith(folder + "/") for floor in FLOORS for folder in floor)


def report(problems, what):
    """Prints the problems and gives the exit code; fails as well when there was nothing to check."""
    for problem in problems:
        print(problem)
    print(f"{len(problems)} problems: {what}" if problems else f"no problems: {what}")
    return 1 if problems else 0
