#!/usr/bin/env python3
"""Checks that the tests raise every message in the string table, in at least one language.

A message counts as raised when a test that runs a program, a window or a public function of the
engine expects its text: every piece between placeholders occurs, as whole words, in string literals
of the same file. Tests therefore have to compare messages word for word.

Tests that merely look up a message by its id or name do not count: they would pass even if no
program ever showed it. COPIES lists their files. Texts of windows and of the report have separate
tests, which compare whole tables.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
STRINGS = ROOT / "src/texts/strings.def"
# Ranges of ids of the messages for users.
MESSAGES = ((2802, 2817), (2834, 2839), (2930, 2933), (3000, 3129), (3140, 3150), (3154, 3154),
            (3160, 3199), (3200, 3264), (3508, 3512), (3600, 3623), (3701, 3703),
            (3705, 3706), (3708, 3708), (3713, 3713), (4000, 4099))
# Where to look: tests of the engine, the windows and the programs.
TESTS = ("app", "batch", "classic", "convert", "dxf", "eagle", "errors", "files", "settings",
         "texts", "windows", "workbench")
# Files that only compare the string table, the wording of messages, or messages invented by the
# test.
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
    """The string literals of C++ sources, with adjacent ones joined."""
    runs = re.finditer(LITERAL + r"(?:\s*" + LITERAL + r")*", text)
    return [plain("".join(re.findall(LITERAL, run.group(0)))) for run in runs]


def plain(literal):
    """A string literal with line ends as blanks and other characters unescaped."""
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
    """The pieces of a text between its placeholders that contain words."""
    parts = (part.strip(" .,:;()'\"") for part in re.split(r"%\d", text))
    return [part for part in parts if re.search(r"\w\w", part)]


def is_raised(text, expected):
    """True if the strings of a file contain each piece of a text as whole words."""
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
        print(f"tools/check_messages.py lists {name}, which does not exist.")
    missing = missing_messages(definitions, files)
    for name, texts in missing.items():
        print(f"No test raises the message {name}: {texts[1].strip() or texts[0]}")
    empty = not dict(messages(definitions))
    if empty:
        print("The string table has no messages.")
    return 1 if missing or stale or empty else 0


if __name__ == "__main__":
    sys.exit(main())
