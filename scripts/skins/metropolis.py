"""Metropolis: a slab of steel before a city at night."""

from skins.buttons import shaded_face, sign

FILES = {"title": 6, "frame": 7}
TITLE, CUTS, CELL, ROWS = (409, 28), (68, 81, 143, 210), (20, 20), 2

ACTIVE = {"steel": ("#eef3f6", "#c3ced6", "#93a3af"), "sky": ("#050912", "#0c2436", "#22657a"),
          "far": "#123848", "near": "#04080d", "windows": ("#00e5ff", "#ffd27a", "#8fd8e6"),
          "neon": "#00e5ff", "edge": "#5d6b76"}
INACTIVE = {"steel": ("#3a444c", "#2c343b", "#20272d"), "sky": ("#07090b", "#0d1115", "#171d22"),
            "far": "#20282e", "near": "#07090b", "windows": ("#55646c", "#6b6250", "#4a575e"),
            "neon": "#4a5a63", "edge": "#15191d"}

# Buildings as (width, height) from left to right; their windows depend on the place.
FAR = [(9, 8), (7, 10.5), (11, 7), (6, 11.5), (12, 8.5), (8, 10), (14, 7.5)]
NEAR = [(8, 5.5), (5, 9), (10, 4.5), (7, 7.5), (5, 10.5), (9, 5), (6, 9), (11, 6.5), (6, 4)]


def title(canvas, active):
    colours = ACTIVE if active else INACTIVE
    canvas.rect(0, 0, 409, 14, canvas.shade(*colours["sky"]))
    skyline(canvas, colours, 84, 143)
    skyline(canvas, colours, 143, 210)
    skyline(canvas, colours, 210, 340)
    landmarks(canvas, colours)
    slab(canvas, colours)
    canvas.rect(0, 13.2, 409, 0.8, colours["neon"], opacity=0.8)


def slab(canvas, colours):
    """The caption's steel, cut off at a slant, with a neon tube along the cut."""
    canvas.path("M0 0H116L96 14H0Z", canvas.shade(*colours["steel"]))
    canvas.rect(0, 0, 116, 0.8, "#ffffff", opacity=0.4)
    canvas.path("M116 0H119.5L99.5 14H96Z", colours["edge"])
    canvas.line("M123.4 0.4L104 13.8", colours["neon"], 1.1)
    canvas.line("M127.4 0.4L108 13.8", colours["neon"], 0.5, opacity=0.5)


def skyline(canvas, colours, left, right):
    for row, base, colour in ((FAR, 14, colours["far"]), (NEAR, 14, colours["near"])):
        x, index = left, 0
        while x < right:
            width, height = row[index % len(row)]
            width = min(width, right - x)
            canvas.rect(x, base - height, width, height, colour)
            if row is NEAR:
                lights(canvas, colours, x, base - height, width, index)
            x, index = x + width, index + 1


def lights(canvas, colours, x, top, width, seed):
    """Some lit windows; a small sequence of numbers decides which."""
    for row in range(int((13 - top) / 1.8)):
        for column in range(int((width - 1) / 2)):
            seed = (seed * 37 + row * 11 + column * 5 + 7) % 101
            if seed % 3 == 0:
                canvas.rect(x + 1 + column * 2, top + 1 + row * 1.8, 1, 0.9,
                            colours["windows"][seed % 7 % 3])


def landmarks(canvas, colours):
    tower(canvas, colours, 232, 7, 10.5)
    tower(canvas, colours, 262, 9, 11.5)
    tower(canvas, colours, 300, 6, 11)
    tower(canvas, colours, 325, 8, 8.5)


def tower(canvas, colours, x, width, height):
    """Rises in steps to a mast with a light."""
    top = 14 - height
    canvas.rect(x, top + 3, width, height - 3, colours["near"])
    canvas.rect(x + width / 4, top + 1.2, width / 2, 2, colours["near"])
    canvas.rect(x + width / 2 - 0.3, top - 1.2, 0.6, 3, colours["near"])
    canvas.rect(x + width / 2 - 0.4, top - 1.4, 0.8, 0.8, colours["windows"][0])
    lights(canvas, colours, x, top + 3, width, int(x))


FACES = {
    True: {"normal": ("#5f7f8c", "#22323d", "#0e171e"), "hover": ("#00e5ff", "#14697a", "#0b4351"),
           "pressed": ("#e8fdff", "#007c8e", "#0090a4")},
    False: {"normal": ("#46535b", "#1b2126", "#0f1316"),
            "hover": ("#00e5ff", "#115463", "#093641"),
            "pressed": ("#b8c6ce", "#00525f", "#006170")}}


# Shown at half this size.
SIGNS = {"minimise": (2, 14, 16, 3),
         "maximise": ["M2 2H18V18H2ZM4 6V16H16V6Z"],
         "restore": ["M6 2H18V14H16V6H6Z", "M2 8H14V18H2ZM4 11V16H12V11Z"],
         "close": ("M3 3L17 17M17 3L3 17", 3)}


def face(canvas, state, active):
    shaded_face(canvas, 20, 2, *FACES[active][state])


def glyph(canvas, kind, active):
    sign(canvas, kind, SIGNS, "#e8fdff" if active else "#bcc9d1")
