#!/usr/bin/env python3
"""Makes a page for the browser of a document: make_page.py STYLE DOCUMENT.md PAGE.html.

A language in the document's name (GUIDE.de.md) is that of the page; all others are in English. Links to other documents
lead to their pages and name their titles, and headings have the names that links use.
"""

import re
import sys
from html import escape
from pathlib import Path

from markdown_it import MarkdownIt

PAGE = """<!DOCTYPE html>
<html xmlns="http://www.w3.org/1999/xhtml" lang="{language}" xml:lang="{language}">
<head>
<meta charset="utf-8"/>
<meta name="viewport" content="width=device-width, initial-scale=1"/>
<meta name="color-scheme" content="light dark"/>
<title>{title}</title>
<style>
{style}</style>
</head>
<body>
<main>
{content}</main>
</body>
</html>
"""


def name_of_heading(text):
    return re.sub(r"[^\w\- ]", "", text.lower()).replace(" ", "-")


def name_headings(tokens):
    for opening, inline in zip(tokens, tokens[1:]):
        if opening.type == "heading_open":
            opening.attrSet("id", name_of_heading(inline.content))


def lead_links_to_pages(tokens, folder):
    for inline in tokens:
        for opening, text in zip(inline.children or [], (inline.children or [])[1:]):
            if opening.type != "link_open":
                continue
            document = re.match(r"[\w.-]+\.md(?=#|$)", opening.attrGet("href"))
            if document is None:
                continue
            opening.attrSet("href", opening.attrGet("href").replace(".md", ".html", 1))
            if text.content == document[0]:
                text.content = title_of(parser().parse((folder / document[0]).read_text(encoding="utf-8")))


def title_of(tokens):
    return next(inline.content for opening, inline in zip(tokens, tokens[1:]) if opening.type == "heading_open")


def parser():
    return MarkdownIt("commonmark", {"html": False, "xhtmlOut": True}).enable("table")


def page_of(document, style):
    markdown = parser()
    tokens = markdown.parse(document.read_text(encoding="utf-8"))
    name_headings(tokens)
    lead_links_to_pages(tokens, document.parent)
    language = re.fullmatch(r"\w+\.(\w+)\.md", document.name)
    return PAGE.format(
        language=language[1] if language else "en", title=escape(title_of(tokens)), style=style,
        content=markdown.renderer.render(tokens, markdown.options, {}))


def main():
    style, document, page = map(Path, sys.argv[1:])
    page.write_text(page_of(document, style.read_text(encoding="utf-8")), encoding="utf-8")


if __name__ == "__main__":
    main()
