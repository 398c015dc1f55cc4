#!/usr/bin/env python3
"""Runs the commands of README.md and docs/, as they are there, with the programs that were built, and
compares the tables of options with the programs' help.

Usage: run_commands.py CHECKOUT QUILLON-CONVERT QUILLON

Each block of commands runs in a folder of its own, which has examples/, and the drawings and files
that the pages take as given. Fails when a command does, or a file is missing that a command or the
text beside it says is written.
"""
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

from markdown import Page
from option_tables import option_problems

# Commands that are not run, by how they begin, and why.
NOT_RUN = {
    "./test": "runs this test itself",
    "./quillon --web": "needs a network to build, and serves until it is ended",
    "packaging/debian/build.sh": "takes minutes, and installs as root; ./test --packages does both",
    "apt install": "needs root; ./test --packages does this in a bare system",
    "packaging/windows/build.sh": "needs a static Qt and Wine; ./test --windows does most of it",
    "packaging/container/build.sh": "needs podman or buildah",
    "packaging/release.sh": "takes long; tests/packaging/release_test.sh tests what it refuses",
    "podman run": "needs podman and the image",
    "cmake --preset": "builds what is tested here",
    "cmake --build": "builds what is tested here",
    "cmake --install": "needs root; the test install_without_windows does this elsewhere",
    "ctest --preset": "runs this test itself",
}
# Pages whose commands have tests of their own, which change places in them.
RUN_ELSEWHERE = {
    "at-scale.md": "tests/app/at_scale.sh",
    "security.md": "tests/app/sandbox_example.sh",
}
OURS = ("./quillon", "quillon", "quillon-convert")
SHELL = ("sh", "bash", "")
OUTPUTS = ("-o", "--output", "--report", "--preview")


class Programs:
    """The programs, and how pages call them."""

    def __init__(self, convert, window):
        self.convert = pathlib.Path(convert).resolve()
        self.window = pathlib.Path(window).resolve()

    def help_of(self, program):
        run = subprocess.run([program, "--help"], capture_output=True, text=True, check=True, timeout=60)
        return run.stdout

    def put_into(self, folder):
        """As in a checkout, ./quillon; and where the system finds programs, those that are installed."""
        starter = folder / "quillon"
        starter.write_text(f"#!/bin/sh\nexec {shlex.quote(str(self.convert))} \"$@\"\n", encoding="utf-8")
        starter.chmod(0o755)
        (folder / "bin").mkdir()
        (folder / "bin" / "quillon-convert").symlink_to(self.convert)
        (folder / "bin" / "quillon").symlink_to(self.window)


def commands_of(text):
    """The commands of a block, each as one line."""
    joined = re.sub(r"\\\n\s*", " ", text)
    lines = (line.strip() for line in joined.split("\n"))
    return [line for line in lines if line and not line.startswith("#")]


def calls(command):
    """(words, files that its output goes to) of each call of a program of ours in a command."""
    lexer = shlex.shlex(command, posix=True, punctuation_chars=True)
    lexer.whitespace_split = True
    words, outputs, before = [], [], ""
    for token in [*lexer, ";"]:
        if set(token) <= set("|&;"):
            if words and words[0] in OURS:
                yield words, outputs
            words, outputs = [], []
        elif before == ">":
            outputs.append(token)
        elif before != "<" and token not in "<>":
            words.append(token)
        before = token


def reason_not_to_run(command):
    return next((begin for begin in NOT_RUN if command == begin or command.startswith(begin + " ")), None)


def scripts_beside(words, folder):
    named = [word for before, word in zip(words, words[1:]) if word.endswith(".dxf") and before not in OUTPUTS]
    return [str(pathlib.Path(name).with_suffix(".scr")) for name in named if (folder / name).is_file()]


def written_unattended(words):
    """Items have paths with backslashes."""
    for word in words:
        if word.startswith("/s:"):
            path = word[3:].replace("\\", "/")
            yield str(pathlib.PurePosixPath(path).parent) if "/rx" in words else path


def written_by(command, folder):
    """The files that a command says it writes."""
    for words, outputs in calls(command):
        yield from outputs
        if words[0] == "quillon":
            yield from written_unattended(words)
            continue
        yield from (word for before, word in zip(words, words[1:]) if before in OUTPUTS and word != "-")
        if not {"-o", "--output", "--no-script"} & set(words):
            yield from scripts_beside(words, folder)


def told_in(prose):
    for match in re.finditer(r"\bwrites\s+((?:`[^`]+`(?:,\s+|\s+and\s+)?)+)", prose):
        yield from re.findall(r"`([^`]+)`", match[1])


