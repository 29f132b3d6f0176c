"""The rooms of src, as the build files list them, and what their files include."""

import dataclasses
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCES = ROOT / "src"
TARGET = re.compile(r"netrove_(library|program)\(\s*([\w-]+)\s*(WIDGETS)?(.*?)\)", re.DOTALL)


@dataclasses.dataclass
class Room:
    """One library or program; the first one of a folder is the room proper."""

    name: str
    folder: str  # relative to src
    kind: str  # "core", "window" or "program"
    files: list  # headers and sources
    public: list  # the rooms that its headers may include
    private: list  # those that only its sources may include; a program lists them as LINKS

    @property
    def links(self):
        return self.public + self.private


def _lists(text):
    """The named lists of a call: {"SOURCES": […], "PUBLIC": […], …}."""
    found, name = {}, ""
    for word in re.sub(r"#.*", "", text).split():
        if word in ("SOURCES", "PUBLIC", "PRIVATE", "LINKS"):
            name = word
        else:
            found.setdefault(name, []).append(word)
    return found


def _of_folder(file):
    folder = file.parent
    rooms = []
    for kind, name, widgets, rest in TARGET.findall(file.read_text(encoding="utf-8")):
        lists = _lists(rest)
        kind = "program" if kind == "program" else "window" if widgets else "core"
        rooms.append(Room(name, str(folder.relative_to(SOURCES)), kind,
                          [folder / source for source in lists.get("SOURCES", [])],
                          lists.get("PUBLIC", []),
                          lists.get("PRIVATE", []) + lists.get("LINKS", [])))
    for header in sorted(folder.glob("*.h")):
        owner = next((room for room in rooms if header.with_suffix(".cpp") in room.files), rooms[0])
        if header not in owner.files:
            owner.files.append(header)
    return rooms


def read():
    """All rooms, in the order of src/CMakeLists.txt."""
    listed = re.findall(r"add_subdirectory\(([\w/]+)\)",
                        (SOURCES / "CMakeLists.txt").read_text(encoding="utf-8"))
    folders = [SOURCES / folder for folder in listed]
    files = [file for folder in folders for file in sorted(folder.rglob("CMakeLists.txt"))
             if file.parent == folder or file.parent not in folders]
    rooms = [room for file in files for room in _of_folder(file)]
    names = {room.name for room in rooms}
    for room in rooms:
        room.public = [name for name in room.public if name in names]
        room.private = [name for name in room.private if name in names]
    return rooms


def owner_of(rooms):
    """The room that owns a header "folder/Name.h": {"folder/Name": room's name}."""
    return {str(file.relative_to(SOURCES).with_suffix("")): room.name
            for room in rooms for file in room.files if file.suffix == ".h"}


def included(files, owners):
    """The rooms whose headers these files include."""
    found = set()
    for file in files:
        for match in re.finditer(r'^#include "([\w/]+)\.h"', file.read_text(encoding="utf-8"),
                                 re.MULTILINE):
            if match.group(1) in owners:
                found.add(owners[match.group(1)])
    return found


def drawn_edges(rooms):
    """The links, as pairs of names, except those that a path over other rooms replaces."""
    links = {room.name: room.links for room in rooms}

    def reachable(name, seen):
        for other in links[name]:
            if other not in seen:
                seen.add(other)
                reachable(other, seen)
        return seen

    for room in rooms:
        for other in sorted(room.links):
            through = set().union(*(reachable(one, set()) for one in room.links if one != other))
            if other not in through:
                yield room.name, other
