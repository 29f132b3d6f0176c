"""Faces of buttons and the signs on them, shared by several skins."""

# The signs of skins with cells of 10 by 10 pixels.
SMALL = {"minimise": (2, 7, 6, 1.5),
         "maximise": ["M1.5 2H8.5V8.5H1.5ZM2.5 4V7.5H7.5V4Z"],
         "restore": ["M3.5 1.5H8.5V6.5H7.5V3H3.5Z", "M1.5 4H6.5V8.5H1.5ZM2.5 5.5V7.5H5.5V5.5Z"],
         "close": ("M2.2 2.2L7.8 7.8M7.8 2.2L2.2 7.8", 1.5)}


def shaded_face(canvas, size, radius, edge, top, bottom):
    """A square with round corners that leaves one pixel free, shaded inside its edge."""
    canvas.rect(1, 1, size - 2, size - 2, edge, radius=radius)
    canvas.rect(2.2, 2.2, size - 4.4, size - 4.4, canvas.shade(top, bottom), radius=radius - 1)


def sign(canvas, kind, shapes, ink):
    """A bar, one or two areas, or a cross."""
    if kind == "minimise":
        canvas.rect(*shapes[kind], ink)
    elif kind == "close":
        cross, width = shapes[kind]
        canvas.line(cross, ink, width)
    else:
        for area in shapes[kind]:
            canvas.path(area, ink)
