"""The signs on the buttons of the skins with cells of 10 by 10 pixels."""


def small_glyph(canvas, kind, ink):
    if kind == "minimise":
        canvas.rect(2, 7, 6, 1.5, ink)
    elif kind == "maximise":
        canvas.path("M1.5 2H8.5V8.5H1.5ZM2.5 4V7.5H7.5V4Z", ink)
    elif kind == "restore":
        canvas.path("M3.5 1.5H8.5V6.5H7.5V3H3.5Z", ink)
        canvas.path("M1.5 4H6.5V8.5H1.5ZM2.5 5.5V7.5H5.5V5.5Z", ink)
    else:
        canvas.line("M2.2 2.2L7.8 7.8M7.8 2.2L2.2 7.8", ink, 1.5)
