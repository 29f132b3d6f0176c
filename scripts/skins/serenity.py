"""Serenity: deep water that fades into mist, hills and a pale sun."""

from math import cos, pi, sin

from skins.canvas import below
from skins.buttons import SMALL, sign

FILES = {"title": 0, "frame": 1}
TITLE, CUTS, CELL, ROWS = (640, 48), (90, 140, 240, 400), (10, 10), 1

# From the caption's deep water to the mist: three waves lie between them.
ACTIVE = {"water": ("#327f9e", "#276d8b", "#1a5470"), "waves": ("#3f8dae", "#66abc8", "#95cbe0"),
          "mist": ("#e6f4fa", "#b9deec", "#7bbdd6"), "hills": ("#b4dcea", "#98cde0", "#7bbdd6"),
          "sun": "#ffffff", "crest": "#d5eef8"}
INACTIVE = {"water": ("#f7fbfd", "#eaf4f8", "#dcedf4"), "waves": ("#d3e6ee", "#dbebf2", "#e4f0f5"),
            "mist": ("#f4f9fb", "#e2eef3", "#cfe2ea"), "hills": ("#dbe9ef", "#d0e2ea", "#c5dbe5"),
            "sun": "#ffffff", "crest": "#ffffff"}


def title(canvas, active):
    colours = ACTIVE if active else INACTIVE
    canvas.rect(0, 0, 640, 24, canvas.shade(*colours["mist"]))
    hills(canvas, colours)
    shore(canvas, colours)
    canvas.rect(0, 0, 640, 1, "#ffffff", opacity=0.35)


def shore(canvas, colours):
    """The waves, the farthest first, and the deep water in front of them."""
    for reach, colour in zip((238, 214, 190), reversed(colours["waves"])):
        canvas.path(wave(reach), colour)
    canvas.path(wave(168), canvas.shade(*colours["water"]))
    canvas.line("M146 1C158 2 158 22 167 23.4", colours["crest"], 0.8, opacity=0.55)


def wave(reach):
    """Everything to the left of an S-shaped edge that falls from left to right."""
    top = reach - 26
    return f"M0 0H{top}C{top + 16} 1 {top + 10} 23 {reach} 24H0Z"


def hills(canvas, colours):
    far, middle, near = colours["hills"]
    canvas.ellipse(505, 10, 6.5, 6.5, colours["sun"], opacity=0.3)
    canvas.ellipse(505, 10, 5, 5, colours["sun"], opacity=0.85)
    for colour, middle_x, half, height in ((far, 478, 62, 15), (far, 552, 70, 14),
                                           (middle, 520, 84, 10), (middle, 436, 34, 8),
                                           (near, 470, 66, 6), (near, 585, 54, 7)):
        canvas.path(below(hill(middle_x, half, height), middle_x - half, middle_x + half, 24),
                    colour)


def hill(middle, half, height):
    def curve(x):
        place = (x - middle) / half
        return 24 - height * (1 + cos(pi * place)) / 2 - 0.6 * sin(pi * (place + 1) * 2)
    return curve


def face(canvas, state, active):
    edge, inside = {"normal": ("#4b94b4", "#f3fafd"), "hover": ("#1d5a78", "#a6def3"),
                    "pressed": ("#1d5a78", "#5fa9c6")}[state]
    canvas.rect(0, 0, 10, 10, edge, radius=3)
    canvas.rect(0.7, 0.7, 8.6, 8.6, inside, radius=2.4)


def glyph(canvas, kind, active):
    sign(canvas, kind, SMALL, "#0f4560")
