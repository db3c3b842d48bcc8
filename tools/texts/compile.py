#!/usr/bin/env python3
"""compile.py LOCALIZATION OUT: writes the texts and their translations as C++, OUT/catalog_data.cpp and OUT/text_ids.h, as
localization/catalog_data.h declares them, and names the texts that are not translated into all languages."""
import struct
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
from catalog import BadTexts, Catalog  # noqa: E402


class Pool:
    """Every wording once, as UTF-8 with a zero byte behind it."""

    def __init__(self):
        self.bytes = bytearray()
        self.places = {}

    def place(self, wording):
        if wording not in self.places:
            self.places[wording] = len(self.bytes)
            self.bytes += wording.encode("utf-8") + b"\0"
        return self.places[wording]


def literal(wording):
    """The wording as a string literal of C++, one that ends with a zero byte of its own."""
    escaped = wording.replace("\\", r"\\").replace('"', r"\"").replace("\n", r"\n")
    return f'"{escaped}\\0"'


def tables(catalog):
    """The three tables: the pool; built-in rows (English, Czech); cells by column."""
    pool = Pool()
    built_in = [(pool.place(text.en), pool.place(text.cs)) for text in catalog.texts]
    cells = [[pool.place(catalog.cell(column, text)) for text in catalog.texts] for column in catalog.columns]
    return pool, built_in, cells


def images(catalog):
    """The tables as the bytes that they are in the program, by their names."""
    pool, built_in, cells = tables(catalog)
    return {"kPool": bytes(pool.bytes)} | {
        name: b"".join(struct.pack(f"<{len(row)}I", *row) for row in rows) for name, rows in (("kBuiltIn", built_in), ("kCells", cells))}


def data_source(catalog):
    pool, built_in, cells = tables(catalog)
    lines = ["// Written by tools/texts/compile.py.", '#include "localization/catalog_data.h"', "",
             "namespace velquin::catalog_data {", "", "const char kPool[] ="]
    lines += [f"    {literal(wording)}" for wording in pool.places]
    lines += ["    ;", "const BuiltInText kBuiltIn[kTextCount] = {"]
    lines += [f"    {{{english}, {czech}}}," for english, czech in built_in]
    lines += ["};", "const std::uint32_t kCells[kColumnCount][kTextCount] = {"]
    lines += [f"    {{{', '.join(map(str, column))}}}," for column in cells]
    return "\n".join([*lines, "};", "", "}  // namespace velquin::catalog_data", ""])


def names_source(catalog):
    lines = ["// The names of the texts. Written by tools/texts/compile.py.", "#pragma once", "", "namespace velquin {", "",
             f"inline constexpr int kTextCount = {len(catalog.texts)};",
             f"inline constexpr int kColumnCount = {len(catalog.columns)};", "", "namespace text {", ""]
    for text in catalog.texts:
        lines.append(f"inline constexpr int k{text.name.title().replace('_', '')} = {text.id};")
    return "\n".join([*lines, "", "}  // namespace text", "}  // namespace velquin", ""])


def print_untranslated(catalog):
    """Names the texts that lack a translation, those that lack it in the same languages in one line."""
    lacking = {}
    for text in catalog.texts:
        codes = tuple(column.code for column in catalog.columns if not catalog.translation(column, text))
        if codes:
            lacking.setdefault((text.setup, codes), []).append(text.id)
    for (is_setup, codes), ids in lacking.items():
        others = [column.code for column in catalog.columns if column.code not in codes]
        names = f"all but {', '.join(others)}" if len(others) < len(codes) else ", ".join(codes)
        print(f"texts: {'of the setup: ' if is_setup else ''}{ranges(ids)} not translated yet in {names}")


def ranges(ids):
    """1, 2, 3, 7 as "1-3, 7"."""
    runs = []
    for number in ids:
        if runs and runs[-1][1] == number - 1:
            runs[-1][1] = number
        else:
            runs.append([number, number])
    return ", ".join(f"{first}-{last}" if last > first else str(first) for first, last in runs)


def check_syntax(path):
    """polib reads over much of what is wrong in a file; gettext's own compiler does not, and its warnings count, too."""
    try:
        run = subprocess.run(["msgfmt", "--check", "--output-file=/dev/null", path.name], cwd=path.parent,
                             capture_output=True, text=True)
    except OSError as error:
        raise BadTexts(f"msgfmt: {error}") from error
    if run.returncode or run.stderr:
        raise BadTexts(run.stderr.strip() or f"{path.name}: msgfmt ended with {run.returncode}")


def main(localization, out):
    try:
        catalog = Catalog(Path(localization))
        for column in catalog.columns:
            check_syntax(catalog.po_path(column))
    except BadTexts as error:
        # As a compiler would say it, so that it stands out among what a build prints.
        sys.exit("\n".join(f"error: {line}" for line in str(error).splitlines()))
    out = Path(out)
    out.mkdir(parents=True, exist_ok=True)
    for name, source in (("catalog_data.cpp", data_source(catalog)), ("text_ids.h", names_source(catalog))):
        # A new translation leaves the names as they are, and whatever uses them need not be compiled again.
        if not (out / name).exists() or (out / name).read_text(encoding="utf-8") != source:
            (out / name).write_text(source, encoding="utf-8")
    print_untranslated(catalog)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
