#!/usr/bin/env python3
"""Generates the fuzzers' seed inputs from the drawings in tests/golden.

Usage: make_seeds.py FOLDER-OF-DRAWINGS FOLDER-FOR-SEEDS
"""
import pathlib
import shlex
import sys

UNITS = {"mic": "u1", "mm": "u2", "mil": "u3", "inch": "u4"}
TARGETS = {"board": "t0", "schematic": "t1", "package": "t2", "symbol": "t3"}
POLYS = {"-1": "p0", "0": "p1", "wire0": "p1", "1": "p2", "wire": "p2", "2": "p3", "polyline": "p3"}
BLOCKS = {"draw": "b0", "0": "b0", "used": "b1", "1": "b1", "all": "b2", "2": "b2"}
SCALES = {"-1.000": "s2", "-1": "s2", "0.5": "s3", "25.4": "s4"}
SWITCHES = {"--dotted": "d", "--ellipses": "e", "--arc-to-line": "a"}


def read(folder, name):
    return (folder / name).read_bytes()


def conversion(folder, drawing, extra=b""):
    """A seed of the conversion: options, layer, name, layer file, frame and drawing."""
    args = drawing.with_suffix(".args")
    words = shlex.split(args.read_text(encoding="utf-8")) if args.exists() else []
    letters, layer, name, layers, frame = "", "", drawing.stem, b"", b""
    while words:
        word = words.pop(0)
        if word in SWITCHES or not words or words[0].startswith("--"):
            letters += SWITCHES.get(word, "")  # not all options of the exact rules have letters
            continue
        value = words.pop(0)
        for option, choices in (("--unit", UNITS), ("--target", TARGETS), ("--poly", POLYS),
                                ("--blocks", BLOCKS), ("--scale", SCALES)):
            if word == option:
                letters += choices.get(value, "")
        if word == "--eagle" and value == "3.5":
            letters += "o"
        if word == "--language" and value == "de":
            letters += "g"
        if word == "--poly-width":
            letters += "w3"
        if word == "--name":
            name = value
        if word == "--layer":
            layer = value
        if word == "--layers":
            layers = read(folder, value)
        if word == "--frame":
            frame = read(folder, value)
    head = [(letters.encode() + extra), layer.encode(), name.encode(), layers, frame]
    return b"\0".join(part.replace(b"\0", b"") for part in head) + b"\0" + drawing.read_bytes()


def main():
    folder, target = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    seeds = {}

    def add(fuzzer, name, data):
        seeds.setdefault(fuzzer, {})[name] = data

    for drawing in sorted(folder.glob("*.dxf")):
        add("conversion_fuzz", drawing.stem, conversion(folder, drawing))
        add("conversion_fuzz", drawing.stem + "-dotted", conversion(folder, drawing, b"dea"))
        add("conversion_fuzz", drawing.stem + "-parts", conversion(folder, drawing, b"b2t1c4"))
        add("conversion_fuzz", drawing.stem + "-limits", conversion(folder, drawing, b"del3m2k"))
    for layers in sorted(folder.glob("*.lay")):
        add("layer_file_fuzz", layers.stem, layers.read_bytes())
    for frame in sorted(folder.glob("*.cfh")):
        add("frame_fuzz", frame.stem, frame.read_bytes())
    for args in sorted(folder.glob("*.args")):
        words = shlex.split(args.read_text(encoding="utf-8")) + ["x.dxf"]
        add("options_fuzz", args.stem, "\0".join(words).encode())
    add("options_fuzz", "all", b"\0".join(
        b"--force --jobs 2 --json --quiet --newer --max-lines 9 --max-steps 9 --max-input 9K --keep-partial --recursive --files-from l -0 --no-config --report r -o out a.dxf b".split()))
    add("config_fuzz", "all", (
        '# defaults\r\nunit = "mm"\r\nrules = \'exact\'  # curves\r\njobs = 2\nscale = -0.5e1\n'
        'newer = true\nforce = false\nlayer = "20 \\u0044\\"\\\\ (B)"\nmax-input = "9K"\n').encode())
    for name, line in {"one": b"/x:a.dxf /s:a.scr /b:a /u:mm /w:o /ru",
                       "all": b"/x:\\d\\*.dxf /d:a.lay /o:s /l:16 Bottom (B) /v:4 /f:2.5 /p:1 /k:2 "
                              b"/t:t /e:t /a:t /r:f /rx"}.items():
        add("command_line_fuzz", name, line)
        settings = (b"[dxf]\r\ndxffile=C:\\A.DXF\r\nscr=a.scr\r\nbrdsch=A\r\nbrd=1\r\nversion=1\r\n"
                    b"unit=1\r\nscale=2.0\r\nlayer=91 Nets (S)\r\ndotted=1\r\nreport=0\r\npoly=1\r\n"
                    b"blocks=2\r\n[global]\r\nlanguage=10000\r\n")
        add("settings_fuzz", name, line + b"\0" + settings)
        add("ini_fuzz", name, b"x y\0" + settings)
    for fuzzer, inputs in seeds.items():
        (target / fuzzer).mkdir(parents=True, exist_ok=True)
        for name, data in inputs.items():
            (target / fuzzer / name).write_bytes(data)


if __name__ == "__main__":
    main()
