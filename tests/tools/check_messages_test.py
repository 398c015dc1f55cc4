#!/usr/bin/env python3
"""Checks what tools/check_messages.py counts as a message that a test raises."""
import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / "tools"))
import check_messages  # noqa: E402

TABLE = 'TEXT(DrawingEmpty, 3001, "%1 ist leer. Bitte neu %2.", "%1 is empty.\\nPlease export %2.")\n'


def missing(content, name="app/a_test.cpp", table=TABLE):
    return list(check_messages.missing_messages(table, {name: content}))


class CheckMessages(unittest.TestCase):
    def test_all_pieces_between_placeholders_are_wanted(self):
        self.assertEqual(missing('x == "a.dxf is empty. " "Please export it."'), [])
        self.assertEqual(missing('x == name + " is empty.\\nPlease export " + it'), [])
        self.assertEqual(missing('x == "a.dxf is empty"'), ["DrawingEmpty"])

    def test_one_language_is_enough(self):
        self.assertEqual(missing('x == "a.dxf ist leer. Bitte neu machen."'), [])

    def test_pieces_of_two_languages_or_files_are_no_message(self):
        self.assertEqual(missing('"a is empty. Bitte neu"'), ["DrawingEmpty"])
        files = {"app/a_test.cpp": '" is empty."', "app/b_test.cpp": '"Please export"'}
        self.assertEqual(list(check_messages.missing_messages(TABLE, files)), ["DrawingEmpty"])

    def test_comments_and_parts_of_words_are_no_message(self):
        self.assertEqual(missing("// a is empty. Please export it."), ["DrawingEmpty"])
        table = 'TEXT(WordWarning, 3101, "Warnung", "warning")'
        self.assertEqual(missing('"warnings"', table=table), ["WordWarning"])
        self.assertEqual(missing('"x: warning: y"', table=table), [])

    def test_copies_of_the_table_raise_nothing(self):
        text = '"a.dxf is empty. Please export it."'
        for name in check_messages.COPIES:
            self.assertEqual(missing(text, name), ["DrawingEmpty"], name)

    def test_a_text_without_words_is_never_found(self):
        self.assertEqual(missing('"   "', table='TEXT(RangeWarningLastLine, 2932, "  ", "  ")'), ["RangeWarningLastLine"])

    def test_only_messages_are_wanted(self):
        self.assertEqual(missing("", table='TEXT(CaptionSave, 901, "Speichern", "Save")'), [])

    def test_the_tests_of_this_program_raise_every_message(self):
        self.assertEqual(check_messages.main(), 0)


if __name__ == "__main__":
    unittest.main()
