"""The texts that people see, as the repository holds them: the table of texts, the languages, and a gettext file for each
column of translations."""
import dataclasses
import itertools
import re
import tomllib
from pathlib import Path

import polib

REPO = Path(__file__).resolve().parents[2]
# What a text is on the screen. Captions have to fit beside or into something; helps are paragraphs; names are the same in
# all languages.
CAPTIONS = ("button", "check box", "title")
KINDS = (*CAPTIONS, "menu item", "label", "status", "message", "help", "name")
NAME = re.compile(r"[a-z][a-z0-9]*(_[a-z0-9]+)*")
# Where gettext has a name of its own for the language of a column.
GETTEXT_NAMES = {"no": "nb", "sr-Latn": "sr@latin", "zh-CN": "zh_CN", "zh-TW": "zh_TW"}


class BadTexts(Exception):
    """What is wrong with the table or a file of translations, as lines for people."""


@dataclasses.dataclass(frozen=True)
class Text:
    id: int
    name: str
    kind: str
    note: str
    en: str
    cs: str
    setup: bool = False  # whether the setup itself shows it


@dataclasses.dataclass(frozen=True)
class Column:
    code: str
    name: str
    tags: tuple

    @property
    def gettext_name(self):
        return GETTEXT_NAMES.get(self.code, self.code)


class Catalog:
    """`texts` in the order of their ids, `columns` in the order of the cells; by the code of a column `files`, the
    files of translations, and `po`, their entries by English wording."""

    def __init__(self, folder=REPO / "localization", may_lack_files=False):
        self.folder = folder
        self.texts = read_texts(folder / "texts.toml")
        self.columns = read_columns(folder / "languages.inc")
        self.files = {column.code: read_po(self.po_path(column), may_lack_files) for column in self.columns}
        self.po = {code: {entry.msgid: entry for entry in file} for code, file in self.files.items()}

    def po_path(self, column):
        return self.folder / "po" / f"{column.code}.po"

    def distinct(self):
        """The texts by wording: a wording that stands at several ids is one entry for translators. A list of lists."""
        by_wording = {}
        for text in self.texts:
            by_wording.setdefault(text.en, []).append(text)
        return list(by_wording.values())

    def translation(self, column, text):
        """What the column's file has for the text, or nothing where it was never translated."""
        entry = self.po[column.code].get(text.en)
        return entry.msgstr if entry and entry.msgstr and "fuzzy" not in entry.flags and not entry.obsolete else ""

    def reviewer(self, column):
        """Who has read all of the column as a native speaker."""
        return self.files[column.code].metadata.get("X-Reviewed-By", "")

    def cell(self, column, text):
        """The column's cell of the text: what was never translated holds the English wording."""
        return self.translation(column, text) or text.en


def read_file(path):
    try:
        return path.read_text(encoding="utf-8")
    except (OSError, UnicodeDecodeError) as error:
        raise BadTexts(f"{path.name}: {error}") from error


def read_texts(path):
    try:
        rows = tomllib.loads(read_file(path))["text"]
        texts = [Text(**row) for row in rows]
    except (tomllib.TOMLDecodeError, KeyError, TypeError) as error:
        raise BadTexts(f"{path.name}: {error}") from error
    wrong = [f"{path.name}: id {text.id}: '{field.name}' is no {field.type.__name__}" for text in texts
             for field in dataclasses.fields(Text) if not isinstance(getattr(text, field.name), field.type)]
    if wrong:
        raise BadTexts("\n".join(wrong))
    problems = []
    for number, text in enumerate(texts):
        problems += [f"id {text.id} stands where id {number} belongs"] * (text.id != number)
        problems += [f"id {text.id}: kind '{text.kind}' is none of {', '.join(KINDS)}"] * (text.kind not in KINDS)
        problems += [f"id {text.id}: '{name}' is empty" for name in ("note", "en", "cs") if not getattr(text, name).strip()]
        problems += [f"id {text.id}: '{text.name}' is no name in small letters"] * (not NAME.fullmatch(text.name))
        # Keys are compared without regard to case, which is simple, and the same everywhere, for ASCII only.
        problems += [f"id {text.id}: the English wording holds something beside ASCII"] * (not text.en.isascii())
    for first, second in itertools.combinations(texts, 2):
        problems += [f"ids {first.id} and {second.id} have the same name"] * (first.name == second.name)
        # A lookup finds the first wording only.
        problems += [f"ids {first.id} and {second.id} differ in letter case only"] * (
            first.en != second.en and first.en.lower() == second.en.lower())
    if problems:
        raise BadTexts("\n".join(f"{path.name}: {problem}" for problem in problems))
    return texts


def read_columns(path):
    names, tags = {}, {}
    for number, line in enumerate(read_file(path).splitlines(), 1):
        if not re.match(r"\s*(COLUMN|LANGUAGE)\b", line):
            continue
        row = re.fullmatch(r'(COLUMN|LANGUAGE)\("([^"]+)", "([^"]+)"\)', line)
        table = {"COLUMN": names, "LANGUAGE": tags}[row[1]] if row else {}
        if not row or row[2] in table or (table is tags and row[3] not in names):
            raise BadTexts(f"{path.name}:{number}: not a row, or one that stands here already, or of a column that does not")
        table[row[2]] = row[3]
    return [Column(code, name, tuple(tag for tag, column in tags.items() if column == code)) for code, name in names.items()]


def read_po(path, may_be_missing=False):
    if not path.exists():  # polib would take the path itself for the content of a file
        if may_be_missing:
            return polib.POFile()
        raise BadTexts(f"{path.name} is missing")
    try:
        return polib.pofile(str(path), encoding="utf-8", check_for_duplicates=True)
    except (OSError, ValueError, UnicodeDecodeError) as error:
        raise BadTexts(f"{path.name}: {error}") from error
