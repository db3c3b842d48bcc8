#!/usr/bin/env python3
"""The built programs are what a program with administrator rights has to be: imports, flags, manifest, resources.

usage: check_executables.py BUILD
"""
import bisect
import re
import struct
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

import pefile

from sources import REPO, report

sys.path[:0] = [str(REPO / "tools" / "release"), str(REPO / "tools" / "texts")]
from catalog import Catalog  # noqa: E402
from compile import images  # noqa: E402
from settings import product_names  # noqa: E402

# DLLs that Windows pins (KnownDLLs of Windows 10 and 11): a planted file of that name is never loaded.
PINNED = {"advapi32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll", "shell32.dll",
          "shlwapi.dll", "user32.dll", "ws2_32.dll"}
HIGH_ENTROPY_VA, DYNAMIC_BASE, NX_COMPAT = 0x20, 0x40, 0x100
SEARCH_SYSTEM32 = 0x800
AMD64, GUI = 0x8664, 2
TRUST = "{urn:schemas-microsoft-com:asm.v3}"
ICON_SIZES = [16, 20, 24, 32, 40, 48, 64, 128, 256]


def resources(pe):
    """Maps (type, id) to the bytes of each resource; types by name or number."""
    found = {}
    for kind in pe.DIRECTORY_ENTRY_RESOURCE.entries:
        for entry in kind.directory.entries:
            data = entry.directory.entries[0].data.struct
            found[str(kind.name or kind.id), entry.id] = pe.get_data(data.OffsetToData, data.Size)
    return found


def check_image(pe):
    if pe.FILE_HEADER.Machine != AMD64 or pe.OPTIONAL_HEADER.Subsystem != GUI:
        yield "is no 64-bit GUI program"
    flags = pe.OPTIONAL_HEADER.DllCharacteristics
    if flags & (HIGH_ENTROPY_VA | DYNAMIC_BASE | NX_COMPAT) != HIGH_ENTROPY_VA | DYNAMIC_BASE | NX_COMPAT:
        yield f"lacks high-entropy ASLR or DEP (flags {flags:#x})"
    if not hasattr(pe, "DIRECTORY_ENTRY_BASERELOC"):
        yield "has no relocations"
    if pe.OPTIONAL_HEADER.CheckSum != pe.generate_checksum():
        yield "has a wrong checksum"
    if pe.FILE_HEADER.TimeDateStamp != 0:
        yield "carries the time of its build, so no two builds are alike"
    for section in pe.sections:
        if section.IMAGE_SCN_MEM_EXECUTE and section.IMAGE_SCN_MEM_WRITE:
            yield f"section {section.Name} can be written and executed"
    for entry in pe.DIRECTORY_ENTRY_IMPORT:
        if entry.dll.decode().lower() not in PINNED:
            yield f"imports {entry.dll.decode()}, which Windows does not pin"
    if hasattr(pe, "DIRECTORY_ENTRY_DELAY_IMPORT"):
        yield "has delay-loaded imports"


def check_load_config(pe):
    if not hasattr(pe, "DIRECTORY_ENTRY_LOAD_CONFIG"):
        yield "has no load configuration"
        return
    directory = pe.OPTIONAL_HEADER.DATA_DIRECTORY[10]
    config = bytearray(pe.get_data(directory.VirtualAddress, directory.Size))
    # DependentLoadFlags stand at 0x4E; some headers still call them reserved.
    flags = struct.unpack_from("<H", config, 0x4E)[0]
    if flags != SEARCH_SYSTEM32:
        yield f"DependentLoadFlags are {flags:#x}"
    if struct.unpack_from("<I", config)[0] != directory.Size:
        yield "the load configuration is not as long as it says"
    config[0:4], config[0x4E:0x50] = bytes(4), bytes(2)
    if any(config):
        yield "the load configuration says more than was meant"


