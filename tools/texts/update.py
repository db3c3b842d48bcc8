#!/usr/bin/env python3
"""Brings what follows from the table of texts up to date: the template and the files of translations, which keep what is
translated, and the coverage in docs/translating.md. With --check it changes nothing and fails when there is something to
bring up to date."""
import datetime
import re
import sys
from pathlib import Path

import polib

sys.path.insert(0, str(Path(__file__).resolve().parent))
from catalog import REPO, BadTexts, Catalog  # noqa: E402
from report import insert_tables  # noqa: E402

TEMPLATE_HEADER = """Lumora Velquin: the texts that people see
See docs/translating.md."""
NEW_HEADER = """Lumora Velquin in {name}

How it was translated: not yet.
No native speaker has reviewed it yet.

"""
# What the file says of itself; msgfmt --check wants most of it.
METADATA = {
    "Project-Id-Version": "Lumora Velquin",
    "PO-Revision-Date": "2026-11-21 12:00+0000",
    "Last-Translator": "nobody yet",
    "Language-Team": "none",
    "Language": "",
    "MIME-Version": "1.0",
    "Content-Type": "text/plain; charset=UTF-8",
    "Content-Transfer-Encoding": "8bit",
    # Who, speaking the language natively, has read all of it.
    "X-Reviewed-By": "nobody yet",
}


def entry_for(texts):
    """The template's entry of one wording, which stands at all the ids of `texts`."""
    ids = ", ".join(str(text.id) for text in texts)
    comment = f"Text {ids} ({texts[0].kind}). " + " ".join(dict.fromkeys(text.note for text in texts))
    return polib.POEntry(msgid=texts[0].en, comment=comment, flags=[] if "{" not in texts[0].en else ["python-brace-format"])


def template(catalog):
    pot = polib.POFile(wrapwidth=120)
    pot.header = TEMPLATE_HEADER
    pot.metadata = METADATA | {"Language": "en"}
    pot.extend(entry_for(texts) for texts in catalog.distinct())
    return pot


def new_header(catalog, column):
    """With the terms of the glossary, which are those of the English file, left to be translated."""
    glossary = catalog.files["en"].header.partition("Glossary:")
    return NEW_HEADER.format(name=column.name) + glossary[1] + re.sub(r"(?<= =) .*", "", glossary[2])


def updated(catalog, column, pot, built_in):
    """The column's file with the template's entries, their order and comments. Translations are kept; one whose wording is
    gone stays at the end as obsolete. `built_in` gives translations for entries that have none."""
    old = catalog.files[column.code]
    new = polib.POFile(wrapwidth=120)
    new.header = old.header or new_header(catalog, column)
    new.metadata = METADATA | {"Language": column.gettext_name, "PO-Revision-Date": f"{datetime.date.today()} 12:00+0000"}
    new.metadata |= old.metadata
    kept = {entry.msgid: entry for entry in old}
    for entry in pot:
        before = kept.pop(entry.msgid, polib.POEntry(msgid=entry.msgid))
        flags = [flag for flag in before.flags if flag == "fuzzy"] + entry.flags
        new.append(polib.POEntry(msgid=entry.msgid, msgstr=before.msgstr or built_in.get(entry.msgid, ""), flags=flags,
                                 comment=entry.comment, tcomment=before.tcomment))
    new.extend(polib.POEntry(msgid=entry.msgid, msgstr=entry.msgstr, flags=entry.flags, tcomment=entry.tcomment,
                             obsolete=True) for entry in kept.values() if entry.msgstr)
    return new


def outdated(catalog, write):
    """Names what is not up to date, and writes it when asked to."""
    pot = template(catalog)
    names = {text.en: text.en for text in catalog.texts if text.kind == "name"}
    built_in = {"en": {text.en: text.en for text in catalog.texts}, "cs": {text.en: text.cs for text in catalog.texts}}
    wanted = {catalog.folder / "po" / "velquin.pot": pot}
    for column in catalog.columns:
        path = catalog.po_path(column)
        wanted[path] = updated(catalog, column, pot, built_in.get(column.code, names))
    for path, content in wanted.items():
        text = str(content) + "\n"
        if not path.exists() or path.read_text(encoding="utf-8") != text:
            yield path
            if write:
                path.write_text(text, encoding="utf-8")


def outdated_paper(catalog, paper, write):
    old = paper.read_text(encoding="utf-8")
    new = insert_tables(old, catalog)
    if new != old:
        yield paper
        if write:
            paper.write_text(new, encoding="utf-8")


def main(arguments, folder=REPO / "localization", paper=REPO / "docs" / "translating.md"):
    if arguments not in ([], ["--check"]):
        sys.exit(__doc__)
    check = bool(arguments)
    try:
        found = list(outdated(Catalog(folder, may_lack_files=True), not check))
        found += outdated_paper(Catalog(folder, may_lack_files=check), paper, not check)
    except BadTexts as error:
        sys.exit(str(error))
    for path in found:
        print(f"{path.name}: {'is not up to date' if check else 'brought up to date'}")
    if check and found:
        sys.exit("run: ./dev exec tools/texts/update.py")


if __name__ == "__main__":
    main(sys.argv[1:])
