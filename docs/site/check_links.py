"""Fails if a page of the folder links to a file or a place in a page that is not there."""

import html.parser
import pathlib
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    """The links of a page, and the places in it that have a name."""

    def __init__(self, path):
        super().__init__()
        self.links = []
        self.names = set()
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name in ("href", "src") and value:
                self.links.append(value)
            elif name in ("id", "name") and value:
                self.names.add(value)


folder = pathlib.Path(sys.argv[1])
pages = {path.name: Page(path) for path in folder.glob("*.html")}
broken = set()
checked = 0
for page_name, page in pages.items():
    for link in page.links:
        target = urllib.parse.urlsplit(link)
        if target.scheme or target.netloc:
            continue
        checked += 1
        file = urllib.parse.unquote(target.path) or page_name
        place = urllib.parse.unquote(target.fragment)
        if not (folder / file).exists():
            broken.add(f"{page_name}: {link}: no such file")
        elif place and file in pages and place not in pages[file].names:
            broken.add(f"{page_name}: {link}: no such place")
print("\n".join(sorted(broken)) or f"{len(pages)} pages, {checked} links, none broken")
sys.exit(1 if broken or not checked else 0)
