#!/usr/bin/env python3
"""Checks that the tests of the documentation find what is wrong.

Usage: docs_test.py CHECKOUT QUILLON-CONVERT QUILLON
"""
import pathlib
import sys
import tempfile
import unittest

import check_links
import option_tables
import run_commands

root, convert, window = (pathlib.Path(path).resolve() for path in sys.argv[1:4])
PAGES = ("README.md", "CONTRIBUTING.md", "CHANGELOG.md", "bench/README.md", "tests/fuzz/README.md")
programs = run_commands.Programs(convert, window)


class WithFolder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="quillon-docs-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).resolve()

    def write(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return path


class Links(WithFolder):
    def problems(self, readme, page="[others](other.md)"):
        for name in PAGES:
            self.write(name, "")
        self.write("docs/one.md", f"# One `--two` (and 3)\n\n{page}\n")
        self.write("docs/other.md", "[one](one.md)")
        self.write("README.md", f"# Title\n\n[one](docs/one.md) [other](docs/other.md)\n{readme}\n")
        return list(check_links.problems_of(self.folder))

    def test_links_that_lead_somewhere(self):
        self.assertEqual(self.problems("[a](#title) [b](docs/one.md#one---two-and-3) [c](https://x.example/y#z)"), [])
        self.assertEqual(self.problems("`[a](none.md)`\n\n```sh\n[b](none.md)\n```\n\n    [c](none.md)"), [])

    def test_files_and_pictures_that_are_missing(self):
        self.assertEqual(self.problems("[a\nb](docs/none.md)"), ["README.md:5: docs/none.md leads to no file"])
        self.assertEqual(self.problems("![a](none.png)"), ["README.md:4: none.png leads to no file"])
        self.assertEqual(self.problems('<img src="none.svg">'), ["README.md:4: none.svg leads to no file"])
        self.assertEqual(self.problems("[a](../)"), ["README.md:4: ../ leads to no file"])

    def test_headings_that_are_missing(self):
        self.assertEqual(self.problems("[a](#no-title)"), ["README.md:4: #no-title leads to no heading"])
        self.assertEqual(self.problems("", "[a](other.md#x)"), ["docs/one.md:3: other.md#x leads to no heading"])

    def test_pages_that_lead_nowhere_or_are_found_nowhere(self):
        self.assertEqual(self.problems("", "[back](../README.md)"), ["docs/one.md leads on to no other page"])
        self.write("docs/lonely.md", "[one](one.md)")
        self.assertEqual(self.problems(""), ["docs/lonely.md has no link in README.md"])


class Commands(WithFolder):
    def problems(self, text):
        (self.folder / "examples").symlink_to(root / "examples")
        runner = run_commands.Runner(self.folder, programs)
        runner.page(self.write("page.md", text))
        (self.folder / "examples").unlink()
        return runner.problems

    def command(self, command):
        return self.problems(f"```sh\n{command}\n```\n")

    def assert_one(self, problems, *parts):
        self.assertEqual(len(problems), 1, problems)
        for part in parts:
            self.assertIn(part, problems[0])

    def test_commands_that_do_what_the_page_says(self):
        self.assertEqual(self.command("# comment\n./quillon \\\n  examples/logo.dxf"), [])
        self.assertEqual(self.problems("This writes `a.scr`:\n\n    quillon-convert -o a.scr plate.dxf\n"), [])
        self.assertEqual(self.command("quillon /x:part.dxf /s:part.scr /w:o /ru"), [])

    def test_commands_that_fail(self):
        self.assert_one(self.command("./quillon examples/none.dxf"), "page.md:2: exit code 1", "none.dxf")
        self.assert_one(self.command("./quillon --no-option plate.dxf"), "exit code 2", "--no-option")
        self.assert_one(self.command("quillon-convert examples/none.dxf | cat"), "exit code 1")
        self.assert_one(self.command("quillon /x:none.dxf /s:none.scr /ru"), "exit code 1")

    def test_files_that_are_not_written(self):
        text = "```sh\n./quillon plate.dxf\n```\n\nThis writes `plate.scr` and\n`other.scr`.\n"
        self.assert_one(self.problems(text), "page.md:2", "other.scr is written, and it is not")
        self.assert_one(self.command("./quillon --version > nothing.txt; : > nothing.txt"), "nothing.txt was not written")
        self.assert_one(self.command("./quillon --version --no-script --report a.txt"), "a.txt was not written")

    def test_commands_that_nobody_thought_of(self):
        self.assert_one(self.command("make plate"), "neither run nor listed")
        self.assert_one(self.command("packaging/debian/build.sh out"), "no program of the checkout")


class Options(unittest.TestCase):
    def setUp(self):
        self.convert_help = programs.help_of(convert)
        self.window_help = programs.help_of(window)

    def problems(self, old="", new=""):
        self.assertIn(old, self.convert_help)
        changed = self.convert_help.replace(old, new, 1)
        return list(option_tables.option_problems(root, [root / "docs" / "rules.md"], changed, self.window_help))

    def test_the_tables_are_those_of_the_help(self):
        self.assertEqual(self.problems(), [])

    def test_options_that_only_one_of_both_has(self):
        self.assertEqual(self.problems("      --force ", "      --power "), [
            "docs/options.md lacks --power", "docs/options.md has --force, which is no option"])
        self.assertRegex("\n".join(self.problems("--poly ", "--lines ")), r"docs/rules\.md:\d+: --poly is no option")

    def test_values_and_defaults_that_differ(self):
        self.assertEqual(self.problems("light|dark", "light|dark|grey"), [
            "docs/options.md: --preview-theme light|dark; the help has light|dark|grey"])
        self.assertEqual(self.problems("[0.001]", "[0.002]"), [
            "docs/options.md: the default of --tolerance is 0.002, not 0.001"])

    def test_items_of_unattended_runs(self):
        self.window_help += "\n  /zz:  something new\n"
        self.assertEqual(self.problems(), ["docs/unattended.md lacks /zz:"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
