#!/usr/bin/env python3
"""Checks the help pages: the same pages in both languages, well-formed, linked and reachable.

Usage: check_help.py [FOLDER]   (help/ of this checkout)
"""

import pathlib
import sys
from html.parser import HTMLParser
from urllib.parse import unquote, urlsplit

LANGUAGES = ("de", "en")
START = "index.html"
VOID = {"br", "col", "hr", "img", "link", "meta"}  # elements without an end tag


class Page(HTMLParser):
    """A parsed page: its links, its anchors and its errors."""

    def __init__(self, path):
        super().__init__()
        self.links = []  # (line, target)
        self.anchors = set()
        self.errors = []
        self.open = []
        self.has_charset = False
        self.has_title = False
        try:
            self.feed(path.read_text(encoding="utf-8"))
            self.close()
        except UnicodeDecodeError as error:
            self.error(f"is not UTF-8: {error}")
        for tag in self.open:
            self.error(f"<{tag}> is not closed")
        if not self.has_charset:
            self.error('has no <meta charset="utf-8">')
        if not self.has_title:
            self.error("has no title")

    def error(self, text):
        self.errors.append((self.getpos()[0], text))

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if tag not in VOID:
            self.open.append(tag)
        if tag == "meta" and (attributes.get("charset") or "").lower() == "utf-8":
            self.has_charset = True
        for name in ("href", "src"):
            if name in attributes:
                self.links.append((self.getpos()[0], attributes[name] or ""))
        self.anchors.update(attributes[name] for name in ("id", "name") if name in attributes)

    def handle_startendtag(self, tag, attrs):
        self.error(f"<{tag}/> ends itself, which HTML does not know")

    def handle_endtag(self, tag):
        if self.open and self.open[-1] == tag:
            self.open.pop()
        else:
            self.error(f"</{tag}> does not close " + (f"<{self.open[-1]}>" if self.open else "any"))
            if tag in self.open:  # continue after it
                while self.open.pop() != tag:
                    pass

    def handle_data(self, data):
        if self.open and self.open[-1] == "title" and data.strip():
            self.has_title = True


def link_targets(path, page, pages, report):
    """The pages that a page links to. Reports broken links."""
    for line, link in page.links:
        parts = urlsplit(link)
        if parts.scheme or parts.netloc:
            report(path, line, f"links to {link}, outside the help")
            continue
        target = (path.parent / unquote(parts.path)).resolve() if parts.path else path
        if not target.is_file():
            report(path, line, f"links to {link}, which is not there")
        elif parts.fragment and parts.fragment not in pages.get(target, page).anchors:
            report(path, line, f"links to {link}, whose anchor is not there")
        elif target in pages:
            yield target


def reachable(start, links):
    seen, waiting = set(), [start]
    while waiting:
        path = waiting.pop()
        if path not in seen:
            seen.add(path)
            # The other language has its own start page.
            waiting += [target for target in links[path] if target.parent == path.parent]
    return seen


def check(folder):
    found = []

    def report(path, line, text):
        found.append(f"{path.relative_to(folder)}:{line}: {text}")

    names = {language: {path.name for path in (folder / language).glob("*.html")}
             for language in LANGUAGES}
    for language in LANGUAGES:
        for name in sorted(set().union({START}, *names.values()) - names[language]):
            found.append(f"{language}/{name}: is missing")
    pages = {folder / language / name: None for language in LANGUAGES for name in names[language]}
    pages = {path: Page(path) for path in sorted(pages)}
    for path, page in pages.items():
        for line, text in page.errors:
            report(path, line, text)
    links = {path: list(link_targets(path, page, pages, report)) for path, page in pages.items()}
    for language in LANGUAGES:
        start = folder / language / START
        if start not in pages:
            continue
        linked = reachable(start, links)
        for name in sorted(names[language]):
            path = start.with_name(name)
            if path not in linked:
                report(path, 1, f"cannot be reached from {START}")
            if path != start and start not in links[path]:
                report(path, 1, f"does not link to {START}")
    return len(pages), found


def main():
    here = pathlib.Path(__file__).resolve().parent
    folder = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else here.parent / "help").resolve()
    count, found = check(folder)
    print("\n".join(found or [f"{count} help pages are in order"]))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
