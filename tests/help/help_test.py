#!/usr/bin/python3
"""Reads the built help as a browser would: whole pages, links and pictures that lead somewhere, and
every item of the menus in the text."""

import html.parser
import pathlib
import re
import sys
import unittest

MENU = pathlib.Path(sys.argv.pop())
HELP = pathlib.Path(sys.argv.pop())
# Elements without an end, and those whose end may be left out.
OPEN = {"meta", "link", "img", "br", "tr", "th", "td", "li", "dt", "dd"}


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.links, self.pictures, self.problems, self.stack, self.text = [], [], [], [], ""
        self.places = set()
        self.feed(path.read_text(encoding="utf-8"))
        self.problems += [f"<{tag}> stays open" for tag in self.stack]

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        self.links += [values["href"]] if "href" in values else []
        self.places.add(values.get("id"))
        if tag == "img":
            self.pictures.append(values["src"])
            self.problems += [] if values.get("alt") else [f"no words for {values['src']}"]
        if tag not in OPEN:
            self.stack.append(tag)

    def handle_endtag(self, tag):
        if not self.stack or self.stack.pop() != tag:
            self.problems.append(f"</{tag}> in line {self.getpos()[0]} ends nothing")

    def handle_data(self, data):
        self.text += data


class Help(unittest.TestCase):
    def test_pages_are_whole_and_lead_somewhere(self):
        pages = {path.name: Page(path) for path in HELP.glob("*.html")}
        self.assertGreater(len(pages), 20)
        for name, page in pages.items():
            self.assertEqual(page.problems, [], name)
            self.assertNotIn("@", re.sub(r"\w+@\w+", "", page.text), name)
            for target in page.links + page.pictures:
                file, _, place = target.partition("#")
                self.assertTrue((HELP / file).is_file(), f"{name}: {target}")
                self.assertTrue(not place or place in pages[file].places, f"{name}: {target}")
        linked = {"Netrove.html", *pages["Netrove.html"].links}
        self.assertEqual(set(pages) - linked, set(), "not in the contents")
        drawn = {f"pictures/{path.name}" for path in (HELP / "pictures").iterdir()}
        shown = {picture for page in pages.values() for picture in page.pictures}
        self.assertEqual(drawn - shown, set(), "shown nowhere")

        marked = r'(?:QT_TRANSLATE_NOOP\("[^"]+",\s*)?'
        captions = re.findall(rf'\{{"\w+(?:\(\d+\))?",\s*{marked}"([^"]+)"',
                              MENU.read_text(encoding="utf-8"))
        self.assertGreater(len(captions), 50)
        text = re.sub(r"\s+", " ", " ".join(page.text for page in pages.values()))
        self.assertEqual([caption for caption in captions
                          if caption.replace("&", "").strip() not in text], [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
