#!/usr/bin/python3
"""other_readers.py QUILLON-CONVERT DRAWING...: the processor time of other programs that read these
drawings, as multiples of what converting them takes, as a table in Markdown. The programs alternate,
and each counts by its quickest round; one that takes minutes runs once."""

import os
import subprocess
import sys
import tempfile
from pathlib import Path

ROUNDS = 3
LONG = 60.0  # seconds, after which a program is not run again


def programs(convert: str, drawing: str, folder: str) -> dict[str, list[str]]:
    script = os.path.join(folder, "out.scr")
    quillon = [convert, "--no-config", "--quiet", "--force", "--unit", "mm", "-o", script, drawing]
    # Reading whole files, it refuses tables as short as those of these drawings.
    ezdxf = (
        "import sys; from ezdxf.addons import iterdxf;"
        "sum(1 for _ in iterdxf.single_pass_modelspace(open(sys.argv[1], 'rb')))"
    )
    return {
        "`quillon-convert`, classic rules": quillon,
        "`quillon-convert`, exact rules": [*quillon, "--rules", "exact"],
        "GDAL (`ogrinfo -al`)": ["ogrinfo", "-ro", "-al", "-so", drawing],
        "dime (`dxf2vrml`)": ["dxf2vrml", drawing, "-o", os.path.join(folder, "out.wrl")],
        "ezdxf (`iterdxf`)": ["/usr/bin/python3", "-c", ezdxf, drawing],
    }


def seconds(command: list[str]) -> float | None:
    """Of the processor; None where the program fails."""
    with open(os.devnull, "w", encoding="utf-8") as nowhere:
        child = subprocess.Popen(command, stdout=nowhere, stderr=nowhere)
        _, status, used = os.wait4(child.pid, 0)
    return used.ru_utime + used.ru_stime if status == 0 else None


def best_times(commands: dict[str, list[str]]) -> dict[str, float | None]:
    best: dict[str, float | None] = {}
    for _ in range(ROUNDS):
        for name, command in commands.items():
            known = best.get(name)
            if name in best and (known is None or known > LONG):
                continue
            taken = seconds(command)
            best[name] = taken if known is None or taken is None else min(known, taken)
    return best


def main() -> None:
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    convert, *drawings = sys.argv[1:]
    rows: dict[str, list[str]] = {}
    with tempfile.TemporaryDirectory() as folder:
        for drawing in drawings:
            times = best_times(programs(convert, drawing, folder))
            base = next(iter(times.values()))
            for name, taken in times.items():
                cell = "fails" if taken is None or base is None else f"{taken / base:.1f}"
                rows.setdefault(name, []).append(cell)
    print("| | " + " | ".join(Path(drawing).stem for drawing in drawings) + " |")
    print("|---" * (len(drawings) + 1) + "|")
    for name, cells in rows.items():
        print(f"| {name} | " + " | ".join(cells) + " |")


if __name__ == "__main__":
    main()
