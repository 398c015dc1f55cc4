#!/usr/bin/python3
"""other_readers.py QUILLON-CONVERT DRAWING...: the processor time of other programs that read these
drawings, as multiples of what converting them takes, as a table in Markdown. The programs alternate,
and each counts by its quickest round; one that takes a minute is ended, and the table says "over"."""

import os
import resource
import signal
import subprocess
import sys
import tempfile
from pathlib import Path

ROUNDS = 3
LONG = 60  # seconds of processor time, after which a program is ended


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


def seconds(command: list[str]) -> tuple[float, str]:
    """Of the processor; with "fails" or "over" where the program did not come to its end."""
    with open(os.devnull, "r+b") as nowhere:
        child = subprocess.Popen(
            command,
            stdin=nowhere,
            stdout=nowhere,
            stderr=nowhere,
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_CPU, (LONG, LONG + 1)),
        )
        _, status, used = os.wait4(child.pid, 0)
    taken = used.ru_utime + used.ru_stime
    if status == 0:
        return taken, ""
    is_long = os.WIFSIGNALED(status) and os.WTERMSIG(status) in (signal.SIGXCPU, signal.SIGKILL)
    return taken, "over" if is_long else "fails"


def best_times(commands: dict[str, list[str]]) -> dict[str, tuple[float, str]]:
    best: dict[str, tuple[float, str]] = {}
    for _ in range(ROUNDS):
        for name, command in commands.items():
            if name in best and best[name][1]:
                continue
            taken = seconds(command)
            best[name] = min(best.get(name, taken), taken)
    return best


def cell_of(taken: tuple[float, str], base: float) -> str:
    multiple = f"{taken[0] / base:.1f}"
    return {"": multiple, "over": f"over {multiple}"}.get(taken[1], taken[1])


def main() -> None:
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    convert, *drawings = sys.argv[1:]
    rows: dict[str, list[str]] = {}
    with tempfile.TemporaryDirectory() as folder:
        for drawing in drawings:
            times = best_times(programs(convert, drawing, folder))
            base = next(iter(times.values()))[0]
            for name, taken in times.items():
                rows.setdefault(name, []).append(cell_of(taken, base))
    print("| | " + " | ".join(Path(drawing).stem for drawing in drawings) + " |")
    print("|---" * (len(drawings) + 1) + "|")
    for name, cells in rows.items():
        print(f"| {name} | " + " | ".join(cells) + " |")


if __name__ == "__main__":
    main()
