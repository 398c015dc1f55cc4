#!/usr/bin/env python3
"""Validates what quillon-convert --json prints against its published schema.

Usage: json_schema.py QUILLON-CONVERT SCHEMA FOLDER-OF-DRAWINGS...
"""
import copy
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
try:
    import jsonschema
except ImportError:
    print("skipped: the package python3-jsonschema is not installed")
    sys.exit(SKIPPED)

LINE = "  0\nLINE\n  8\n{layer}\n 10\n0\n 20\n0\n 11\n{x}\n 21\n2\n"


def drawing(entities, blocks=""):
    sections = ("  0\nSECTION\n  2\nBLOCKS\n" + blocks + "  0\nENDSEC\n") if blocks else ""
    return sections + "  0\nSECTION\n  2\nENTITIES\n" + entities + "  0\nENDSEC\n  0\nEOF\n"


def endless():
    """Blocks nested so that drawing them does not end."""
    insert = "  0\nINSERT\n  8\n0\n  2\nL{}\n"
    blocks = ""
    for level in range(14):
        blocks += f"  0\nBLOCK\n  8\n0\n  2\nL{level}\n 10\n0\n 20\n0\n"
        blocks += insert.format(level + 1) * 10 + "  0\nENDBLK\n  8\n0\n"
    return drawing(insert.format(0), blocks)


class Checker:
    def __init__(self, program, schema):
        self.program = program
        jsonschema.Draft202012Validator.check_schema(schema)
        self.schema = schema
        self.validator = jsonschema.Draft202012Validator(schema)
        self.failures = 0
        self.keys = set()
        self.outcomes = set()
        self.seen = []

    def fail(self, what):
        print(what)
        self.failures += 1

    def command(self, *arguments):
        return [self.program, "--no-config", "--json", "--quiet", *arguments]

    def run(self, name, *arguments, outcome=None, count=1):
        done = subprocess.run(self.command(*arguments), capture_output=True, timeout=600)
        return self.take(name, done.stdout, outcome, count)

    def take(self, name, output, outcome, count):
        """Validates each line that the program printed, and returns them."""
        objects = [json.loads(line) for line in output.decode("utf-8").splitlines()]
        if count is not None and len(objects) != count:
            self.fail(f"{name}: {len(objects)} objects instead of {count}")
        for one in objects:
            for error in self.validator.iter_errors(one):
                self.fail(f"{name}: {list(error.absolute_path)}: {error.message}")
            if outcome and one["outcome"] != outcome:
                self.fail(f"{name}: {one['outcome']} instead of {outcome}: {one['messages']}")
            self.outcomes.add(one["outcome"])
            self.note(one, self.schema)
        self.seen += objects
        return objects

    def note(self, value, schema, path=""):
        """Remembers which of the schema's properties have been there."""
        properties = schema.get("properties", {})
        if isinstance(value, dict):
            for key, inner in value.items():
                if key in properties:
                    self.keys.add(path + key)
                    self.note(inner, properties[key], path + key + ".")
                elif properties:
                    self.fail(f"{path}{key} is not in the schema")
        elif isinstance(value, list):
            for inner in value:
                self.note(inner, schema.get("items", {}), path)

    def all_keys(self, schema, path=""):
        for key, inner in schema.get("properties", {}).items():
            yield path + key
            yield from self.all_keys(inner, path + key + ".")
            yield from self.all_keys(inner.get("items", {}), path + key + ".")


