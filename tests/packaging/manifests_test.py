#!/usr/bin/env python3
"""The manifests for package managers can be read, and name the files of a release with their sums.

Usage: manifests_test.py SOURCE-FOLDER"""

import hashlib
import json
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

try:
    import yaml
except ImportError:
    print("python3-yaml is missing")
    sys.exit(77)

SOURCE = Path(sys.argv.pop(1))
VERSION = "2.3.4"
ADDRESS = f"https://quillon.example/releases/{VERSION}"
FILES = [f"Quillon-{VERSION}-setup.exe", f"Quillon-{VERSION}-portable.zip",
         f"quillon-{VERSION}.tar.gz", f"quillon-{VERSION}-cli11.tar.gz"]


def sum_of(name: str) -> str:
    """Each file of the release of this test contains its own name."""
    return hashlib.sha256(name.encode()).hexdigest()


class ManifestsTest(unittest.TestCase):
    def setUp(self) -> None:
        self.folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.release = self.folder / "release"
        self.release.mkdir()
        for name in FILES:
            (self.release / name).write_text(name, encoding="utf-8")

    def fill(self) -> subprocess.CompletedProcess[str]:
        command = [SOURCE / "packaging/fill_manifests.py", VERSION, self.release, self.folder / "made"]
        return subprocess.run(command, capture_output=True, text=True, check=False,
                              env={"PATH": "/usr/bin:/bin", "SOURCE_DATE_EPOCH": "1000000000"})

    def made(self, name: str) -> str:
        return (self.folder / "made" / name).read_text(encoding="utf-8")

    def test_nothing_is_left_to_fill_in(self) -> None:
        result = self.fill()
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
        files = [path for path in (self.folder / "made").rglob("*") if path.is_file()]
        self.assertEqual(len(files), 7)
        for path in files:
            text = path.read_text(encoding="utf-8")
            self.assertNotRegex(text, "@[A-Z]", path)
            self.assertIn(VERSION, text if path.parent.name != "flatpak" else ADDRESS, path)

    def test_a_file_that_is_missing_in_the_release_is_an_error(self) -> None:
        (self.release / FILES[0]).unlink()
        result = self.fill()
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr,
                         f"fill_manifests.py: {self.release} has no {FILES[0]}\n")

    def test_winget(self) -> None:
        self.fill()
        manifests = {path.name: yaml.safe_load(path.read_text(encoding="utf-8"))
                     for path in (self.folder / "made/winget").iterdir()}
        kinds = {name: values["ManifestType"] for name, values in manifests.items()}
        self.assertEqual(kinds, {"Quillon.Quillon.yaml": "version",
                                 "Quillon.Quillon.installer.yaml": "installer",
                                 "Quillon.Quillon.locale.en-US.yaml": "defaultLocale",
                                 "Quillon.Quillon.locale.de-DE.yaml": "locale"})
        for values in manifests.values():
            self.assertEqual(values["PackageIdentifier"], "Quillon.Quillon")
            self.assertEqual(values["PackageVersion"], VERSION)
            self.assertEqual(values["ManifestVersion"], "1.6.0")
        installer = manifests["Quillon.Quillon.installer.yaml"]
        self.assertEqual(installer["ReleaseDate"], "2001-09-09")
        self.assertEqual(installer["Installers"][0]["InstallerUrl"], f"{ADDRESS}/{FILES[0]}")
        self.assertEqual(installer["Installers"][0]["InstallerSha256"], sum_of(FILES[0]).upper())
        self.assertEqual(manifests["Quillon.Quillon.yaml"]["DefaultLocale"],
                         manifests["Quillon.Quillon.locale.en-US.yaml"]["PackageLocale"])

    def test_scoop(self) -> None:
        self.fill()
        manifest = json.loads(self.made("scoop/quillon.json"))
        self.assertEqual(manifest["version"], VERSION)
        archive = manifest["architecture"]["64bit"]
        self.assertEqual(archive, {"url": f"{ADDRESS}/{FILES[1]}", "hash": sum_of(FILES[1]),
                                   "extract_dir": f"Quillon-{VERSION}"})

    def test_homebrew(self) -> None:
        self.fill()
        formula = self.made("homebrew/quillon.rb")
        self.assertIn(f'url "{ADDRESS}/{FILES[2]}"\n  sha256 "{sum_of(FILES[2])}"', formula)
        if not shutil.which("ruby"):
            self.skipTest("ruby is missing")
        made = self.folder / "made/homebrew/quillon.rb"
        result = subprocess.run(["ruby", "-wc", made], capture_output=True, text=True, check=False)
        self.assertEqual((result.stdout, result.stderr), ("Syntax OK\n", ""))

    def test_flatpak(self) -> None:
        self.fill()
        manifest = yaml.safe_load(self.made("flatpak/example.quillon.quillon.yaml"))
        self.assertTrue((SOURCE / f"packaging/{manifest['id']}.metainfo.xml").is_file())
        sources = [source for module in manifest["modules"] for source in module["sources"]
                   if source["type"] == "archive"]
        self.assertEqual([(source["url"], source["sha256"]) for source in sources],
                         [(f"{ADDRESS}/{name}", sum_of(name)) for name in (FILES[3], FILES[2])])
        if not shutil.which("flatpak-builder"):
            self.skipTest("flatpak-builder is missing")
        made = self.folder / "made/flatpak/example.quillon.quillon.yaml"
        result = subprocess.run(["flatpak-builder", "--show-manifest", made], capture_output=True,
                                text=True, check=False, cwd=self.folder)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(json.loads(result.stdout)["id"], manifest["id"])


if __name__ == "__main__":
    unittest.main()
