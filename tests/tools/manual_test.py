#!/usr/bin/env python3
"""Plants one fault at a time in a copy of the manual and looks whether tools/manual.py names it.
Usage: manual_test.py ROOT_OF_THE_SOURCES
"""

import os
import shutil
import subprocess
import sys
import tempfile

# Page, what stands there, what takes its place, what is to be said.
FAULTS = (
    ("log.html", "<html", None, "log.html: no such page for F1"),
    ("log.html", "</h1>", "</h1><a href='gone.html'>x</a>", "log.html: a link to nothing: gone.html"),
    ("log.html", "</h1>", "</h1><a href='labels.html#gone'>x</a>",
     "log.html: no such anchor: labels.html#gone"),
    ("log.html", "</h1>", "</h1><a href='#gone'>x</a>", "log.html: no such anchor: #gone"),
    ("log.html", "</h1>", "</h1><a href='https://example.org'>x</a>",
     "log.html: a link out of the manual: https://example.org"),
    ("log.html", "</h1>", "</h1><img src='../pictures/gone.png' alt='x'>",
     "log.html: no such picture: ../pictures/gone.png"),
    ("log.html", "</h1>", "</h1><img src='../pictures/log.png'>",
     "log.html: a picture without a text: ../pictures/log.png"),
    ("log.html", "</h1>", "</h1><p id='log-saving'>x</p>", "log.html: an id used twice: log-saving"),
    ("log.html", "</h1>", "</h1><h2>x</h2>", ": a heading without an id"),
    ("log.html", "</h1>", "</h1><dfn>term</dfn>", "log.html: a term without an id: term"),
    ("log.html", "<nav>", "<nav>x", "log.html: other links at the top than tools/manual.py make writes"),
    ("log.html", "</h1>", "</h1><dfn id='new'>new term</dfn>",
     "index.html: another one than tools/manual.py make writes"),
    ("HelpIndex.html", '<a href="scope.html">', '<a href="log.html">',
     "scope.html: not in HelpIndex.html"),
    ("options.html", "Tracking threshold (%)", "Threshold", "options.html: no field <Tracking threshold (%)>"),
)


def check(root, folder):
    words = [sys.executable, os.path.join(root, "tools/manual.py"), "check", folder]
    done = subprocess.run(words, stdout=subprocess.PIPE, text=True)
    return done.returncode, done.stdout


def main(root):
    wrong = 0
    with tempfile.TemporaryDirectory() as work:
        shutil.copytree(os.path.join(root, "docs/pictures"), os.path.join(work, "pictures"))
        folder = os.path.join(work, "manual")
        shutil.copytree(os.path.join(root, "docs/manual"), folder)
        code, said = check(root, folder)
        if code != 0:
            print("the manual as it is:\n" + said)
            wrong += 1
        for name, old, new, wanted in FAULTS:
            path = os.path.join(folder, name)
            with open(path, encoding="utf-8") as file:
                whole = file.read()
            os.remove(path)
            if new is not None:
                with open(path, "w", encoding="utf-8") as file:
                    file.write(whole.replace(old, new))
            code, said = check(root, folder)
            if code == 0 or wanted not in said or old not in whole:
                print(f"{name} with <{new}>: exit code {code}, wanted <{wanted}> in:\n{said}")
                wrong += 1
            with open(path, "w", encoding="utf-8") as file:
                file.write(whole)
    sys.exit(1 if wrong else 0)


main(sys.argv[1])
