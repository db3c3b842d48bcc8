#!/usr/bin/env python3
"""Prints how much of the texts is translated, and the widest captions, which the dialogs must hold. docs/translating.md
keeps both tables."""
import re
import sys
import unicodedata
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
from catalog import CAPTIONS, BadTexts, Catalog  # noqa: E402

BEGIN, END = "<!-- Written by tools/texts/update.py -->", "<!-- End of what is written -->"
# The texts by their use, as the columns of the table.
PARTS = {
    "setup": lambda text: text.setup,
    "short texts": lambda text: not text.setup and text.kind != "help",
    "help texts": lambda text: not text.setup and text.kind == "help",
}


def width(wording):
    """Columns of a terminal, the nearest to a width in pixels that needs no font: 2 for the wide characters of East Asia,
    0 for what stands upon another character."""
    return sum(0 if unicodedata.category(c) in ("Mn", "Me", "Cf") else 2 if unicodedata.east_asian_width(c) in "WF" else 1
               for c in wording)


def table(heads, rows):
    lines = [heads, ["---"] * len(heads), *rows]
    return "\n".join(f"| {' | '.join(map(str, line))} |" for line in lines)


def coverage_table(catalog):
    parts = {name: [text for text in catalog.texts if belongs(text)] for name, belongs in PARTS.items()}
    heads = ["language", "column", "tags", *(f"{name} ({len(texts)})" for name, texts in parts.items()), "read by a native"]
    rows = [[column.name, f"`{column.code}`", ", ".join(column.tags),
             *(sum(bool(catalog.translation(column, text)) for text in texts) for texts in parts.values()),
             catalog.reviewer(column)] for column in catalog.columns]
    return table(heads, rows)


def widest_captions(catalog):
    """For each caption the English wording and the three widest translations, widest first, as (width, code, wording)."""
    for text in catalog.texts:
        if text.kind in CAPTIONS:
            found = [(width(catalog.translation(column, text)), column.code, catalog.translation(column, text))
                     for column in catalog.columns if column.code != "en" and catalog.translation(column, text)]
            yield text, sorted(found, key=lambda cell: (-cell[0], cell[1]))[:3]


def caption_table(catalog):
    return table(["id", "English", "its width", "the widest, with their widths"],
                 [[text.id, text.en, width(text.en), ", ".join(f"{columns} `{code}` {wording}" for columns, code, wording in found)]
                  for text, found in widest_captions(catalog)])


def insert_tables(paper, catalog):
    """The paper with both tables between its marks."""
    written = f"{BEGIN}\n{coverage_table(catalog)}\n\n### The widest captions\n\n{caption_table(catalog)}\n{END}"
    inserted, places = re.subn(f"{re.escape(BEGIN)}.*{re.escape(END)}", lambda _: written, paper, flags=re.S)
    if places != 1:
        raise BadTexts(f"docs/translating.md: the lines '{BEGIN}' and '{END}' were not found once")
    return inserted


if __name__ == "__main__":
    try:
        print(coverage_table(Catalog()), caption_table(Catalog()), sep="\n\n")
    except BadTexts as error:
        sys.exit(str(error))
