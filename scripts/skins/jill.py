"""J.I.L.L.: ribbons and hearts, from light blue into navy. The title bar is shown one and a half
times as high as the picture, so it is drawn at that height and squeezed."""

FILES = {"title": 4, "frame": 5}
TITLE, CUTS, CELL, ROWS = (500, 40), (39, 96, 180, 250), (26, 26), 2

ACTIVE = {"light": ("#f0f5ff", "#d5e1fb", "#b9cdf5"), "navy": ("#34559f", "#29478c", "#213b7a"),
          "ribbons": ("#88b2ff", "#5b86dc", "#e9f1ff"), "heart": "#ff7da0", "small": "#9fb5e6"}
INACTIVE = {"light": ("#22325f", "#1d2b55", "#19254c"), "navy": ("#2c3f70", "#243665", "#1e2e5a"),
            "ribbons": ("#4d66a0", "#3b5289", "#6d83b5"), "heart": "#8d6a86", "small": "#4d6297"}


def title(canvas, active):
    colours = ACTIVE if active else INACTIVE
    with canvas.moved(0, 0, 1, 20 / 30):
        canvas.rect(0, 0, 500, 30, canvas.shade(*colours["navy"]))
        canvas.path("M0 0H113C113 17 118 30 138 30H0Z", canvas.shade(*colours["light"]))
        curl(canvas, colours)
        ribbons(canvas, colours)
        for x, y, size, colour in ((146, 11, 13, "heart"), (165, 7, 7, "small"),
                                   (286, 10, 9, "small"), (336, 20, 13, "heart"),
                                   (317, 22, 6, "small"), (384, 17, 8, "small")):
            heart(canvas, x, y, size, colours[colour])


def curl(canvas, colours):
    """A navy corner to the left of the icon."""
    canvas.path("M0 0H8C2 8 1 18 7 30H0Z", canvas.shade(*colours["navy"]))
    canvas.line("M8.5 0.5C2.5 8 1.5 18 7.5 29.5", colours["ribbons"][0], 1.4)


def ribbons(canvas, colours):
    """Three ribbons that slide down where the caption ends, run along the bottom, and dance in
    front of the buttons."""
    dark, light, thread = colours["ribbons"]
    canvas.line("M117 0C117 16 122 27 146 27H252C290 27 300 8 334 8S382 26.5 420 26.5H500",
                dark, 3)
    canvas.line("M122 0C122 14 127 23.5 150 23.5H252C286 23.5 296 14 318 15S352 21 368 12"
                "S394 4 404 14S430 23.5 446 23.5H500", light, 1.8)
    canvas.line("M126 0C126 12 132 20.6 154 20.6H252C280 20.6 300 3 330 3S376 20.6 412 20.6H500",
                thread, 0.8, opacity=0.8)


def heart(canvas, x, y, size, fill):
    with canvas.moved(x, y, size / 10, size / 10):
        canvas.path("M0 4.5C-2 2.6 -5 0.8 -5 -1.8C-5 -5 -1 -5.2 0 -2.2C1 -5.2 5 -5 5 -1.8"
                    "C5 0.8 2 2.6 0 4.5Z", fill)


FACES = {
    True: {"normal": ("#16295a", "#e6eeff", "#9fb5e6"), "hover": ("#ffffff", "#ffffff", "#c9dcff"),
           "pressed": ("#0d1b40", "#5b7cc4", "#86a5e6")},
    False: {"normal": ("#16295a", "#8598c6", "#647bb0"),
            "hover": ("#b9cdf5", "#e6eeff", "#9fb5e6"),
            "pressed": ("#0d1b40", "#5b7cc4", "#86a5e6")}}


def face(canvas, state, active):
    edge, top, bottom = FACES[active][state]
    canvas.ellipse(13, 13, 12, 12, edge)
    canvas.ellipse(13, 13, 10.8, 10.8, canvas.shade(top, bottom))
    if state != "pressed":
        canvas.ellipse(13, 8, 7.5, 4, "#ffffff", opacity=0.55 if active else 0.15)


def glyph(canvas, kind, active):
    """Shown at about two thirds of this size."""
    ink = "#16295a" if active else "#0d1733"
    if kind == "minimise":
        canvas.line("M6.5 18.5H19.5", ink, 3.4, cap="round")
    elif kind == "maximise":
        canvas.line("M6.5 7.5H19.5V19H6.5Z", ink, 2.6)
        canvas.line("M6.5 8.5H19.5", ink, 4)
    elif kind == "restore":
        canvas.line("M11 9.5V6H20.5V15H18", ink, 2.5)
        canvas.line("M5.5 11.5H15.5V20.5H5.5Z", ink, 2.5)
    else:
        canvas.line("M7 7L19 19M19 7L7 19", "#7d0c36" if active else "#6a0f38", 3.6, cap="round")
