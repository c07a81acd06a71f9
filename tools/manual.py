#!/usr/bin/env python3
"""Keeps what all pages of the manual share, and looks whether the pages hold together.

usage: tools/manual.py make [FOLDER]    writes the line of links of each page, and the index page
       tools/manual.py check [FOLDER]   prints what is wrong, one line each; exit code 1 then

FOLDER is docs/manual beside this file's folder; its commands.html is the batch program's to write. The
index lists the text of every <dfn id="...">, of every heading with an id, and what data-index="..."
adds to either, apart by semicolons. A page is checked for: links, anchors and pictures that are
there, pictures with a text, ids used once, second-level headings with an id, the shared line of
links, and a place in the contents; the index for being made anew; the options page for the text of
every field of the option dialogs; the pages that F1 opens for being there. No browser has a part in
it: tools/check_manual.py looks at the pages in one.
"""

import html
import html.parser
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CONTENTS = "HelpIndex.html"
INDEX = "index.html"
LINKS = (("HelpIndex.html", "Contents"), ("firsthour.html", "A first hour"),
         ("measuring.html", "Measuring well"), ("options.html", "Options"),
         ("commands.html", "Commands"), ("index.html", "Index"))
NAV = "<nav>" + "\n".join(f'<a href="{page}">{text}</a>' for page, text in LINKS) + "</nav>"
NAV_PLACE = re.compile(r"<nav>.*?</nav>", re.S)
HEADINGS = ("h1", "h2", "h3")
FIELD = re.compile(r'\.(?:text|second) = "([^"]+)"')


class Page(html.parser.HTMLParser):
    """What a page holds: ids, links, pictures, terms for the index."""

    def __init__(self, path):
        super().__init__()
        self.ids, self.links, self.pictures, self.terms, self.faults = [], [], [], [], []
        self.title, self.open, self.text = "", None, ""
        with open(path, encoding="utf-8") as file:
            self.source = file.read()
        self.feed(self.source)

    def handle_starttag(self, tag, attributes):
        named = dict(attributes)
        if "id" in named:
            self.ids.append(named["id"])
        for more in filter(None, named.get("data-index", "").split(";")):
            self.terms.append((more.strip(), named.get("id", "")))
        if tag in ("a", "link") and "href" in named:
            self.links.append(named["href"])
        if tag == "img":
            self.pictures.append(named.get("src", ""))
            if not named.get("alt"):
                self.faults.append(f"a picture without a text: {named.get('src')}")
        if tag == "h2" and "id" not in named:
            self.faults.append(f"line {self.getpos()[0]}: a heading without an id")
        if tag in HEADINGS or tag in ("dfn", "title"):
            self.open, self.text = (tag, named.get("id", "")), ""

    def handle_data(self, data):
        self.text += data

    def handle_endtag(self, tag):
        if self.open is None or self.open[0] != tag:
            return
        text = " ".join(self.text.split())
        if tag == "title":
            self.title = text.removesuffix(" - Cantorix")
        elif tag == "h1" or self.open[1]:
            self.terms.append((text, self.open[1]))
        elif tag == "dfn":
            self.faults.append(f"a term without an id: {text}")
        self.open = None


def pages_of(folder):
    return {name: Page(os.path.join(folder, name)) for name in sorted(os.listdir(folder))
            if name.endswith(".html")}


def index_rows(pages):
    """Term: [(address, title of the page)], by the alphabet."""
    rows = {}
    for name, page in pages.items():
        if name in (INDEX, CONTENTS):
            continue
        for term, anchor in page.terms:
            place = (name + ("#" + anchor if anchor else ""), page.title)
            if place not in rows.setdefault(term, []):
                rows[term].append(place)
    return sorted(rows.items(), key=lambda row: (re.sub(r"\W", "", row[0]).lower(), row[0]))


