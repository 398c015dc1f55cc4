#!/usr/bin/env python3
"""set_chm_time.py FILE.chm: sets the two times that compiled help contains, that of its header and
that of its list of settings, to that of the sources (see make_zip.py), so that the same pages give
the same file."""

import struct
import sys
from pathlib import Path

from make_zip import time_of_sources

HEADER_TIME = 16
CONTENT_OFFSET = 0x58  # where the header says at which offset the files begin
SETTINGS = b"/#SYSTEM"
TIME_OF_SETTINGS = 10


def number(data: bytes, at: int) -> tuple[int, int]:
    """A number of seven bits per byte, the highest first, and what follows it."""
    value = 0
    while True:
        value = value << 7 | data[at] & 0x7F
        at += 1
        if not data[at - 1] & 0x80:
            return value, at


def settings_of(data: bytes) -> tuple[int, int]:
    """Where the settings begin and end. They are never compressed."""
    name = bytes([len(SETTINGS)]) + SETTINGS
    found = data.find(name)
    if found < 0:
        sys.exit("set_chm_time.py: the help has no settings")
    section, at = number(data, found + len(name))
    offset, at = number(data, at)
    length, at = number(data, at)
    if section != 0:
        sys.exit("set_chm_time.py: the settings are compressed")
    begin = struct.unpack_from("<Q", data, CONTENT_OFFSET)[0] + offset
    return begin, begin + length


def set_time(data: bytearray, time: int) -> None:
    struct.pack_into(">I", data, HEADER_TIME, time)
    at, end = settings_of(data)
    at += 4  # a version
    while at < end:
        code, length = struct.unpack_from("<HH", data, at)
        if code == TIME_OF_SETTINGS:
            struct.pack_into("<I", data, at + 4, time)
            return
        at += 4 + length
    sys.exit("set_chm_time.py: the settings have no time")


def main() -> None:
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    file = Path(sys.argv[1])
    data = bytearray(file.read_bytes())
    if data[:4] != b"ITSF":
        sys.exit(f"set_chm_time.py: {file} is not compiled help")
    set_time(data, time_of_sources())
    file.write_bytes(data)


if __name__ == "__main__":
    main()