class Runner:
    """Runs the blocks of pages, and keeps what was wrong."""

    def __init__(self, root, programs):
        self.root = root
        self.programs = programs
        self.problems = []
        self.used = set()  # of NOT_RUN
        self.count = 0

    def page(self, path):
        """What the text beside a block says is written, that block writes, or the one on its other side."""
        runs = []
        for block in Page(path.read_text(encoding="utf-8")).blocks:
            place = f"{path.relative_to(self.root)}:{block.line}"
            runs.append((place, block, self._block(place, block) if block.language in SHELL else None))
        for (place, block, files), above, below in zip(runs, [None, *runs], [*runs[1:], None]):
            if files is None:
                continue
            others = above[2] if above and above[1].after == block.before else None
            self._report_missing(place, set(told_in(block.before)) - files - (others or set()))
            others = below[2] if below and below[1].before == block.after else None
            self._report_missing(place, set(told_in(block.after)) - files - (others or set()))

    def _report_missing(self, place, names):
        for name in sorted(names):
            self.problems.append(f"{place}: the text says that {name} is written, and it is not")

    def _block(self, place, block):
        """The files that are there afterwards; None if nothing was run."""
        with tempfile.TemporaryDirectory(prefix="quillon-docs-") as name:
            folder = pathlib.Path(name).resolve()
            self._fill(folder)
            has_run = [self._command(place, command, folder) for command in commands_of(block.text)]
            files = {str(path.relative_to(folder)) for path in folder.rglob("*")}
            return files if any(has_run) else None

    def _command(self, place, command, folder):
        begin = reason_not_to_run(command)
        if begin:
            self.used.add(begin)
            self._check_path(place, command)
        elif any(calls(command)):
            here = command.replace("/home/me", str(folder))
            self._run(place, here.replace("\\home\\me", str(folder).replace("/", "\\")), folder)
            return True
        else:
            self.problems.append(f"{place}: neither run nor listed as not to be run: {command}")
        return False

    def _fill(self, folder):
        """What pages take as given: examples/, and drawings of the reader's own."""
        shutil.copytree(self.root / "examples", folder / "examples", ignore=shutil.ignore_patterns("*.scr"))
        (folder / "drawings").mkdir()
        (folder / "scripts").mkdir()
        for name in ("plate.dxf", "part.dxf", "drawings/one.dxf"):
            shutil.copy(folder / "examples" / "frontplate.dxf", folder / name)
        shutil.copy(folder / "examples" / "sensor-board.dxf", folder / "drawings" / "two.dxf")
        (folder / "my.cfh").write_text("[Start]\nSet Undo_Log off;\nEndBlock\n[End]\nEndBlock\n", encoding="utf-8")
        self.programs.put_into(folder)

    def _check_path(self, place, command):
        program = command.split()[0]
        if "/" in program and not os.access(self.root / program, os.X_OK):
            self.problems.append(f"{place}: {program} is no program of the checkout")

    def _run(self, place, command, folder):
        self.count += 1
        home = {name: os.environ[name] for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")
                if name in os.environ}
        home |= {"HOME": str(folder), "PATH": f"{folder}/bin:{os.environ['PATH']}", "LC_ALL": "C.UTF-8"}
        run = subprocess.run(["bash", "-o", "pipefail", "-c", command], cwd=folder, env=home, timeout=120,
                             capture_output=True, text=True, stdin=subprocess.DEVNULL)
        if run.returncode != 0:
            self.problems.append(f"{place}: exit code {run.returncode}: {command}\n{run.stderr}")
            return
        for name in written_by(command, folder):
            path = folder / name
            if not path.exists() or (path.is_dir() and not any(path.iterdir())) or path.stat().st_size == 0:
                self.problems.append(f"{place}: {name} was not written: {command}")


def problems_of(root, programs):
    """Says what is wrong, one text for each problem; and how many commands were run."""
    runner = Runner(root, programs)
    pages = [root / "README.md"] + sorted((root / "docs").glob("*.md"))
    for page in pages:
        if page.name not in RUN_ELSEWHERE:
            runner.page(page)
        elif not (root / RUN_ELSEWHERE[page.name]).is_file():
            runner.problems.append(f"{page.name}: {RUN_ELSEWHERE[page.name]} is missing")
    for begin in sorted(NOT_RUN.keys() - runner.used):
        runner.problems.append(f"no page has a command that begins with {begin}")
    helps = (programs.help_of(programs.convert), programs.help_of(programs.window))
    return runner.problems + list(option_problems(root, pages, *helps)), runner.count


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    problems, count = problems_of(pathlib.Path(sys.argv[1]).resolve(), Programs(*sys.argv[2:]))
    print("\n".join(problems) or f"{count} commands did what the pages say")
    sys.exit(bool(problems))


if __name__ == "__main__":
    main()
