"""The tools that read the texts and compile them."""
import os
import shutil
import subprocess
import sys
from pathlib import Path

import polib
import pytest

REPO = Path(__file__).resolve().parents[2]
TOOLS = REPO / "tools" / "texts"
sys.path.insert(0, str(TOOLS))
from catalog import BadTexts, Catalog, read_columns, read_texts  # noqa: E402
from compile import ranges  # noqa: E402
from update import main as update  # noqa: E402  # noqa: E402


def test_the_compiled_texts_are_those_of_the_files():
    catalog = Catalog()
    dumped = subprocess.run([os.environ["CATALOG_DUMP"]], capture_output=True, check=True).stdout.decode()
    wanted = {(tag, text.id): catalog.cell(column, text) for column in catalog.columns for tag in column.tags
              for text in catalog.texts}
    found = {}
    for record in dumped.split("\0")[:-1]:
        tag, number, wording = record.split("\t")
        found[tag, int(number)] = wording
    assert len(found) > 10000 and found == wanted


def texts(*rows):
    defaults = {"kind": "label", "note": "Somewhere.", "cs": "Text"}
    return "".join("[[text]]\n" + "".join(f"{key} = {value!r}\n" for key, value in (defaults | row).items()) for row in rows)


@pytest.mark.parametrize("content,error", [
    (texts({"id": 0, "name": "one", "en": "One"}, {"id": 2, "name": "two", "en": "Two"}), "id 2 stands where id 1 belongs"),
    (texts({"id": 0, "name": "one", "en": "One", "kind": "noise"}), "id 0: kind 'noise' is none of button,"),
    (texts({"id": 0, "name": "one", "en": "One", "cs": " "}), "id 0: 'cs' is empty"),
    (texts({"id": 0, "name": "One", "en": "One"}), "id 0: 'One' is no name"),
    (texts({"id": 0, "name": "one", "en": "Öne"}), "id 0: the English wording holds something beside ASCII"),
    (texts({"id": 0, "name": "one", "en": "One"}, {"id": 1, "name": "one", "en": "Two"}), "ids 0 and 1 have the same name"),
    (texts({"id": 0, "name": "one", "en": "One"}, {"id": 1, "name": "two", "en": "ONE"}), "ids 0 and 1 differ in letter case"),
    (texts({"id": 0, "name": "one"}), "missing 1 required positional argument: 'en'"),
    (texts({"id": 0, "name": "one", "en": "One", "de": "Eins"}), "unexpected keyword argument 'de'"),
    (texts({"id": 0, "name": "one", "en": 5}), "id 0: 'en' is no str"),
    ("[[text]]\nid = ", "Invalid value"),
    ("", "'text'"),
])
def test_a_faulty_table_is_refused(tmp_path, content, error):
    (tmp_path / "texts.toml").write_text(content, encoding="utf-8")
    with pytest.raises(BadTexts, match="texts.toml: ") as raised:
        read_texts(tmp_path / "texts.toml")
    assert error in str(raised.value)


@pytest.mark.parametrize("row", ['COLUMN("xx",  "Name")', 'COLUMN("xx")', 'COLUMN("da", "Danish")', 'LANGUAGE("da-DK", "da")',
                                 'LANGUAGE("xx-XX", "xx")', 'LANGUAGE("da-XX","da")'])
def test_a_faulty_list_of_languages_is_refused(tmp_path, row):
    whole = (REPO / "localization" / "languages.inc").read_text(encoding="utf-8")
    (tmp_path / "languages.inc").write_text(whole + row + "\n", encoding="utf-8")
    with pytest.raises(BadTexts, match=rf"languages.inc:{len(whole.splitlines()) + 1}: not a row"):
        read_columns(tmp_path / "languages.inc")


@pytest.fixture
def changed(tmp_path):
    """A copy of the texts, with a function that changes the Danish file and compiles."""
    folder = tmp_path / "localization"
    shutil.copytree(REPO / "localization", folder)

    def compile_with(change):
        path = folder / "po" / "da.po"
        path.write_text(change(path.read_text(encoding="utf-8")), encoding="utf-8")
        return subprocess.run([sys.executable, str(TOOLS / "compile.py"), str(folder), str(tmp_path / "out")],
                              capture_output=True, text=True)

    compile_with.out = tmp_path / "out" / "catalog_data.cpp"
    return compile_with


