#!/usr/bin/env python3
"""Names every link of the pages in a folder that leads to no file, or to no place in it.

Usage: tools/reference/links.py FOLDER. Links out of the folder are not looked at.
"""
import sys
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit


class Page(HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.places, self.links = {""}, []
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        for name, value in attributes:
            if name in ("id", "name"):
                self.places.add(value)
            elif name in ("href", "src") and value:
                self.links.append(value)


folder = Path(sys.argv[1]).resolve()
pages = {path: Page(path) for path in folder.rglob("*.html")}
broken = []
for path, page in pages.items():
    for link in page.links:
        parts = urlsplit(link)
        if parts.scheme or parts.netloc:
            continue
        target = (path.parent / unquote(parts.path)).resolve() if parts.path else path
        # The search page is given its words behind "#" and "?".
        if not target.exists() or (target in pages and unquote(parts.fragment) not in pages[target].places):
            broken.append(f"{path.name}: {link}")
print("\n".join(broken) or f"{sum(len(page.links) for page in pages.values())} links")
sys.exit(bool(broken) or not pages)
