"""Compares the options that pages name with the programs' help."""
import json
import re
import subprocess

from markdown import Page

# Options of others that pages name.
OF_OTHERS = {
    "--web": "./quillon",
    "--qt": "packaging/windows/build.sh",
    "--transferfile": "GNU parallel",
    "--return": "GNU parallel",
    "--component": "cmake",
    "--install": "cmake",
}


def options_of_help(text):
    """{option: (what to type for its value, its default)}, both "" where there is none."""
    joined = re.sub(r"\n {20,}", "  ", text)
    form = r"^ +((?:-\w, )?(?:--[\w-]+)?)(?: (\S+))?(?:  +(.*))?$"
    options = {}
    for names, value, meaning in re.findall(form, joined, re.MULTILINE):
        default = re.search(r"\[([^\]]*)\]\s*$", meaning)
        for name in filter(None, re.split(r",\s*", names)):
            options[name] = (value, re.sub(r"\s+", " ", default[1]) if default else "")
    return options


def options_of_tables(page):
    """The same of the tables of docs/options.md; options of one row have one default."""
    options = {}
    for _, line in page.prose:
        cells = re.split(r"(?<!\\)\|", line)[1:-1]
        if len(cells) != 3 or "`-" not in cells[0]:
            continue
        names, _, default = (re.sub(r"\\\|", "|", cell).strip() for cell in cells)
        row = [re.split(r"(?: |$)", span, maxsplit=1) for span in re.findall(r"`([^`]+)`", names)]
        for name, *value in row:
            options[name] = ("".join(value), default.replace("`", ""))
    # A short name has the value of its long one.
    for line in re.findall(r"`(-\w)`, `(--[\w-]+)", "\n".join(text for _, text in page.prose)):
        options[line[0]] = options[line[1]]
    return options


def table_problems(known, told):
    for name in sorted(known.keys() - told.keys()):
        yield f"docs/options.md lacks {name}"
    for name in sorted(told.keys() - known.keys()):
        yield f"docs/options.md has {name}, which is no option"
    for name in sorted(known.keys() & told.keys()):
        (value, default), (value_told, default_told) = known[name], told[name]
        if value != value_told:
            yield f"docs/options.md: {name} {value_told}; the help has {value}"
        # Words about a default may differ, values may not.
        if re.fullmatch(r"[\w.-]+", default) and default != default_told:
            yield f"docs/options.md: the default of {name} is {default}, not {default_told}"
        if not value and default_told not in ("off", ""):
            yield f"docs/options.md: {name} is off by default"


def option_problems(root, pages, convert_help, window_help):
    """Says what is wrong, one text for each problem."""
    known = options_of_help(convert_help)
    table = Page((root / "docs" / "options.md").read_text(encoding="utf-8"))
    if len(known) < 40:
        yield "the help of quillon-convert has another form than this test can read"
    told = options_of_tables(table)
    # --config and --no-config share a row, and so a default.
    if told.get("--no-config", ("", ""))[1] == told.get("--config", ("", "-"))[1]:
        told["--no-config"] = ("", "off")
    yield from table_problems(known, told)

    tests = subprocess.run([root / "test", "--help"], capture_output=True, text=True, check=True, timeout=60)
    others = set(re.findall(r"--[a-z][\w-]*", tests.stdout)) | OF_OTHERS.keys()
    for path in pages:
        for line, span in Page(path.read_text(encoding="utf-8")).code_spans():
            for name in re.findall(r"(?<![\w-])--[a-z][\w-]*", span):
                if name not in known and name not in others:
                    yield f"{path.relative_to(root)}:{line}: {name} is no option"

    unattended = (root / "docs" / "unattended.md").read_text(encoding="utf-8")
    for item in re.findall(r"(?<=\s)/[a-z]\S*", window_help):
        item = re.sub(r"(?<=:)[A-ZÄÖÜ].*|\]$", "", item)
        if f"`{item}`" not in unattended:
            yield f"docs/unattended.md lacks {item}"
    schema = json.loads((root / "docs" / "quillon-convert.schema.json").read_text(encoding="utf-8"))
    spans = {span for _, span in table.code_spans()}
    for key in sorted(schema["properties"].keys() - spans):
        yield f"docs/options.md lacks the key {key}"
