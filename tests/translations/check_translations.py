#!/usr/bin/env python3
"""Compares the translation file with the texts of the sources, as Qt's own tool finds them.

    check_translations.py LUPDATE SOURCES FILE.ts
    check_translations.py --self-test LUPDATE
"""

import collections
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

PLACEHOLDER = re.compile(r"%(?:n|L?\d{1,2})")
MNEMONIC = re.compile(r"&(?=[^&\s<])")
# Where the text is prose or stands in a file, an ampersand is an ampersand.
WITHOUT_MNEMONICS = {"ZLExportAdvice"}


def messages_of(path):
    """(context, source, disambiguation) and the element of each message of the file."""
    found = {}
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            key = (context.findtext("name"), message.findtext("source"), message.findtext("comment") or "")
            found[key] = message
    return found


def messages_of_sources(lupdate, sources):
    with tempfile.TemporaryDirectory() as folder:
        fresh = Path(folder) / "fresh_de.ts"
        subprocess.run([lupdate, "-silent", "-locations", "none", "-I", sources, sources, "-ts", fresh], check=True)
        return messages_of(fresh)


def forms_of(message):
    translation = message.find("translation")
    if message.get("numerus") == "yes":
        return [form.text or "" for form in translation.iter("numerusform")]
    return [translation.text or ""]


def faults_of_form(context, source, form):
    if not form.strip() and source.strip():
        yield "it has no translation"
        return
    if collections.Counter(PLACEHOLDER.findall(source)) != collections.Counter(PLACEHOLDER.findall(form)):
        yield f"the placeholders differ: {form!r}"
    if context not in WITHOUT_MNEMONICS and bool(MNEMONIC.search(source)) != bool(MNEMONIC.search(form)):
        yield f"one has a mnemonic, the other has none: {form!r}"
    for ending in ("…", ":", "\n"):
        if source.endswith(ending) != form.endswith(ending):
            yield f"one ends with {ending!r}, the other does not: {form!r}"


def complaints(lupdate, sources, path):
    wanted, present = messages_of_sources(lupdate, sources), messages_of(path)
    if not wanted:
        return [f"{sources}: no texts"]
    found = [f"{context}: {source!r} is missing, build the target update_translations"
             for context, source, _ in wanted.keys() - present.keys()]
    found += [f"{context}: {source!r} is no text of the sources any more, build the target update_translations"
              for context, source, _ in present.keys() - wanted.keys()]
    for (context, source, _), message in present.items():
        kind = message.find("translation").get("type")
        if kind:
            found.append(f"{context}: {source!r} is {kind}")
        for form in forms_of(message):
            found += [f"{context}: {source!r}: {fault}" for fault in faults_of_form(context, source, form)]
    return sorted(found)


SOURCE = """class A { Q_OBJECT; void f() { tr("&Open…"); tr("%1 of %2:"); tr("New"); } };"""
FILE = """<!DOCTYPE TS><TS version="2.1" language="de"><context><name>A</name>
<message><source>&amp;Open…</source><translation>Ö&amp;ffnen…</translation></message>
<message><source>%1 of %2:</source><translation>%1 von %2:</translation></message>
<message><source>New</source><translation>Neu</translation></message></context></TS>"""
# What is done to the good file, and what is said of it.
DAMAGES = [
    ("<translation>Neu", '<translation type="unfinished">Neu', "unfinished"),
    ("<translation>Neu", '<translation type="vanished">Neu', "vanished"),
    ("<translation>Neu", "<translation>", "no translation"),
    ("<source>New", "<source>Old", "missing"),
    ("<source>New", "<source>Old", "any more"),
    ("%1 von %2:", "%1 von %1:", "placeholders"),
    ("%1 von %2:", "%1 von %2", "ends with"),
    ("Ö&amp;ffnen…", "Öffnen…", "mnemonic"),
]


def self_test(lupdate):
    """A complete file passes, and each damage to it is found."""
    with tempfile.TemporaryDirectory() as name:
        sources = Path(name) / "src"
        sources.mkdir()
        (sources / "A.cpp").write_text(SOURCE, encoding="utf-8")
        path = Path(name) / "a_de.ts"
        path.write_text(FILE, encoding="utf-8")
        if complaints(lupdate, sources, path):
            print("a complete file was refused:", complaints(lupdate, sources, path))
            return 1
        for before, after, words in DAMAGES:
            path.write_text(FILE.replace(before, after), encoding="utf-8")
            if not any(words in complaint for complaint in complaints(lupdate, sources, path)):
                print(f"not found: {after}: {words}")
                return 1
    return 0


def main():
    if sys.argv[1] == "--self-test":
        return self_test(sys.argv[2])
    found = complaints(*sys.argv[1:4])
    print("\n".join(found) or "every text is translated")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
