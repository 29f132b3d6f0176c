"""Trek: the console of a space ship, rounded blocks of colour on black."""

from skins.canvas import mixed
from skins.buttons import SMALL, sign

FILES = {"title": 2, "frame": 3}
TITLE, CUTS, CELL, ROWS = (612, 48), (90, 142, 240, 372), (10, 10), 1

ACTIVE = {"orange": "#ff8000", "peach": "#ffc080", "brick": "#c04000", "blue": "#8080ff",
          "red": "#e02818"}
INACTIVE = {"orange": "#7d5a3a", "peach": "#8f8272", "brick": "#553426", "blue": "#55556e",
            "red": "#6a3a34"}
LINE, BAR, BOTTOM = 21, 12, 23  # the thin line's top, the blocks' top, the bottom of both


def title(canvas, active):
    colours = ACTIVE if active else INACTIVE
    canvas.rect(0, 0, 612, 24, "#000000")
    left_bracket(canvas, colours)
    sweep(canvas, colours)
    blocks(canvas, colours, 243, [(66, "brick"), (18, "orange"), (39, "brick")])
    blocks(canvas, colours, 375, [(24, "orange"), (12, "blue"), (57, "peach"), (12, "red")])
    right_bracket(canvas, colours)


def left_bracket(canvas, colours):
    """A rounded end to the left of the icon, and a line from it below the caption."""
    canvas.path(f"M10 1V17Q10 {LINE} 14 {LINE}H142V{BOTTOM}H11Q2 {BOTTOM} 2 12T11 1Z",
                colours["orange"])


def sweep(canvas, colours):
    """The line grows into the row of blocks."""
    canvas.path(f"M142 {LINE}H144C155 {LINE} 159 15 159 5H180V{BOTTOM}H142Z", colours["orange"])
    blocks(canvas, colours, 183, [(21, "peach"), (9, "blue"), (21, "orange")])


def blocks(canvas, colours, x, row):
    """Blocks over the line, each with a dim strip above it."""
    for width, colour in row:
        canvas.rect(x, BAR, width, BOTTOM - BAR, colours[colour])
        canvas.rect(x, BAR - 7, width, 4, mixed(colours[colour], "#000000", 0.62))
        x += width + 3


def right_bracket(canvas, colours):
    """The last block sinks into a line below the buttons, which has a rounded end beyond them."""
    canvas.path(f"M492 5H516C516 15 520 {LINE} 531 {LINE}H598Q604 {LINE} 604 17V1H606"
                f"Q610 1 610 12T601 {BOTTOM}H492Z", colours["orange"])


def face(canvas, state, active):
    fill = {"normal": "#ffb870", "hover": "#fff0d8", "pressed": "#d05000"}[state]
    canvas.rect(0, 0, 10, 10, fill, radius=2.4)


def glyph(canvas, kind, active):
    sign(canvas, kind, SMALL, "#000000")