def index_page(pages):
    lines = ["<!DOCTYPE html>", '<html lang="en">', "<head>", '<meta charset="utf-8">',
             '<meta name="viewport" content="width=device-width">',
             "<title>Index - Cantorix</title>", '<link rel="stylesheet" href="style.css">',
             "</head>", "<body>", NAV, "<h1>Index</h1>"]
    groups = {}
    for term, places in index_rows(pages):
        first = re.sub(r"\W", "", term)[:1].upper()
        groups.setdefault(first if first.isalpha() else "0", []).append((term, places))
    lines.append("<p>" + " ".join(f'<a href="#{letter}">{"0-9" if letter == "0" else letter}</a>'
                                  for letter in groups) + "</p>")
    for letter, rows in groups.items():
        lines += [f'<h2 id="{letter}">{"0-9" if letter == "0" else letter}</h2>', "<ul>"]
        for term, places in rows:
            links = ", ".join(f'<a href="{address}">{html.escape(title)}</a>'
                              for address, title in places)
            lines.append(f"<li>{html.escape(term)}: {links}</li>")
        lines.append("</ul>")
    return "\n".join(lines + ["</body>", "</html>", ""])


def dialog_fields():
    path = os.path.join(ROOT, "src/settings/option_forms.cpp")
    with open(path, encoding="utf-8") as file:
        for text in FIELD.findall(file.read()):
            yield " ".join(text.replace("=", " ").split())


def pages_of_windows():
    """The pages that F1 opens."""
    path = os.path.join(ROOT, "src/desktop/main_frame.cpp")
    with open(path, encoding="utf-8") as file:
        return re.findall(r'"(\w+\.html)"', file.read())


def link_faults(folder, pages, page):
    for link in page.links:
        address, _, anchor = link.partition("#")
        if "://" in address:
            yield f"a link out of the manual: {link}"
        elif address and not os.path.exists(os.path.join(folder, address)):
            yield f"a link to nothing: {link}"
        elif anchor and anchor not in (pages[address] if address else page).ids:
            yield f"no such anchor: {link}"
    for picture in page.pictures:
        if not os.path.exists(os.path.join(folder, picture)):
            yield f"no such picture: {picture}"


def faults(folder):
    pages = pages_of(folder)
    for name, page in pages.items():
        for fault in page.faults + list(link_faults(folder, pages, page)):
            yield f"{name}: {fault}"
        for id in sorted({id for id in page.ids if page.ids.count(id) > 1}):
            yield f"{name}: an id used twice: {id}"
        if NAV_PLACE.findall(page.source) != [NAV]:
            yield f"{name}: other links at the top than tools/manual.py make writes"
        if name not in (CONTENTS, *pages[CONTENTS].links):
            yield f"{name}: not in {CONTENTS}"
    if INDEX not in pages or pages[INDEX].source != index_page(pages):
        yield f"{INDEX}: another one than tools/manual.py make writes"
    for name in pages_of_windows():
        if name not in pages:
            yield f"{name}: no such page for F1"
    words = " ".join(html.unescape(re.sub(r"<[^>]*>", "", pages["options.html"].source)).split())
    for field in dialog_fields():
        if field not in words:
            yield f"options.html: no field <{field}>"


def make(folder):
    for name, page in pages_of(folder).items():
        source = NAV_PLACE.sub(NAV, page.source)
        if source != page.source and name != "commands.html":
            with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
                file.write(source)
    with open(os.path.join(folder, INDEX), "w", encoding="utf-8") as file:
        file.write(index_page(pages_of(folder)))


def main(words):
    if len(words) not in (1, 2) or words[0] not in ("make", "check"):
        sys.exit(__doc__)
    folder = words[1] if len(words) == 2 else os.path.join(ROOT, "docs/manual")
    if words[0] == "make":
        return make(folder)
    found = list(faults(folder))
    print("\n".join(found) if found else "The pages of the manual hold together.")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main(sys.argv[1:])
