"""What holds for every cell of the translations: a table over the 81 columns."""
import difflib
import re
import sys
import tomllib
import unicodedata
from pathlib import Path

import pytest
from alphabets import WRITINGS

REPO = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(REPO / "tools" / "texts"))
from catalog import CAPTIONS, Catalog  # noqa: E402
from compile import check_syntax  # noqa: E402
from report import width  # noqa: E402
from update import main as update  # noqa: E402

CATALOG = Catalog()
COLUMNS = {column.code: column for column in CATALOG.columns}
# Punctuation and blanks that any language may have; a no-break space is one of them.
COMMON_MARKS = " ,-.:;!?()'\"’‘“”„«»–—…\u00a0\n"
# What stands in a cell as it is, whatever the language: names, formats, keys, paths.
NAMES = [r"C:\Program Files\Lumora Velquin", "Program Files", "Lumora Velquin", "Velquin", "VeraCrypt.exe", "VeraCrypt",
         "Windows", "VOXA", "DPAPI", "SHA-256", "JSON", "setup_url", "{path}", "{drive}"]
# Names that a translation may leave out or write in its own way.
LOOSE_NAMES = {"JSON", "Program Files"}
WORDS = ["skins", "F1", "V"]  # a folder, a key, a drive letter
EXCEPTIONS = tomllib.loads((REPO / "localization" / "exceptions.toml").read_text(encoding="utf-8"))
# The captions that may be no wider, in columns, than so many times the English.
WIDEST = 2.2


def cells(code):
    """(text, translation) of whatever is translated in the column."""
    found = [(text, CATALOG.translation(COLUMNS[code], text)) for text in CATALOG.texts]
    return [(text, cell) for text, cell in found if cell]


def without_names(cell):
    """The cell without names, whose endings in some languages stay, and without whole words of other alphabets."""
    cell = re.sub("|".join(rf"(?<!\w){re.escape(name)}" for name in NAMES), " ", cell)
    return re.sub("|".join(rf"\b{word}\b" for word in WORDS), " ", cell)


def report(problems):
    assert not problems, "\n" + "\n".join(problems)


def check(code, rule):
    """Asserts that `rule`, which gives what is wrong with a cell, finds nothing in the column."""
    report([f"{code}.po: text {text.id}: {problem}: {cell!r}" for text, cell in cells(code) for problem in rule(text, cell)])


def shape_problems(text, cell):
    if cell.replace(cell.strip(), "|", 1) != text.en.replace(text.en.strip(), "|", 1):
        yield "its blanks at the ends are not those of the English"
    if cell.count("\n") != text.en.count("\n"):
        yield "its line feeds are not those of the English"
    if "  " in cell:
        yield "two blanks in a row"
    if cell != unicodedata.normalize("NFC", cell):
        yield "not in NFC"
    for name in NAMES:
        if name in text.en and name not in LOOSE_NAMES and name not in cell:
            yield f"lacks {name}"
    if sorted(re.findall(r"\{[^}]*\}", cell)) != sorted(re.findall(r"\{[^}]*\}", text.en)):
        yield "its placeholders are not those of the English"


def sentences(wording, stop):
    """How many of them end in the wording, at the most: abbreviations have stops, too."""
    return len(re.findall(re.escape(stop) + (r"(?=\s|$)" if stop.isascii() else ""), wording))


def ending(wording, stop):
    """The kind of closing punctuation."""
    wording = wording.rstrip()
    kinds = {"...": "dots", "…": "dots", ":": "colon", "：": "colon", "}": "placeholder"}
    for mark, kind in kinds.items():
        if wording.endswith(mark):
            return kind
    if stop and wording.endswith(stop):
        return "stop"
    return "another stop" if wording.endswith(tuple(".。।۔։።។!?？！;،,")) else "none"


@pytest.mark.parametrize("code", COLUMNS)
def test_cells_have_the_shape_of_the_english(code):
    stop = WRITINGS[code].stop

    def rule(text, cell):
        yield from shape_problems(text, cell)
        wanted = ending(text.en, ".")
        wanted = "none" if wanted == "stop" and not stop else wanted
        if ending(cell, stop) != wanted:
            yield f"ends with {ending(cell, stop)} rather than {wanted}"
        if stop and sentences(cell, stop) < sentences(text.en, "."):
            yield f"{sentences(cell, stop)} sentences, the English has {sentences(text.en, '.')}"
        if text.kind == "name" and cell != text.en:
            yield "is a name, which stays as it is"

    check(code, rule)


@pytest.mark.parametrize("code", COLUMNS)
def test_cells_are_written_with_the_letters_of_the_language(code):
    writing = WRITINGS[code]

    def rule(_, cell):
        rest = without_names(cell)
        for c in sorted(set(rest)):
            name = unicodedata.name(c, "")
            if unicodedata.category(c)[0] in "LM":
                if not name.startswith(writing.scripts):
                    yield f"{c} ({name}) is of another script"
                elif c in writing.absent or (writing.letters and not {c, c.lower()} & set(writing.letters)):
                    yield f"{c} ({name}) is no letter of the language"
            elif c not in COMMON_MARKS + writing.marks + writing.stop:
                yield f"{c} ({name}) is no punctuation of the language"
        if writing.encoding:
            odd = [c for c in rest if not encodes(c, writing.encoding)]
            if odd:
                yield f"{''.join(odd)} is not written so in this form of the language"

    check(code, rule)


def encodes(c, encoding):
    try:
        return bool(c.encode(encoding))
    except UnicodeEncodeError:
        return False


