#!/usr/bin/python3
"""The translations against the texts of the sources: nothing is missing, nothing is left over, and
what a program puts into a text or makes of it is in the translation too."""

import functools
import glob
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

SOURCE = sys.argv.pop(1)
FILES = glob.glob(os.path.join(SOURCE, "resources/translations/*.ts"))
MNEMONIC = re.compile(r"&(?=\w)")


def messages(path):
    """Source and translation of every text; each plural form is one."""
    for message in ElementTree.parse(path).getroot().iter("message"):
        translation = message.find("translation")
        forms = translation.findall("numerusform") or [translation]
        for form in forms:
            yield message.find("source").text, form.text or ""


class Translations(unittest.TestCase):
    def test_are_up_to_date_and_complete(self):
        """The script leaves them as they are."""
        if not shutil.which("qtpaths6"):
            self.skipTest("qtpaths6 is missing")
        tools = subprocess.run(["qtpaths6", "--query", "QT_INSTALL_BINS"], text=True, check=True,
                               stdout=subprocess.PIPE).stdout.strip()
        if not os.path.exists(os.path.join(tools, "lupdate")):
            self.skipTest("lupdate is missing")
        with tempfile.TemporaryDirectory() as copy:
            for folder in ("src", "scripts", "resources/translations"):
                shutil.copytree(os.path.join(SOURCE, folder), os.path.join(copy, folder))
            done = subprocess.run([os.path.join(copy, "scripts/update-translations")], text=True,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
            self.assertEqual((done.returncode, done.stdout), (0, ""))
            for path in FILES:
                updated = os.path.join(copy, os.path.relpath(path, SOURCE))
                with open(path, encoding="utf-8") as here, open(updated, encoding="utf-8") as there:
                    self.assertEqual(here.read(), there.read(), "run scripts/update-translations")

    def test_keep_what_programs_rely_on(self):
        self.assertTrue(FILES)
        for path in FILES:
            for source, text in messages(path):
                with self.subTest(file=os.path.basename(path), source=source):
                    self.assertTrue(text)
                    for what in (r"%(?:\d|n)", r"--[a-z-]+", r"\.\.\.$", r"\n+$"):
                        self.assertEqual(sorted(re.findall(what, source)),
                                         sorted(re.findall(what, text)), what)
                    self.assertEqual(len(MNEMONIC.findall(source)), len(MNEMONIC.findall(text)))
                    self.assertLessEqual(max(map(len, text.split("\n"))),
                                         80 if "\n" in source else 200)


# A text in a source with two letters in a row is "L", any other "", a character C, and a translated
# text TR; what they are joined with may have brackets four deep.
TOKEN = re.compile(r'//[^\n]*|u?"((?:[^"\\]|\\.)*)"' + r"|u?'(?:[^'\\\n]|\\.)'")
BRACKETS = functools.reduce(lambda inner, _: rf"\((?:[^()]|{inner})*\)", range(4), r"\([^()]*\)")
TRANSLATED = re.compile(rf"(?:\w+::)?\btr{BRACKETS}|[\w()>.-]+Description\(\)")
PART = rf'(?:u?"L?"|C|[\w:]+(?:{BRACKETS})?(?:(?:\.|->)\w+(?:{BRACKETS})?)*)'
JOINED = re.compile(rf"{PART}(?:\s*\+\s*{PART})+")


def simple(token):
    if token[1] is None:
        return "" if token[0].startswith("/") else "C"
    # "netrove: " is the name of a program.
    words = re.search("[A-Za-z]{2}", re.sub(r"\\.", "", token[1]))
    return '"L"' if words and not re.fullmatch("[a-z-]+: ", token[1]) else '""'


def mixtures(code):
    """What is joined from a translated text and one in English."""
    code = re.sub(rf"\.arg{BRACKETS}", "", TOKEN.sub(simple, code))
    return [joined for joined in JOINED.findall(TRANSLATED.sub("TR", code))
            if "TR" in joined and '"L"' in joined]


class Sources(unittest.TestCase):
    def test_join_no_translated_text_with_an_english_one(self):
        self.assertTrue(mixtures('tr("It (53)").arg(at(1)) + u\'.\' + Text("Ends.")'))
        for path in glob.glob(os.path.join(SOURCE, "src/**/*.[ch]*"), recursive=True):
            with open(path, encoding="utf-8") as source:
                self.assertEqual(mixtures(source.read()), [], path)


if __name__ == "__main__":
    unittest.main(verbosity=2)
