#!/usr/bin/env python3
"""Writes units for clang-tidy, each of which includes all sources of a folder with the same options.

Usage: tidy_units.py BUILD-FOLDER TARGET-FOLDER

The target folder gets the units and a compile_commands.json for them.
"""

import json
import pathlib
import shlex
import shutil
import sys

# What the compiler that made the list knows, and clang does not.
FOREIGN = {"-Winvalid-pch", "-fno-gnu-unique"}


def options(command):
    """The options of a compile command, without files and what only the compiler of it knows."""
    words = iter(shlex.split(command)[1:])
    kept = []
    for word in words:
        if word in ("-o", "-c", "-include"):
            next(words)
        elif word not in FOREIGN:
            kept.append(word)
    return kept


def is_program(source):
    return "_main" in source.stem


def main():
    build, target = map(pathlib.Path, sys.argv[1:])
    root = pathlib.Path(__file__).resolve().parent.parent
    units = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        source = pathlib.Path(entry["file"])
        # Files for another system cannot be checked here.
        if not source.is_relative_to(root / "src") or source.stem.endswith("_windows"):
            continue
        folder = source.relative_to(root / "src").parent
        key = (folder, tuple(options(entry["command"])), source if is_program(source) else None)
        units.setdefault(key, set()).add(source)
    shutil.rmtree(target, ignore_errors=True)
    target.mkdir()
    commands = []
    for number, ((folder, flags, _), sources) in enumerate(sorted(units.items(), key=str)):
        unit = target.resolve() / f"{'_'.join(folder.parts)}_{number}.cpp"
        lines = ["// NOLINTBEGIN(bugprone-suspicious-include)"]
        lines += [f'#include "{source}"' for source in sorted(sources)]
        unit.write_text("\n".join(lines + ["// NOLINTEND(bugprone-suspicious-include)", ""]))
        commands.append({
            "directory": str(build.resolve()),
            "file": str(unit),
            "arguments": ["c++", "-Wno-unknown-warning-option", *flags, "-c", str(unit)],
        })
    (target / "compile_commands.json").write_text(json.dumps(commands, indent=1))


if __name__ == "__main__":
    main()