def check_manifest(manifest, level, with_load_from):
    root = ElementTree.fromstring(manifest)
    texts = {element.tag.rsplit("}", 1)[-1]: (element.text or "").strip() for element in root.iter()}
    levels = [e.get("level") for e in root.iter(TRUST + "requestedExecutionLevel")]
    if levels != [level]:
        yield f"asks for {levels} instead of {level}"
    for name, value in (("dpiAwareness", "PerMonitorV2"), ("longPathAware", "true"), ("activeCodePage", "UTF-8")):
        if texts.get(name) != value:
            yield f"manifest: {name} is {texts.get(name)}"
    if not any(e.tag.endswith("}supportedOS") for e in root.iter()):
        yield "manifest: no supportedOS"
    if any("Common-Controls" in (e.get("name") or "") for e in root.iter()):
        yield "manifest: asks for comctl32"
    loaded = {e.get("name"): e.get("loadFrom") for e in root.iter() if e.tag.endswith("}file")}
    if with_load_from and (len(loaded) < 10 or not {"version.dll", "uxtheme.dll", "msi.dll"} <= set(loaded)):
        yield "manifest: hardly any loadFrom entries"
    for name, origin in loaded.items():
        if origin != "%SystemRoot%\\system32\\":
            yield f"manifest: {name} is loaded from {origin}"


def check_version(pe, settings, file):
    table = pe.FileInfo[0]
    strings = {k.decode(): v.decode() for block in table if hasattr(block, "StringTable")
               for entries in block.StringTable for k, v in entries.entries.items()}
    wanted = {"ProductName": settings["PRODUCT_NAME"], "FileVersion": settings["PRODUCT_VERSION"],
              "ProductVersion": settings["PRODUCT_VERSION"], "CompanyName": settings["PRODUCT_PUBLISHER"],
              "OriginalFilename": file}
    for name, value in wanted.items():
        if strings.get(name) != value:
            yield f"version resource: {name} is {strings.get(name)}"
    fixed = pe.VS_FIXEDFILEINFO[0]
    number = (fixed.FileVersionMS >> 16, fixed.FileVersionMS & 0xFFFF, fixed.FileVersionLS >> 16)
    if ".".join(map(str, number)) != settings["PRODUCT_VERSION"]:
        yield f"version resource: the number is {number}"


def check_icons(found):
    group = found.get(("14", 1))
    if group is None:
        yield "has no icon resource 1"
        return
    count = struct.unpack_from("<H", group, 4)[0]
    sizes = sorted(group[6 + 14 * i] or 256 for i in range(count))
    if sizes != ICON_SIZES:
        yield f"icon sizes are {sizes}"


def check_payloads(found, build):
    rows = re.findall(r'^PAYLOAD\((\d+), "[^"]+", "([^"]+)"\)', (REPO / "setup/payload_rows.inc").read_text(), re.MULTILINE)
    present = {id_ for kind, id_ in found if kind == "TAVIPAYLOAD"}
    if present != {int(id_) for id_, _ in rows} or present != set(range(3001, 3014)):
        yield f"payloads are {sorted(present)}"
    folders = [build / "installer", build / "resources", REPO / "resources" / "skins"]
    for id_, file in rows:
        source = next((folder / file for folder in folders if (folder / file).exists()), None)
        if source is None or found.get(("TAVIPAYLOAD", int(id_))) != source.read_bytes():
            yield f"payload {id_} is not the present {file}"


def check_texts(pe):
    """The compiled texts are in the program once, as they are in their files, and nothing in them is relocated."""
    relocated = sorted(entry.rva for block in pe.DIRECTORY_ENTRY_BASERELOC for entry in block.entries if entry.type)
    memory = pe.get_memory_mapped_image()
    for name, image in images(Catalog()).items():
        places = [match.start() for match in re.finditer(re.escape(image), memory)]
        if len(places) != 1:
            yield f"the present {name} is in it {len(places)} times"
        elif bisect.bisect_left(relocated, places[0]) != bisect.bisect_left(relocated, places[0] + len(image)):
            yield f"{name} has relocations"


def main(build):
    build = Path(build)
    settings = product_names(REPO)
    problems = []
    for file, level in (("VelquinSetup.exe", "requireAdministrator"), ("Velquin.exe", "asInvoker")):
        pe = pefile.PE(str(build / "bin" / file))
        found = resources(pe)
        is_setup = file == "VelquinSetup.exe"
        checks = [check_image(pe), check_manifest(found["24", 1], level, is_setup),
                  check_version(pe, settings, file), check_icons(found), check_texts(pe)]
        if is_setup:
            checks += [check_load_config(pe), check_payloads(found, build)]
        problems += [f"{file}: {problem}" for check in checks for problem in check]
    return report(problems, "executables")


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
