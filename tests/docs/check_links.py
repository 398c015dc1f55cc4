#!/usr/bin/env python3
"""Checks the links and pictures of the pages for users: each leads to a file of the checkout, and to a
heading where it has an anchor; all pages are linked from README.md, and lead on to others.

Usage: check_links.py CHECKOUT
"""
import pathlib
import sys
from urllib.parse import unquote, urlsplit

from markdown import Page


def pages_of(root):
    names = ("README.md", "CONTRIBUTING.md", "CHANGELOG.md", "bench/README.md", "tests/fuzz/README.md")
    return [root / name for name in names] + sorted((root / "docs").glob("*.md"))


def problems_of(root):
    """Says what is wrong, one text for each problem."""
    targets = {}
    for page in pages_of(root):
        if not page.is_file():
            yield f"{page.relative_to(root)} is missing"
            continue
        targets[page] = set()
        for line, link in Page(page.read_text(encoding="utf-8")).links():
            parts = urlsplit(link)
            if parts.scheme or parts.netloc:
                continue
            target = (page.parent / unquote(parts.path)).resolve() if parts.path else page
            targets[page].add(target)
            place = f"{page.relative_to(root)}:{line}: {link}"
            if not target.exists() or root not in target.parents:
                yield f"{place} leads to no file"
            elif parts.fragment and target.suffix == ".md":
                if parts.fragment not in Page(target.read_text(encoding="utf-8")).anchors():
                    yield f"{place} leads to no heading"
    for page in targets:
        if page.parent != root / "docs":
            continue
        if page not in targets[root / "README.md"]:
            yield f"docs/{page.name} has no link in README.md"
        if not any(target.suffix == ".md" and target.parent == page.parent and target != page
                   for target in targets[page]):
            yield f"docs/{page.name} leads on to no other page"


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    root = pathlib.Path(sys.argv[1]).resolve()
    problems = list(problems_of(root))
    print("\n".join(problems) or f"{len(pages_of(root))} pages: all links lead somewhere")
    sys.exit(bool(problems))


if __name__ == "__main__":
    main()