def test_the_build_names_what_is_not_translated_or_not_readable(changed):
    whole = changed(lambda text: text)
    assert (whole.returncode, whole.stderr) == (0, "") and "of the setup" not in whole.stdout
    entry = 'msgid "Browse"\nmsgstr "'
    missing = changed(lambda text: text.replace(entry, "#, fuzzy\n" + entry))
    assert missing.returncode == 0 and "texts: of the setup: 71 not translated yet in da\n" in missing.stdout
    twice = changed(lambda text: text + '\nmsgid "Browse"\nmsgstr "Kig"\n')
    assert twice.returncode == 1 and twice.stderr.startswith("error: da.po: ")
    warned = changed(lambda text: text.replace('"Language-Team: none\\n"\n', ""))
    assert warned.returncode == 1 and warned.stderr.startswith("error: da.po:")
    broken = changed(lambda text: "msgid Browse")
    assert broken.returncode == 1 and broken.stderr.startswith("error: da.po:1: ")


def test_whatever_a_text_holds_is_the_same_in_the_program(changed):
    nasty = r'"Q\" ??/ \\ \\0 1\n' + "\u00e5\U0001F600" + '"'
    assert changed(lambda text: text.replace('msgid "Browse"\nmsgstr "', f'msgid "Browse"\nmsgstr {nasty}\n"')).returncode == 0
    source = changed.out.with_name("print.cpp")
    source.write_text('#include "catalog_data.cpp"\n#include <cstdio>\nint main() {\n'
                      "std::printf(\"%s\", velquin::catalog_data::kPool + velquin::catalog_data::kCells[8][56]);}\n")
    header = changed.out.parent / "localization"
    header.mkdir()
    shutil.copy(changed.out.with_name("text_ids.h"), header)
    subprocess.run(["g++", "-std=c++23", f"-I{changed.out.parent}", f"-I{REPO}", str(source), "-o", str(source.with_suffix(""))],
                   check=True)
    printed = subprocess.run([str(source.with_suffix(""))], capture_output=True, check=True).stdout.decode()
    assert printed.startswith('Q" ??/ \\ \\0 1\n\u00e5\U0001F600')


def test_ids_are_gathered_in_runs():
    assert (ranges([1, 2, 3, 7, 9, 10]), ranges([5]), ranges([])) == ("1-3, 7, 9-10", "5", "")


def test_an_update_keeps_translations_and_makes_what_is_missing(tmp_path):
    folder, paper = tmp_path / "localization", tmp_path / "paper.md"
    shutil.copytree(REPO / "localization", folder)
    shutil.copy(REPO / "docs" / "translating.md", paper)
    path = folder / "po" / "da.po"
    old = polib.pofile(str(path))
    by_wording = {entry.msgid: entry for entry in old}
    by_wording["Close"].flags, by_wording["Close"].tcomment = ["fuzzy"], "sure?"
    gone = polib.POEntry(msgid="Gone", msgstr="V\u00e6k", tcomment="why", flags=["fuzzy"])
    old.extend([gone, polib.POEntry(msgid="Never", msgstr="")])
    old.remove(by_wording["SHA-256"])
    old.remove(by_wording["Save"])
    old.metadata["X-Reviewed-By"] = "Ane"
    path.write_text(str(old), encoding="utf-8")
    (folder / "languages.inc").open("a", encoding="utf-8").write('COLUMN("eo", "Esperanto")\nLANGUAGE("eo", "eo")\n')
    before = path.read_bytes()
    with pytest.raises(SystemExit, match="run: "):
        update(["--check"], folder, paper)
    assert path.read_bytes() == before and not (folder / "po" / "eo.po").exists()

    update([], folder, paper)
    update(["--check"], folder, paper)
    new = polib.pofile(str(path))
    by_wording = {entry.msgid: entry for entry in new}
    assert (new.header, new.metadata["X-Reviewed-By"]) == (old.header, "Ane")
    close, gone = by_wording["Close"], by_wording["Gone"]
    assert (close.msgstr, close.tcomment, close.flags) == ("Luk", "sure?", ["fuzzy"])
    assert (gone.obsolete, gone.msgstr, gone.flags, gone.tcomment) == (True, "V\u00e6k", ["fuzzy"], "why")
    assert "Never" not in by_wording
    assert (by_wording["SHA-256"].msgstr, by_wording["Save"].msgstr) == ("SHA-256", "")
    assert "Text 56, 71" in by_wording["Browse"].comment
    made = (folder / "po" / "eo.po").read_text(encoding="utf-8")
    assert made.startswith("# Lumora Velquin in Esperanto\n") and "#   drive letter =\n" in made
    row = next(line for line in paper.read_text(encoding="utf-8").splitlines() if line.startswith("| Danish "))
    assert row.split("|")[4:8] == [" 30 ", " 4 ", " 0 ", " Ane "]

    paper.write_text("no place for tables", encoding="utf-8")
    with pytest.raises(SystemExit, match="were not found"):
        update([], folder, paper)
    path.unlink()
    compiled = subprocess.run([sys.executable, str(TOOLS / "compile.py"), str(folder), str(tmp_path)], capture_output=True, text=True)
    assert (compiled.returncode, compiled.stderr) == (1, "error: da.po is missing\n")
