#!/usr/bin/env python3
"""Checks that the tests raise every message of the string table, in one of its languages at least.

A message counts as raised when its longest piece between two placeholders stands in a string of a
test, so tests have to compare messages word for word. Texts of windows and of the report have tests
of their own, which compare whole tables.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
STRINGS = ROOT / "src/ui/resources/strings.def"
# First and last ids of the texts that tell a user that something has happened.
MESSAGES = ((2802, 2817), (2834, 2839), (2930, 2933), (3000, 3129), (3140, 3148), (3150, 3150),
            (3154, 3154), (3160, 3199), (4000, 4099))
LITERAL = r'"((?:[^"\\]|\\.)*)"'


def literals(text):
    """The strings of C++ sources, with those that stand side by side as one."""
    runs = re.finditer(LITERAL + r"(?:\s*" + LITERAL + r")*", text)
    return ["".join(re.findall(LITERAL, run.group(0))) for run in runs]


def messages():
    """The numbers of the messages, each with its texts."""
    text = r"((?:" + LITERAL + r"\s*)+)"
    entries = re.finditer(r"TEXT\(\s*(\d+),\s*" + text + r",\s*" + text + r"\)",
                          STRINGS.read_text(encoding="utf-8"))
    for entry in entries:
        number = int(entry.group(1))
        if any(first <= number <= last for first, last in MESSAGES):
            yield number, ["".join(re.findall(LITERAL, entry.group(i))) for i in (2, 4)]


def longest_piece(text):
    return max(re.split(r"%\d", text), key=len).strip()


def main():
    expected = []
    for source in sorted((ROOT / "tests").rglob("*")):
        if source.suffix in (".cpp", ".h"):
            expected.extend(literals(source.read_text(encoding="utf-8")))
    everything = "\n".join(expected)
    numbers = dict(messages())
    missing = [number for number, texts in numbers.items()
               if not any(longest_piece(text) in everything for text in texts)]
    for number in missing:
        print(f"No test raises message {number}: {numbers[number][1]}")
    if not numbers:
        print("The string table has no messages.")
    return 1 if missing or not numbers else 0


if __name__ == "__main__":
    sys.exit(main())
