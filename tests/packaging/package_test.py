#!/usr/bin/python3
"""Installs the build at hand into an empty folder and looks at what is there: with the validators of
desktops, man pages and shells, and by running the installed programs."""

import glob
import gzip
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

BUILD = sys.argv.pop(1)
SMALL = ("usr/share/icons/hicolor/16x16/apps/netrove.png",
         "usr/share/icons/hicolor/scalable/mimetypes/application-x-netrove-results.svg")
COMPLETIONS = {"bash": "usr/share/bash-completion/completions/netrove-find",
               "zsh": "usr/share/zsh/site-functions/_netrove-find",
               "fish": "usr/share/fish/vendor_completions.d/netrove-find.fish"}


def run(*command, **options):
    return subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          check=False, timeout=240, **options)


def needs(tool):
    return unittest.skipUnless(shutil.which(tool), f"{tool} is missing")


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix="netrove-package-")
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        done = run("cmake", "--install", BUILD, "--prefix", cls.path("usr"))
        assert done.returncode == 0, done.stdout

    @classmethod
    def path(cls, below):
        return os.path.join(cls.folder, below)

    def validate(self, tool, *arguments, **options):
        """Runs a validator: it must be content, and have nothing to say."""
        if not shutil.which(tool):
            self.skipTest(f"{tool} is missing")
        done = run(tool, *arguments, **options)
        self.assertEqual((done.returncode, done.stdout), (0, ""), (tool, *arguments))

    def test_desktop_entry(self):
        self.validate("desktop-file-validate",
                      self.path("usr/share/applications/netrove.desktop"))
        for icon in SMALL:
            self.assertTrue(os.path.exists(self.path(icon)), icon)

    @needs("appstreamcli")
    def test_metainfo(self):
        folder = self.path("usr/share/metainfo")
        done = run("appstreamcli", "validate", "--no-net", "--pedantic",
                   *(os.path.join(folder, name) for name in os.listdir(folder)))
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertNotRegex(done.stdout, r"(?m)^[EWIP]:")

    def test_results_files_have_a_type(self):
        self.validate("xmllint", "--noout", self.path("usr/share/mime/packages/netrove.xml"))
        self.validate("update-mime-database", self.path("usr/share/mime"),
                      env=dict(os.environ, XDG_DATA_HOME=self.path("usr/share")))
        with open(self.path("usr/share/mime/globs2"), encoding="utf-8") as globs:
            kind = re.search(r":(.*):\*\.nrr$", globs.read(), re.MULTILINE)[1]
        with open(self.path("usr/share/applications/netrove.desktop"), encoding="utf-8") as entry:
            self.assertIn(f"MimeType={kind};", entry.read())
        self.assertIn(f"mimetypes/{kind.replace('/', '-')}.svg", SMALL[1])

    def test_man_pages(self):
        for page in ("man1/netrove.1", "man1/netrove-find.1", "man8/netrove-smb.8"):
            with self.subTest(page=page):
                path = self.path(f"usr/share/man/{page}.gz")
                self.validate("mandoc", "-Tlint", "-Wwarning", path)
                self.assertIn("NAME", run("man", "-l", path).stdout)

    def test_what_is_known_of_the_options(self):
        """Completions and man page against the program's own help."""
        found = re.findall(r"(?m)^ {2,6}(?:-h, )?(--[\w-]+)",
                           run(self.path("usr/bin/netrove-find"), "--help").stdout)
        self.assertGreater(len(found), 9)
        options = sorted(found)
        for shell, file in COMPLETIONS.items():
            with open(self.path(file), encoding="utf-8") as script:
                text = re.sub(r"(?<= )-l ", "--", script.read())
            known = set(re.findall(r"(?<![\w-])--[a-z][\w-]*", text))
            self.assertEqual(sorted(known), options, shell)
            with self.subTest(shell=shell):
                self.validate(shell, "-n", self.path(file))
        page = run("man", "-l", self.path("usr/share/man/man1/netrove-find.1.gz"),
                   env=dict(os.environ, LC_ALL="C.UTF-8", MANWIDTH="200")).stdout
        for option in options:
            self.assertRegex(page, rf"(?m)^ +(-h, )?{option}\b")

    def test_programs_run_where_they_are_installed(self):
        before = set(os.listdir(self.path("usr/bin")))
        self.assertEqual(before, {"netrove", "netrove-find"})
        data = self.path("home/data/netrove")
        shutil.copytree(self.path("usr/share/doc/netrove/examples"), data)
        with open(os.path.join(data, "network.ini"), "r+", encoding="utf-8") as networks:
            text = networks.read().replace("Type=smb", "Type=smb\nFind=No")
            networks.seek(0)
            networks.write(text)
        find = [self.path("usr/bin/netrove-find"), "--from", "Sample Network"]
        user = dict(os.environ, HOME=self.path("home"), XDG_DATA_HOME=self.path("home/data"))
        done = run(*find, "--details", "*.mp3", env=user)
        self.assertEqual(done.returncode, 0, done.stdout)
        *lines, silent = done.stdout.splitlines()
        self.assertEqual(silent, "netrove-find: 1 computer, 1 share not searched: "
                         r"\\PELICAN \\BARLEY\Private")
        for line in lines:  # with a bit rate and a frequency
            self.assertRegex(line, r"^[^\t]+(\t[^\t]*){5}\t[1-9]\d*\t[1-9]\d{3,}$")
        there = [file.name for file in pathlib.Path(data).rglob("*.[mM][pP]3")
                 if not re.search(r"/PELICAN/|/Private/|\$/", str(file))]
        self.assertEqual(sorted(line.split("\t")[0] for line in lines), sorted(there))
        with subprocess.Popen([*find, "*"], env=user, text=True, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL) as stopped:
            stopped.stdout.readline()
            stopped.terminate()
            self.assertEqual(stopped.wait(60), 128 + signal.SIGTERM)
        for name in ("netrove", "netrove-find"):
            self.assertRegex(run(self.path(f"usr/bin/{name}"), "--version").stdout,
                             rf"^{name} [\d.]+\n$")
        self.assertEqual(run(self.path("usr/libexec/netrove/netrove-smb")).returncode, 2)
        self.assertTrue(os.path.exists(self.path("usr/share/netrove/Help/Netrove.html")))
        self.assertEqual(set(os.listdir(self.path("usr/bin"))), before)

    @needs("dpkg-shlibdeps")
    def test_debian_package(self):
        """Of sanitized programs, but with everything else as it will be."""
        done = run("cpack", "-G", "DEB", "-B", self.path("deb"), cwd=BUILD)
        self.assertEqual(done.returncode, 0, done.stdout)
        package, = glob.glob(self.path("deb/*.deb"))
        self.validate("lintian", "--allow-root", "--fail-on", "error,warning", package)
        version = run("dpkg-deb", "-f", package, "Version").stdout.strip()
        with gzip.open(self.path("usr/share/doc/netrove/changelog.Debian.gz"), "rt") as changes:
            self.assertIn(f"({version})", changes.readline())
        depends = run("dpkg-deb", "-f", package, "Depends").stdout
        for needed in ("libqt6svg6", "libqt6widgets6", "libsmbclient", "libqt6keychain1"):
            self.assertIn(needed, depends)


if __name__ == "__main__":
    unittest.main(verbosity=2)
