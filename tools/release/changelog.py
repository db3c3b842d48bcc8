"""Reads CHANGELOG.md: what each version brought, in each language. Strict, since whatever it misread would be published."""
import re
import unicodedata
from dataclasses import dataclass, field

SECTION = re.compile(r"## (\d+(?:\.\d+){1,3})( \(unreleased\))?")
LANGUAGE = re.compile(r"### .*\S \(([^()]*)\)")
TAG = re.compile(r"[a-z]{2,3}(-[A-Za-z0-9]{2,8})*")
BULLET = re.compile(r"- +(\S.*)")
# The client takes these two from fields of their own and looks at no other tag of the same language.
ENGLISH, CZECH = "en", "cs"


class Refused(Exception):
    """Why nothing is published, in one line."""


@dataclass
class Section:
    version: str
    place: str  # file and line, for errors
    unreleased: bool
    notes: dict = field(default_factory=dict)  # language tag → bullets

    def text(self, tag):
        """The notes as plain text, a line each; empty where there are none."""
        return "\n".join("- " + bullet.replace("`", "") for bullet in self.notes.get(tag, []))


def numbers(version):
    """What versions are compared by, as the client does it: 1.0 equals 1.0.0, and 1.0.10 is newer than 1.0.9."""
    parts = [int(part) for part in version.split(".")]
    while parts and parts[-1] == 0:
        parts.pop()
    return parts


class Reader:
    def __init__(self, file):
        self.file = file
        self.place = ""
        self.sections = []
        self.bullets = []  # those of the heading above
        self.goes_on = False  # an indented line would belong to the last bullet
        self.headings = []  # (place, what has to stand below, bullets)

    def read(self, text):
        for number, line in enumerate(text.split("\n"), 1):
            self.place = f"{self.file}:{number}"
            line = line.rstrip()
            if any(unicodedata.category(character) in ("Cc", "Zl", "Zp") for character in line):
                raise self.wrong("holds a control character or a line separator, as pasted text may")
            self.line(line)
        if not self.sections:
            raise self.wrong("there is no section of a version")
        for place, what, bullets in self.headings:
            if not bullets:
                raise Refused(f"{place}: there are no {what}")
        return self.sections

    def wrong(self, reason):
        return Refused(f"{self.place}: {reason}")

    def line(self, line):
        if line.startswith("#"):
            self.heading(line)
        elif line and self.sections:  # what stands above the first section is for people
            self.note(line)
            return
        self.goes_on = False

    def heading(self, line):
        level = len(line) - len(line.lstrip("#"))
        if level == 2:
            self.version(line)
        elif level == 3 and self.sections:
            self.language(line)
        elif level > 1 or self.sections:
            raise self.wrong(f"no heading of this level belongs here: '{line}'")

    def version(self, line):
        match = SECTION.fullmatch(line)
        if not match:
            raise self.wrong(f"a heading '## VERSION' or '## VERSION (unreleased)' was expected, not '{line}'")
        version, unreleased = match[1], bool(match[2])
        if any(numbers(section.version) == numbers(version) for section in self.sections):
            raise self.wrong(f"version {version} stands here for the second time")
        if self.sections and numbers(self.sections[-1].version) < numbers(version):
            raise self.wrong(f"{version} stands below the older {self.sections[-1].version}")
        if self.sections and unreleased:
            raise self.wrong(f"{version} is older than another section and cannot be unreleased")
        self.sections.append(Section(version, self.place, unreleased))
        self.begin_notes(ENGLISH, f"English notes of {version}")

    def language(self, line):
        match = LANGUAGE.fullmatch(line)
        tag = match[1] if match else ""
        if not TAG.fullmatch(tag):
            raise self.wrong(f"a heading '### Name (language tag)' was expected, not '{line}'")
        if tag.split("-")[0] in (ENGLISH, CZECH) and tag != CZECH:
            raise self.wrong(f"no reader would get notes in '{tag}': English ones stand right below the version, Czech ones "
                             f"under '({CZECH})'")
        if tag.lower() in (other.lower() for other in self.sections[-1].notes):
            raise self.wrong(f"the language '{tag}' stands here for the second time")
        self.begin_notes(tag, f"notes below '{line}'")

    def begin_notes(self, tag, what):
        self.bullets = self.sections[-1].notes[tag] = []
        self.headings.append((self.place, what, self.bullets))

    def note(self, line):
        bullet = BULLET.fullmatch(line)
        if bullet:
            self.bullets.append(bullet[1])
        elif self.goes_on and line.startswith("  ") and not BULLET.fullmatch(line.strip()):
            self.bullets[-1] += " " + line.strip()
        else:
            raise self.wrong(f"neither a bullet '- …' nor an indented line that goes on with one: '{line}'")
        self.goes_on = True


def read_changelog(path):
    """All sections, newest first."""
    try:
        return Reader(path.name).read(path.read_text(encoding="utf-8"))
    except UnicodeDecodeError as error:
        raise Refused(f"{path.name}: is no UTF-8 text from byte {error.start} on") from None


def split_at(version, sections):
    """The section of the version to publish, and those of the releases before it, newest first."""
    present = next((section for section in sections if section.version == version), None)
    newest = sections[0]
    if present is None:
        raise Refused(f"{newest.place}: there is no section for version {version}; the newest one is {newest.version}")
    if present is not newest:
        raise Refused(f"{present.place}: version {version} is not newer than {newest.version}")
    if CZECH not in present.notes:
        raise Refused(f"{present.place}: there are no Czech notes of {version}, '### Česky (cs)'")
    return present, sections[1:]
