#!/usr/bin/env python3
"""Enters the load configuration of a program file into its header.

The linker keeps the structure in a section ".loadcfg" of its own but leaves the header's directory entry empty. This
points the entry at the section and renews the file's checksum. Running it again changes nothing.
"""
import struct
import sys

import pefile

LOAD_CONFIG = pefile.DIRECTORY_ENTRY["IMAGE_DIRECTORY_ENTRY_LOAD_CONFIG"]


def main(path):
    pe = pefile.PE(path, fast_load=True)
    sections = [s for s in pe.sections if s.Name.rstrip(b"\0") == b".loadcfg"]
    if len(sections) != 1:
        sys.exit(f"{path}: {len(sections)} sections named .loadcfg, one is needed")
    (size,) = struct.unpack("<I", sections[0].get_data(length=4))
    if not 0x50 <= size <= sections[0].Misc_VirtualSize:
        sys.exit(f"{path}: a load configuration of {size} bytes makes no sense")
    entry = pe.OPTIONAL_HEADER.DATA_DIRECTORY[LOAD_CONFIG]
    entry.VirtualAddress = sections[0].VirtualAddress
    entry.Size = size
    pe.OPTIONAL_HEADER.CheckSum = pe.generate_checksum()
    data = pe.write()
    pe.close()
    with open(path, "wb") as file:
        file.write(data)


if __name__ == "__main__":
    main(sys.argv[1])
