#!/usr/bin/env python3
"""make_zip.py ARCHIVE FOLDER [NAME]: packs a folder, under another name if given. The same files give
the same archive: names are sorted, and all times are that of the last commit, or of
SOURCE_DATE_EPOCH."""

import os
import subprocess
import sys
import time
import zipfile
from pathlib import Path


def time_of_sources() -> int:
    """Seconds since 1970; a checkout without its history counts as of 1980, the earliest time."""
    told = os.environ.get("SOURCE_DATE_EPOCH")
    if not told:
        log = ["git", "log", "-1", "--format=%ct"]
        here = Path(__file__).parent
        told = subprocess.run(log, cwd=here, capture_output=True, text=True, check=False).stdout
    earliest = 315532800
    return max(earliest, int(told or 0))


def pack(archive: Path, folder: Path, name: str) -> None:
    date = time.gmtime(time_of_sources())[:6]
    files = sorted(path for path in folder.rglob("*") if path.is_file())
    with zipfile.ZipFile(archive, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as out:
        for path in files:
            entry = zipfile.ZipInfo(f"{name}/{path.relative_to(folder).as_posix()}", date)
            entry.compress_type = zipfile.ZIP_DEFLATED
            mode = 0o755 if os.access(path, os.X_OK) else 0o644
            entry.external_attr = (0o100000 | mode) << 16
            out.writestr(entry, path.read_bytes())


def main() -> None:
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    archive, folder = Path(sys.argv[1]), Path(sys.argv[2])
    if not folder.is_dir():
        sys.exit(f"make_zip.py: {folder} is not a folder")
    pack(archive, folder, sys.argv[3] if len(sys.argv) == 4 else folder.name)


if __name__ == "__main__":
    main()