def exception_problems(kind, found):
    """What needs a reason and has none, and reasons that nothing needs. `found` holds (column, id)."""
    listed = {(column, number) for entry in EXCEPTIONS[kind] for column in entry["columns"] for number in entry["ids"]}
    yield from (f"{code}.po: text {number} needs a reason in localization/exceptions.toml, '{kind}': "
                f"{CATALOG.translation(COLUMNS[code], CATALOG.texts[number])}" for code, number in sorted(found - listed))
    yield from (f"localization/exceptions.toml, '{kind}': {code} {number} is no longer needed"
                for code, number in sorted(listed - found))


def test_cells_equal_to_the_english_have_a_reason():
    report(list(exception_problems("equal", {
        (code, text.id) for code in COLUMNS if code != "en"
        for text, cell in cells(code) if cell == text.en and text.kind != "name"})))


def test_wide_captions_have_a_reason():
    report(list(exception_problems("wide", {
        (code, text.id) for code in COLUMNS for text, cell in cells(code)
        if text.kind in CAPTIONS and width(cell) > WIDEST * width(text.en)})))


def test_the_texts_of_the_setup_are_complete():
    report([f"{code}.po: text {text.id} is not translated: {text.en}" for code, column in COLUMNS.items()
            for text in CATALOG.texts if text.setup and not CATALOG.translation(column, text)])


def glossary(code):
    return dict(re.findall(r"^  (.+?) = (\S.*)$", CATALOG.files[code].header.partition("Glossary:")[2], re.M))


def likeness(wording, other):
    """From 0 to 1, whatever the order of the words."""
    first, second = (" ".join(sorted(text.lower().split())) for text in (wording, other))
    return difflib.SequenceMatcher(None, first, second, autojunk=False).ratio()


def test_cells_are_about_what_the_glossary_says():
    """Finds cells that were exchanged or copied, within a column and among columns."""
    buttons = {"install": 63, "repair": 64, "reinstall": 65, "uninstall": 66}
    captions = buttons | {"install folder": 68, "shortcut": 67}
    glossaries = {code: glossary(code) for code in COLUMNS}
    wordings = {code: {text.id: cell for text, cell in cells(code)} for code in COLUMNS}
    problems = []
    for code, found in glossaries.items():
        for term, number in buttons.items():
            nearest = max(buttons, key=lambda other: likeness(found[other], wordings[code][number]))
            if nearest != term:
                problems.append(f"{code}.po: text {number} reads like '{nearest}' of its glossary: {wordings[code][number]}")

        def alike(other):
            return sum(likeness(glossaries[other][term], wordings[code][number]) for term, number in captions.items())
        best = max(glossaries, key=alike)
        if alike(best) > alike(code):
            problems.append(f"{code}.po: its captions are more like the glossary of {best} than like its own")
    report(problems)


def test_no_two_columns_are_the_same():
    seen = {}
    for code in COLUMNS:
        seen.setdefault(tuple(cell for text, cell in cells(code) if text.setup), []).append(code)
    report([f"the same texts throughout: {', '.join(codes)}" for codes in seen.values() if len(codes) > 1])


def test_the_czech_texts_are_those_that_are_built_in():
    report([f"cs.po has {cell!r} for text {text.id}, the table of texts {text.cs!r}" for text, cell in cells("cs")
            if cell != text.cs])
    assert len(cells("cs")) == len(CATALOG.texts)


def test_the_table_is_whole():
    assert len(CATALOG.texts) == 200 and len(COLUMNS) == 81 and set(WRITINGS) == set(COLUMNS)
    assert " ".join(COLUMNS) == (
        "ar eu bg ca zh-CN zh-TW hr cs da nl en et fi fr gl de el he hu id it ja ko lv lt no pl pt ro ru "
        "sr-Latn sk sl es sv th tr uk vi af sq am hy as az be bn bs chr fil ka gu hi is ga kn kk km kok lo lb mk "
        "ms ml mt mi mr ne or fa pa qu gd sr ta tt te ur ug uz cy")
    assert sum(text.kind == "help" for text in CATALOG.texts) == 58
    tags = [tag for column in COLUMNS.values() for tag in column.tags]
    assert len(tags) == len(set(tags)) == 88
    # Norwegian and Quechua have their texts under another name than their tags.
    others = {"nb": "no", "nn": "no", "quz": "qu"}
    report([f"{tag} has its texts from {code}" for code, column in COLUMNS.items() for tag in column.tags
            if others.get(tag.split("-")[0], tag.split("-")[0]) != code.split("-")[0]])


def test_files_say_what_they_are():
    problems = []
    glossaries = {}
    for code, file in CATALOG.files.items():
        if ("No native speaker has reviewed it yet." in file.header) != (file.metadata["X-Reviewed-By"] == "nobody yet"):
            problems.append(f"{code}.po: its head and X-Reviewed-By do not agree on who has reviewed it")
        if not file.header.startswith(f"Lumora Velquin in {COLUMNS[code].name}\n"):
            problems.append(f"{code}.po does not begin with the name of its language")
        glossaries[code] = glossary(code)
        if file.metadata["Language"] != COLUMNS[code].gettext_name:
            problems.append(f"{code}.po says that it is in {file.metadata['Language']}")
    terms = list(glossaries["en"])
    problems += [f"{code}.po: the glossary lacks or reorders a term" for code, found in glossaries.items()
                 if list(found) != terms]
    report(problems)
    assert len(terms) >= 20


def test_gettext_accepts_the_template():
    """The files of translations the build has looked at."""
    check_syntax(CATALOG.folder / "po" / "velquin.pot")


def test_what_follows_from_the_table_is_up_to_date():
    update(["--check"])