def every_outcome(check):
    write = lambda name, text: pathlib.Path(name).write_text(text, encoding="latin-1")
    write("part.dxf", drawing(LINE.format(layer=0, x=1)))
    write("far.dxf", drawing(LINE.format(layer=0, x=9999999)))
    write("odd.dxf", drawing(LINE.format(layer=0, x=1) + "  0\nFROB\n  8\n0\n" +
                             "  0\nINSERT\n  8\n0\n  2\nNOWHERE\n" +
                             "  0\nLINE\n  8\n0\n  x\n1\n  0\nPOINT\n  8\n0\n 10\n1\n 20\n1\n"))
    write("open.dxf", drawing(LINE.format(layer=0, x=1) +
                              "  0\nLINE\n  8\n0\n 10\n1.1\n 20\n2\n 11\n5\n 21\n9\n"))
    write("none.dxf", drawing(""))
    write("bad.dxf", "no drawing\n" * 3)
    write("endless.dxf", endless())
    write("all.lay", "[1]\r\nlayername=0\r\nlayernr=999\r\n")
    check.run("converted", "part.dxf", "--report", "part.txt", "--preview", "part.svg",
              outcome="converted")
    check.run("exists", "part.dxf", outcome="failed")
    later = time.time() + 60
    os.utime("part.scr", (later, later))
    skipped = check.run("skipped", "part.dxf", "--newer", outcome="skipped")
    if [one["script"] for one in skipped] != ["part.scr"]:
        check.fail(f"skipped: {skipped}")
    check.run("forced", "part.dxf", "--force", outcome="converted")
    check.run("out of range", "far.dxf", outcome="converted")
    check.run("damage", "odd.dxf", outcome="converted")
    for rules in ("classic", "exact"):
        check.run(rules, "odd.dxf", "open.dxf", "none.dxf", "--force", "--rules", rules,
                  "--eagle", "6", outcome="converted", count=3)
    check.run("left out", "part.dxf", "--force", "--layers", "all.lay", outcome="converted")
    check.run("missing", "nowhere.dxf", outcome="failed")
    check.run("refused", "bad.dxf", outcome="failed")
    check.run("picture", "part.dxf", "--no-script", "--force", "--preview", "p.svg",
              outcome="converted")
    check.run("a limit", "endless.dxf", "--max-steps", "1000", outcome="failed")
    check.run("the rest at a limit", "endless.dxf", "--max-steps", "1000", "--keep-partial")
    with open("part.dxf", "rb") as text:
        done = subprocess.run(check.command("-", "-o", "stdin.scr"), stdin=text, check=False,
                              capture_output=True)
    check.take("standard input", done.stdout, "converted", 1)
    shutil.copy("part.dxf", b"f\xfcr.dxf")
    # A name that is not UTF-8.
    check.run("bytes", b"f\xfcr.dxf", "--report", b"f\xfcr.txt", "--preview", b"f\xfcr.svg",
              outcome="converted")


def cancelled(check):
    for path in ("endless.scr",):
        pathlib.Path(path).unlink(missing_ok=True)
    with subprocess.Popen(check.command("endless.dxf"), stdout=subprocess.PIPE) as program:
        time.sleep(1)
        program.send_signal(signal.SIGINT)
        output = program.communicate(timeout=60)[0]
    check.take("cancelled", output, "cancelled", 1)


def real_drawings(check, folders):
    for number, folder in enumerate(folders):
        for rules in ("classic", "exact"):
            check.run(f"{folder} {rules}", folder, "--rules", rules, "--eagle", "6", "-o",
                      f"out{number}", "--preview", f"out{number}", "--force", "--jobs", "2",
                      count=len(list(pathlib.Path(folder).glob("*.dxf"))))


def refuses(check):
    """A schema that accepts everything would show nothing."""
    good = next(one for one in check.seen if one["outcome"] == "converted" and one["losses"])
    changes = {"an unknown outcome": lambda o: o.update(outcome="done"),
               "no drawing": lambda o: o.pop("dxf"),
               "a text as a count": lambda o: o.update(linesRead="1"),
               "a negative count": lambda o: o["entities"].update(LINE=-1),
               "an incomplete loss": lambda o: o["losses"][0].pop("rule"),
               "no losses": lambda o: o.pop("losses"),
               "a failure without a message": lambda o: o.update(
                   outcome="failed", script=None, report=None, preview=None, messages=[])}
    for name, change in changes.items():
        bad = copy.deepcopy(good)
        change(bad)
        if check.validator.is_valid(bad):
            check.fail(f"the schema accepts {name}")


def main():
    program, schema, *folders = [os.path.abspath(word) for word in sys.argv[1:]]
    check = Checker(program, json.loads(pathlib.Path(schema).read_text(encoding="utf-8")))
    with tempfile.TemporaryDirectory() as work:
        os.chdir(work)
        every_outcome(check)
        cancelled(check)
        real_drawings(check, folders)
        os.chdir("/")
    refuses(check)
    missing = set(check.schema["properties"]["outcome"]["enum"]) - check.outcomes
    if missing:
        check.fail(f"outcomes that did not come: {sorted(missing)}")
    missing = set(check.all_keys(check.schema)) - check.keys
    if missing:
        check.fail(f"keys that did not come: {sorted(missing)}")
    print(f"{len(check.seen)} objects, {check.failures} failures")
    return 1 if check.failures else 0


if __name__ == "__main__":
    sys.exit(main())
