"""The size of the setup program: without what it carries, by the part that takes it, and its texts."""
import collections
import re
import sys
from pathlib import Path

import pefile

REPO = Path(__file__).resolve().parents[1]
sys.path[:0] = [str(REPO / "tools" / "wine"), str(REPO / "tools" / "texts")]
from catalog import Catalog  # noqa: E402
from compile import images  # noqa: E402
from figures import line  # noqa: E402
from machine import BIN  # noqa: E402

SIZE_LIMIT = 1.5 * 1024 * 1024
TEXTS_LIMIT = 2.5 * 1024 * 1024


def resource_sizes():
    """Bytes of the payloads and of all other resources."""
    payloads = others = 0
    for kind in pefile.PE(str(BIN / "VelquinSetup.exe")).DIRECTORY_ENTRY_RESOURCE.entries:
        size = sum(entry.directory.entries[0].data.struct.Size for entry in kind.directory.entries)
        if str(kind.name) == "TAVIPAYLOAD":
            payloads += size
        else:
            others += size
    return payloads, others


def bench_size():
    payloads, _ = resource_sizes()
    total = (BIN / "VelquinSetup.exe").stat().st_size
    if not payloads:
        sys.exit("VelquinSetup.exe carries no payloads: the size says nothing")
    line("VelquinSetup.exe without its payloads", (total - payloads) / 1024, SIZE_LIMIT / 1024, "KiB",
         f"({total / 1024:.0f} KiB with them)")


def bench_texts():
    """The texts as they are in the program, and what they will be when every cell is translated, if the rest of each column
    is as long, compared to the English, as what is translated of it."""
    catalog = Catalog()
    tables = images(catalog)
    if tables["kPool"] not in (BIN / "VelquinSetup.exe").read_bytes():
        sys.exit("VelquinSetup.exe does not hold the present texts")
    size = sum(map(len, tables.values()))

    def length(wordings):
        return sum(len(wording.encode()) + 1 for wording in wordings)

    english = length({text.en for text in catalog.texts})
    full = size - len(tables["kPool"]) + english
    for column in catalog.columns:
        translated = [text for text in catalog.texts if catalog.translation(column, text)]
        if column.code != "en":
            full += english * length(catalog.cell(column, text) for text in translated) / length(text.en for text in translated)
    line("the texts in VelquinSetup.exe", size / 1024, TEXTS_LIMIT / 1024, "KiB")
    line("the same when all is translated, estimated", full / 1024, TEXTS_LIMIT / 1024, "KiB")


# A section of the program in the linker's map: its name (on a line of its own when it is long), place, size, file.
MAP_ENTRY = re.compile(r"^ \.(text|rdata|data|xdata|pdata)\S*\s+0x[0-9a-f]{16}\s+0x([0-9a-f]+) (\S+)", re.MULTILINE)


def part_of(file):
    """The folder of the sources that an object of the build comes from."""
    library = re.match(r"(.+)/lib\w+\.a\(", file)
    if file.startswith("/"):
        return "the compiler's libraries"
    return library.group(1) if library else "setup"


def print_parts():
    """What each part of the program takes, from the linker's map, and its resources but the payloads."""
    content = (BIN / "VelquinSetup.exe.map").read_text(encoding="utf-8", errors="replace")
    sizes = collections.Counter()
    for _, size, file in MAP_ENTRY.findall(content.split("\nLinker script and memory map", 1)[1]):
        sizes[part_of(file)] += int(size, 16)
    if "tavi/controls" not in sizes or "setup" not in sizes:
        sys.exit("the map of VelquinSetup.exe could not be read")
    sizes["icon, manifest, version"] = resource_sizes()[1]
    for part, size in sizes.most_common():
        print(f"    {part:<30} {size / 1024:8,.0f} KiB")
