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
        self.links, self.pictures, self.problems, self.stack, self.words = [], [], [], [], []
        self.feed(path.read_text(encoding="utf-8"))
        self.problems += [f"<{tag}> stays open" for tag in self.stack]
        self.text = re.sub(r"\s+", " ", "".join(self.words))

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        self.links += [values["href"]] if "href" in values else []
        if tag == "img":
            self.pictures.append(values["src"])
            self.problems += [] if values.get("alt") else [f"no words for {values['src']}"]
        if tag not in OPEN:
            self.stack.append(tag)

    def handle_endtag(self, tag):
        if not self.stack or self.stack.pop() != tag:
            self.problems.append(f"</{tag}> in line {self.getpos()[0]} ends nothing")

    def handle_data(self, data):
        self.words.append(data)


class Help(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pages = {path.name: Page(path) for path in HELP.glob("*.html")}
        assert len(cls.pages) > 20, HELP

    def test_pages_are_whole(self):
        for name, page in self.pages.items():
            self.assertEqual(page.problems, [], name)
            self.assertNotIn("@", re.sub(r"\w+@\w+", "", page.text), name)

    def test_links_and_pictures_lead_somewhere(self):
        linked, pictures = set(), set()
        for name, page in self.pages.items():
            for target in page.links + page.pictures:
                self.assertTrue((HELP / target).is_file(), f"{name}: {target}")
            pictures.update(page.pictures)
        linked.update(self.pages["Netrove.html"].links)
        self.assertEqual(set(self.pages) - linked, {"Netrove.html"}, "not in the contents")
        drawn = {f"pictures/{path.name}" for path in (HELP / "pictures").iterdir()}
        self.assertEqual(drawn - pictures, set(), "shown nowhere")

    def test_menus_are_told(self):
        source = MENU.read_text(encoding="utf-8")
        captions = re.findall(r'\{"\w+(?:\(\d+\))?",\s*"([^"]+)"', source)
        self.assertGreater(len(captions), 50)
        text = " ".join(page.text for page in self.pages.values())
        missing = [caption for caption in captions
                   if caption.replace("&", "").strip() not in text]
        self.assertEqual(missing, [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
