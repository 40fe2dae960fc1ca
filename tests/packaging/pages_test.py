#!/usr/bin/env python3
"""The documents as pages: as the build makes them, and as a document with every kind of content becomes one."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import pages

BUILD = Path(sys.argv.pop(1)).resolve()
DOCUMENTS = Path(__file__).resolve().parents[2] / "docs"


class BuiltPagesTest(unittest.TestCase):
    def test_nothing_is_wrong_with_them(self):
        self.assertEqual(pages.faults_below(BUILD / "docs"), [])

    def test_the_guide_is_there_in_both_languages_with_its_pictures(self):
        for name, language in (("GUIDE.html", "en"), ("GUIDE.de.html", "de")):
            page = pages.Page(BUILD / "docs" / name)
            self.assertEqual(page.language, language)
            self.assertGreaterEqual(len(page.pictures), 6)

    def test_both_guides_have_the_same_chapters(self):
        english, german = (pages.Page(BUILD / "docs" / name) for name in ("GUIDE.html", "GUIDE.de.html"))
        self.assertEqual(len(german.names), len(english.names))
        self.assertEqual(len(german.pictures), len(english.pictures))
        self.assertEqual([link for link in german.links if link.startswith("FORMATS")],
                         [link for link in english.links if link.startswith("FORMATS")])


class MakingPagesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def make(self, text, name="X"):
        document, page = self.folder / f"{name}.md", self.folder / f"{name}.html"
        document.write_text(text)
        subprocess.run(["/usr/bin/python3", DOCUMENTS / "pages/make_page.py", DOCUMENTS / "pages/page.css", document, page],
                       check=True)
        return page

    def test_headings_have_the_names_that_links_use(self):
        page = self.make("# Über `alles` & mehr\n[up](#über-alles--mehr)\n")
        self.assertEqual(pages.faults_below(self.folder), [])
        self.assertIn("<title>Über `alles` &amp; mehr</title>", page.read_text())

    def test_links_to_documents_lead_to_their_pages(self):
        self.make("# One\n", "ONE.de")
        page = self.make("# Two\n[one](ONE.de.md#one) [far](https://example.org/x.md)\n")
        self.assertEqual(pages.Page(page).links, ["ONE.de.html#one", "https://example.org/x.md"])
        self.assertEqual(pages.faults_below(self.folder), [])

    def test_a_link_that_names_a_file_names_its_title_on_the_page(self):
        self.make("# All about one\n", "ONE")
        text = self.make("# Two\n[ONE.md](ONE.md#all-about-one) and [this](ONE.md)\n").read_text()
        self.assertIn('<a href="ONE.html#all-about-one">All about one</a> and <a href="ONE.html">this</a>', text)

    def test_tables_and_special_characters(self):
        text = self.make("# T\n\n| a | b |\n|---|---|\n| <b> | `x & y` |\n").read_text()
        self.assertIn("<td>&lt;b&gt;</td>", text)
        self.assertIn("<code>x &amp; y</code>", text)

    def test_what_is_wrong_is_found(self):
        page = self.make("# T\n[lost](LOST.md) [lost](#lost) ![](X.md)\n")
        self.assertEqual(len(pages.faults_below(self.folder)), 4)
        page.write_text("<html><p></html>")
        self.assertGreaterEqual(len(pages.faults_below(self.folder)), 2)


if __name__ == "__main__":
    unittest.main()
