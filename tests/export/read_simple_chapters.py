"""Reads a Podlove Simple Chapters file with the XML parser of Python's library and prints its entries as JSON."""

import json
import sys
import xml.etree.ElementTree

NAMESPACE = "{http://podlove.org/simple-chapters}"

root = xml.etree.ElementTree.parse(sys.argv[1]).getroot()
if root.tag != NAMESPACE + "chapters" or root.attrib != {"version": "1.2"}:
    sys.exit(f"unexpected root: {root.tag} {root.attrib}")
for chapter in root:
    if chapter.tag != NAMESPACE + "chapter" or chapter.text or len(chapter):
        sys.exit(f"unexpected element: {chapter.tag}")
print(json.dumps([chapter.attrib for chapter in root]))
