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
from catalog import BadTexts, Catalog, read_texts  # noqa: E402
from update import template, updated  # noqa: E402


def test_the_compiled_texts_are_those_of_the_files():
    catalog = Catalog()
    dumped = subprocess.run([os.environ["CATALOG_DUMP"]], capture_output=True, check=True).stdout.decode()
    wanted = {(tag, text.id): catalog.cell(column, text) for column in catalog.columns for tag in column.tags
              for text in catalog.texts}
    found = {}
    for line in dumped.splitlines():
        tag, number, wording = line.split("\t")
        found[tag, int(number)] = wording
    assert len(found) == 88 * 200
    assert found == wanted


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
    ("[[text]]\nid = ", "Invalid value"),
    ("", "'text'"),
])
def test_a_faulty_table_is_refused(tmp_path, content, error):
    (tmp_path / "texts.toml").write_text(content, encoding="utf-8")
    with pytest.raises(BadTexts, match="texts.toml: ") as raised:
        read_texts(tmp_path / "texts.toml")
    assert error in str(raised.value)


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
    assert twice.returncode == 1 and twice.stderr.startswith("da.po: ")
    broken = changed(lambda text: "msgid Browse")
    assert broken.returncode == 1 and broken.stderr.startswith("da.po:1: ")


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


def test_an_update_keeps_translations(tmp_path):
    catalog = Catalog()
    danish = next(column for column in catalog.columns if column.code == "da")
    path = tmp_path / "da.po"
    old = polib.POFile()
    old.header = "By hand."
    old.metadata = {"Language": "da", "X-Reviewed-By": "Ane"}
    old.extend([polib.POEntry(msgid="Gone", msgstr="V\u00e6k", tcomment="why"), polib.POEntry(msgid="Never", msgstr=""),
                polib.POEntry(msgid="Close", msgstr="Luk", flags=["fuzzy"], tcomment="sure?")])
    path.write_text(str(old), encoding="utf-8")
    new = updated(danish, path, template(catalog), {"Save": "Gem"})
    by_wording = {entry.msgid: entry for entry in new}
    assert (new.header, new.metadata["X-Reviewed-By"], new.metadata["MIME-Version"]) == ("By hand.", "Ane", "1.0")
    assert (by_wording["Close"].msgstr, by_wording["Close"].tcomment, "fuzzy" in by_wording["Close"].flags) == (
        "Luk", "sure?", True)
    assert by_wording["Save"].msgstr == "Gem" and by_wording["Install"].msgstr == ""
    assert by_wording["Gone"].obsolete and by_wording["Gone"].msgstr == "V\u00e6k" and "Never" not in by_wording
    assert "Text 56, 71" in by_wording["Browse"].comment
