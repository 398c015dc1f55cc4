#!/usr/bin/env python3
"""Checks that the tests raise every message of the string table, in one of its languages at least.

A message counts as raised when a test that runs a program, a window or a public function of the
engine expects its words: each piece of its text between placeholders stands in a string of one and
the same file, as whole words. So tests have to compare messages word for word.

Tests that only hand a message out again, by its number or its name, raise nothing: they would pass
if no program ever showed it. COPIES lists their files. Texts of windows and of the report have
tests of their own, which compare whole tables.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
STRINGS = ROOT / "src/texts/strings.def"
# First and last ids of the texts that tell a user that something has happened.
MESSAGES = ((2802, 2817), (2834, 2839), (2930, 2933), (3000, 3129), (3140, 3150), (3154, 3154),
            (3160, 3199), (3200, 3259), (3508, 3512), (4000, 4099))
# Where to look: the tests of the engine, of the windows and of the programs.
TESTS = ("app", "classic", "convert", "dxf", "eagle", "errors", "files", "settings",
         "texts", "windows")
# What only compares the string table, the wording of messages, or messages made up by the test.
COPIES = {
    "app/headless_host_test.cpp",
    "app/json_output_test.cpp",
    "app/unattended_host_test.cpp",
    "convert/messages_test.cpp",
    "texts/expect_texts.h",
    "texts/layer_lists_test.cpp",
    "texts/string_table_test.cpp",
    "texts/tool_tip_test.cpp",
    "texts/window_texts_test.cpp",
}
LITERAL = r'"((?:[^"\\]|\\.)*)"'


def literals(text):
    """The strings of C++ sources, with those that stand side by side as one."""
    runs = re.finditer(LITERAL + r"(?:\s*" + LITERAL + r")*", text)
    return [plain("".join(re.findall(LITERAL, run.group(0)))) for run in runs]


def plain(literal):
    """A string with its line ends as blanks and without the backslashes of other characters."""
    return re.sub(r"\\(.)", lambda escaped: " " if escaped[1] in "nrt" else escaped[1], literal)


def messages(definitions):
    """The names of the messages, each with its texts."""
    text = r"((?:" + LITERAL + r"\s*)+)"
    entries = re.finditer(r"TEXT\(\s*(\w+),\s*(\d+),\s*" + text + r",\s*" + text + r"\)", definitions)
    for entry in entries:
        name, number = entry.group(1), int(entry.group(2))
        if any(first <= number <= last for first, last in MESSAGES):
            yield name, [plain("".join(re.findall(LITERAL, entry.group(i)))) for i in (3, 5)]


def pieces(text):
    """What a text has between its placeholders, as far as it has words."""
    parts = (part.strip(" .,:;()'\"") for part in re.split(r"%\d", text))
    return [part for part in parts if re.search(r"\w\w", part)]


def is_raised(text, expected):
    """True when the strings of a file hold each piece of a text, not as parts of longer words."""
    wanted = pieces(text)
    return bool(wanted) and all(re.search(rf"(?<!\w){re.escape(piece)}(?!\w)", expected)
                                for piece in wanted)


def missing_messages(definitions, files):
    """The messages that no file raises. `files` are names below tests/ with their contents."""
    expected = ["\n".join(literals(content)) for name, content in files.items()
                if name not in COPIES]
    return {name: texts for name, texts in messages(definitions)
            if not any(is_raised(text, strings) for text in texts for strings in expected)}


def test_files():
    """The sources in which messages may be raised, by their names below tests/."""
    tests = ROOT / "tests"
    return {source.relative_to(tests).as_posix(): source.read_text(encoding="utf-8")
            for folder in TESTS for source in sorted((tests / folder).rglob("*"))
            if source.suffix in (".cpp", ".h")}


def main():
    definitions = STRINGS.read_text(encoding="utf-8")
    files = test_files()
    stale = sorted(COPIES - files.keys())
    for name in stale:
        print(f"tools/check_messages.py names {name}, which is not there.")
    missing = missing_messages(definitions, files)
    for name, texts in missing.items():
        print(f"No test raises the message {name}: {texts[1].strip() or texts[0]}")
    empty = not dict(messages(definitions))
    if empty:
        print("The string table has no messages.")
    return 1 if missing or stale or empty else 0


if __name__ == "__main__":
    sys.exit(main())
