"""Bullethead: a bullet of bright metal on a perforated plate with rivets."""

from skins.buttons import shaded_face, sign

FILES = {"title": 8, "frame": 9}
TITLE, CUTS, CELL, ROWS = (202, 38), (25, 30, 65, 101), (22, 22), 2

ACTIVE = {"bullet": (("#ffffff", 0), ("#f4f4f4", 0.25), ("#f6f6f6", 0.8), ("#d8d8d8", 1)),
          "tip": (("#d6d6d6", 0), ("#f2f2f2", 0.25), ("#b2b2b2", 0.6), ("#787878", 1)),
          "recess": ("#6c6c6c", "#909090"), "outline": "#505050",
          "plate": ("#d2d2d2", "#b4b4b4", "#9a9a9a"), "hole": "#6e6e6e", "lip": "#e6e6e6",
          "shadow": "#5a5a5a", "rivet": ("#ffffff", "#8a8a8a")}
INACTIVE = {"bullet": (("#484848", 0), ("#3a3a3a", 0.25), ("#333333", 0.8), ("#262626", 1)),
            "tip": (("#6e6e6e", 0), ("#8c8c8c", 0.25), ("#5a5a5a", 0.6), ("#3a3a3a", 1)),
            "recess": ("#303030", "#464646"), "outline": "#181818",
            "plate": ("#7a7a7a", "#666666", "#565656"), "hole": "#3a3a3a", "lip": "#8c8c8c",
            "shadow": "#222222", "rivet": ("#a6a6a6", "#4a4a4a")}


def title(canvas, active):
    colours = ACTIVE if active else INACTIVE
    canvas.rect(0, 0, 202, 19, canvas.shade(*colours["plate"]))
    canvas.rect(0, 0, 202, 1, "#ffffff", opacity=0.45 if active else 0.15)
    perforation(canvas, colours)
    bullet(canvas, colours)
    plate(canvas, colours)
    canvas.rect(0, 18, 202, 1, colours["shadow"], opacity=0.6)


def bullet(canvas, colours):
    """The bullet: the caption lies on it; after two grooves its nose points right, in a recess."""
    canvas.rect(32, 1, 33, 17, canvas.shade(*colours["recess"]))
    canvas.rect(64, 0, 1, 19, colours["lip"], opacity=0.6)
    canvas.path("M34 1H40C49 1.4 57 5.6 61 9.5C57 13.6 49 17.6 40 18H34Z", colours["outline"])
    canvas.path("M34 1.8H40C48.5 2.2 55.5 5.8 59.4 9.5C55.5 13.2 48.5 16.8 40 17.2H34Z",
                canvas.shade(*colours["tip"]))
    canvas.path("M39 4.2C46 4.4 51.5 6 55.5 8.2C51 7.2 46 6.8 39 6.8Z", "#ffffff", opacity=0.7)
    canvas.rect(0, 0, 33, 19, canvas.shade(*colours["bullet"]))
    for x in (33, 36):
        canvas.rect(x, 0.5, 1.4, 18, colours["outline"])
    canvas.rect(0, 0, 2, 19, "#ffffff", opacity=0.5)
    canvas.rect(2, 0, 1, 19, colours["shadow"], opacity=0.25)


def perforation(canvas, colours):
    for column in range(6):
        for row in range(3):
            x, y = 65 + 3 + column * 6, 4.5 + row * 5
            canvas.ellipse(x, y + 0.6, 1.5, 1.5, colours["lip"])
            canvas.ellipse(x, y, 1.5, 1.5, colours["hole"])


def plate(canvas, colours):
    """The plate behind the buttons: smooth, with its edge screwed down."""
    canvas.rect(101, 0, 1, 19, colours["shadow"], opacity=0.7)
    canvas.rect(102, 0, 1, 19, "#ffffff", opacity=0.5)
    for x, y in ((108, 4.5), (108, 14.5), (195.5, 4.5), (195.5, 14.5)):
        rivet(canvas, colours, x, y)


def rivet(canvas, colours, x, y):
    canvas.ellipse(x, y + 0.5, 2.6, 2.6, colours["shadow"], opacity=0.6)
    canvas.ellipse(x, y, 2.3, 2.3, canvas.shade(*colours["rivet"]))
    canvas.ellipse(x - 0.5, y - 0.7, 0.7, 0.7, "#ffffff", opacity=0.8)


FACES = {
    True: {"normal": ("#6a6a6a", "#ffffff", "#c4c4c4"), "hover": ("#2e2e2e", "#ffffff", "#f4f4f4"),
           "pressed": ("#3a3a3a", "#7c7c7c", "#a8a8a8")},
    False: {"normal": ("#333333", "#8a8a8a", "#6a6a6a"),
            "hover": ("#1c1c1c", "#ffffff", "#d8d8d8"),
            "pressed": ("#1c1c1c", "#6a6a6a", "#8f8f8f")}}


# Shown at about four fifths of this size.
SIGNS = {"minimise": (6, 13.5, 10, 2.6),
         "maximise": ["M6 6H16V16H6ZM8 9V14H14V9Z"],
         "restore": ["M8.5 5H17V12.5H15.2V7.5H8.5Z", "M5 9H13.5V17H5ZM6.8 11.5V15.2H11.7V11.5Z"],
         "close": ("M6.5 6.5L15.5 15.5M15.5 6.5L6.5 15.5", 2.6)}


def face(canvas, state, active):
    shaded_face(canvas, 22, 7, *FACES[active][state])


def glyph(canvas, kind, active):
    sign(canvas, kind, SIGNS, "#2b2b2b" if active else "#141414")
