#!/usr/bin/env python3
"""words.py - the texts of the desktop for its translators, and what they made of them.

usage: tools/words.py update    # new texts into every src/desktop/translations/*.ts, gone ones out
       tools/words.py check     # every text has a finished translation with the same placeholders

Texts come from four places:
  - Tr("..."), TrOn(style, "...") and Marked("...") in src/desktop;
  - the tables of commands, which know no language: every text in them;
  - translations/sentences.txt: what other libraries say. A number, and what stands in quotes, is
    "%1", "%2"; every word between them must be found in the sources;
  - translations/signs.txt: names of phonetic signs and their words, a context of their own.
translations/kept.txt lists texts of the tables that keep their words in every language.
"""
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree
from xml.sax.saxutils import escape

ROOT = pathlib.Path(__file__).resolve().parent.parent
TEXTS, SIGNS = "Cantorix", "Phonetic signs"  # the contexts of paint/words.cpp
FOLDER = ROOT / "src/desktop/translations"
TABLES = ["src/mainview/command_table.cpp", "src/analysisview/window_commands.cpp"]
LITERAL = r'"(?:[^"\\\n]|\\.)*"'
LITERALS = rf"{LITERAL}(?:\s*{LITERAL})*"
CALLS = re.compile(rf"\b(?:Tr|Marked)\(\s*({LITERALS})|\bTrOn\(\s*[\w.]+,\s*({LITERALS})")
KEYS = re.compile(r"(?:(?:Ctrl|Shift|Alt)\+\S+ ?)+|F\d+|Del|Tab|Esc|Return|[\w/]+\.h")
ESCAPES = {"n": "\n", "t": "\t", '"': '"', "\\": "\\"}


def plain(literals):
    """The text of literals that stand one behind the other."""
    text = "".join(part[1:-1] for part in re.findall(LITERAL, literals))
    text = re.sub(r"\\u([0-9a-fA-F]{4})", lambda m: chr(int(m[1], 16)), text)
    return re.sub(r'\\([nt"\\])', lambda m: ESCAPES[m[1]], text)


def code(path):
    return re.sub(r"^\s*//.*|\s// .*", "", path.read_text(), flags=re.M)


def lines(name):
    return [line for line in (FOLDER / name).read_text().splitlines() if line]


def sources():
    """Where each text stands, by context and text."""
    found = {}
    for path in sorted((ROOT / "src/desktop").rglob("*.[ch]*")):
        for match in CALLS.finditer(code(path)):
            found[TEXTS, plain(match[1] or match[2])] = str(path.relative_to(ROOT))
    kept = set(lines("kept.txt"))
    for table in TABLES:
        for match in re.finditer(LITERALS, code(ROOT / table)):
            text = plain(match[0])
            if re.search("[A-Za-z]", text) and not KEYS.fullmatch(text) and text not in kept:
                found.setdefault((TEXTS, text), table)
    for context, name in ((TEXTS, "sentences.txt"), (SIGNS, "signs.txt")):
        for text in lines(name):
            found.setdefault((context, text), name)
    return found


def translations(path):
    """Each translation, and whether it is finished, by context and text."""
    if not path.exists():
        return {}
    return {(context.findtext("name"), m.findtext("source")):
            (m.findtext("translation") or "", m.find("translation").get("type") is None)
            for context in ElementTree.parse(path).getroot().iter("context")
            for m in context.iter("message")}


def update(path):
    have = translations(path)
    wanted = sources()
    out = ['<?xml version="1.0" encoding="utf-8"?>', "<!DOCTYPE TS>",
           f'<TS version="2.1" language="{path.stem.split("_")[1]}" sourcelanguage="en">']
    for context in (TEXTS, SIGNS):
        out += ["<context>", f"    <name>{context}</name>"]
        for source in sorted(text for of, text in wanted if of == context):
            text, finished = have.get((context, source), ("", False))
            mark = "" if finished else ' type="unfinished"'
            out += ["    <message>", f"        <source>{escape(source)}</source>",
                    f"        <translation{mark}>{escape(text)}</translation>", "    </message>"]
        out.append("</context>")
    path.write_text("\n".join(out + ["</TS>", ""]))


def places(text):
    return sorted(re.findall(r"%\d", text))


def faults(path):
    have = translations(path)
    wanted = sources()
    for source in sorted(wanted.keys() - have.keys()):
        yield f"not in the file: {source!r} ({wanted[source]})"
    for source in sorted(have.keys() - wanted.keys()):
        yield f"in no source: {source!r}"
    for (_, source), (text, finished) in have.items():
        if not finished or not text.strip():
            yield f"not translated: {source!r}"
        elif places(source) != places(text):
            yield f"other placeholders: {source!r}: {text!r}"
        elif (re.search(r"&\w", source) is None) != (re.search(r"&\w", text) is None):
            yield f"a letter for the keyboard in one only: {source!r}: {text!r}"


def stale_sentences():
    """What the libraries do not say any more."""
    said = {word for path in (ROOT / "src").rglob("*.[ch]*")
            for m in re.finditer(LITERALS, code(path)) for word in re.findall(r"\w+", plain(m[0]).lower())}
    for sentence in lines("sentences.txt") + lines("signs.txt"):
        for word in re.findall(r"\w+", re.sub(r"%\d", "", sentence)):
            if word.lower() not in said:
                yield f"said nowhere: {word!r} of {sentence!r}"


def main(arguments):
    files = sorted(FOLDER.glob("cantorix_*.ts"))
    if arguments == ["update"]:
        for path in files:
            update(path)
        return 0
    if arguments != ["check"]:
        sys.exit(__doc__)
    found = list(stale_sentences())
    for path in files:
        found += [f"{path.name}: {fault}" for fault in faults(path)]
    print("\n".join(found) or f"{len(sources())} texts in {len(files)} translation(s)")
    return 1 if found else 0


sys.exit(main(sys.argv[1:]))
