#!/usr/bin/env python3
"""Runs tools/script_to_svg.py on scripts of both encodings and looks at the pictures."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
TOOL = ROOT / "tools/script_to_svg.py"


def script_with(text, encoding, line_end="\r\n"):
    lines = ["Layer  21 ;", "Change Size 0.5000000;", f"Text R0 '{text}'  (R1.0 2.0);",
             "Wire 0.0000000 (R0.0 0.0) (R10.0 5.0);", ""]
    return line_end.join(lines).encode(encoding)


class ScriptToSvg(unittest.TestCase):
    def picture_of(self, script):
        with tempfile.TemporaryDirectory() as folder:
            source, picture = pathlib.Path(folder, "a.scr"), pathlib.Path(folder, "a.svg")
            source.write_bytes(script)
            subprocess.run([sys.executable, TOOL, source, picture], check=True)
            return picture.read_text(encoding="utf-8")

    def test_a_utf8_script_keeps_its_characters(self):
        self.assertIn(">Tür → Łódź Ω</text>",
                      self.picture_of(script_with("Tür → Łódź Ω", "utf-8")))

    def test_a_script_that_is_not_utf8_is_windows_1252(self):
        self.assertIn(">Tür €</text>", self.picture_of(script_with("Tür €", "cp1252")))

    def test_bytes_that_windows_1252_lacks_are_control_characters(self):
        script = script_with("Tür A", "cp1252").replace(b" A", b" \x81")
        self.assertIn(">Tür \x81</text>", self.picture_of(script))

    def test_every_line_end_gives_the_same_picture(self):
        pictures = {self.picture_of(script_with("Tür", "utf-8", end))
                    for end in ("\n", "\r\n", "\r")}
        self.assertEqual(len(pictures), 1)

    def test_the_length_of_a_text_counts_characters(self):
        same = [self.picture_of(script_with(text, "utf-8")).replace(text, "…")
                for text in ("Tür", "Tor")]
        self.assertEqual(same[0], same[1])


if __name__ == "__main__":
    unittest.main()
