#!/usr/bin/env python3
"""fill_manifests.py VERSION RELEASE-FOLDER OUT-FOLDER: makes the manifests for package managers from
the templates (*.in) beside this program: with the version, the day of the sources, the address of
the release, and the sums of the files in RELEASE-FOLDER that they download.

A template has words between @: VERSION, DATE, ADDRESS, or SHA256 with a file of the release, such as
@SHA256:quillon-VERSION.tar.gz@; a sum in capitals is SHA256_UPPER. VERSION in the name of a file
is replaced too."""

import hashlib
import re
import sys
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "tools"))
sys.dont_write_bytecode = True
from make_zip import time_of_sources  # noqa: E402

ADDRESS = "https://quillon.example/releases"
MANAGERS = ("winget", "scoop", "homebrew", "flatpak")
PLACE = re.compile(r"@([A-Z0-9_]+)(?::([^@\s]+))?@")


def sum_of(folder: Path, name: str) -> str:
    file = folder / name
    if not file.is_file():
        sys.exit(f"fill_manifests.py: {folder} has no {name}")
    return hashlib.sha256(file.read_bytes()).hexdigest()


def fill(template: Path, version: str, release: Path) -> str:
    def value(match: re.Match[str]) -> str:
        word, name = match.group(1), (match.group(2) or "").replace("VERSION", version)
        if word == "VERSION":
            return version
        if word == "DATE":
            return time.strftime("%Y-%m-%d", time.gmtime(time_of_sources()))
        if word == "ADDRESS":
            return f"{ADDRESS}/{version}"
        if word == "SHA256":
            return sum_of(release, name)
        if word == "SHA256_UPPER":
            return sum_of(release, name).upper()
        sys.exit(f"fill_manifests.py: {template} asks for an unknown {word}")

    return PLACE.sub(value, template.read_text(encoding="utf-8"))


def main() -> None:
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    version, release, out = sys.argv[1], Path(sys.argv[2]), Path(sys.argv[3])
    for manager in MANAGERS:
        templates = sorted((HERE / manager).glob("*.in"))
        if not templates:
            sys.exit(f"fill_manifests.py: no templates for {manager}")
        (out / manager).mkdir(parents=True, exist_ok=True)
        for template in templates:
            text = fill(template, version, release)
            (out / manager / template.stem).write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
