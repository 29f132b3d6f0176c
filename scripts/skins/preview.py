"""Mock-ups of windows, composed from the pictures as the frame does it."""

import base64
import subprocess
import tempfile
import pathlib

WIDTHS = (400, 700, 1200)
BODY = 74  # height of what is shown below the title bar
SMALLEST_TITLE = 21  # a line of text and 6 px
ICON = '<rect x="1" y="4" width="14" height="9" rx="1.5" fill="#eba92a"/>' \
       '<circle cx="9" cy="9" r="4" fill="#d8eeff" stroke="#2a5c94" stroke-width="1.7"/>'


class Strip:
    """A picture of the skin, of which parts are shown."""

    def __init__(self, picture, size):
        self.size = size
        self.data = base64.b64encode(picture).decode()

    def part(self, source, target):
        x, y, width, height = source
        to_x, to_y, to_width, to_height = target
        return (f'<svg x="{to_x}" y="{to_y}" width="{to_width}" height="{to_height}" '
                f'viewBox="{x} {y} {width} {height}" preserveAspectRatio="none">'
                f'<image width="{self.size[0]}" height="{self.size[1]}" '
                f'preserveAspectRatio="none" href="data:image/png;base64,{self.data}"/></svg>')


def write(source, target, name, skin):
    """The bitmaps as they are, and the SVGs on a screen of twice the density."""
    for ratio in (1, 2):
        strips = {}
        for kind, size in (("title", skin.TITLE), ("frame", frame_size(skin))):
            strips[kind] = Strip(png(source, skin, name, kind, ratio), size)
        for width in WIDTHS:
            windows = "".join(
                f'<g transform="translate(10 {10 + row * (BODY + 60)})">'
                f'{window(skin, strips, width, active)}</g>'
                for row, active in enumerate((True, False)))
            height = 2 * (BODY + 60)
            page = (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width + 20}" '
                    f'height="{height}"><rect width="100%" height="100%" fill="#8a9097"/>'
                    f'{windows}</svg>')
            render(page, target / f"{name}-{width}-{ratio}x.png", ratio)


def frame_size(skin):
    return 7 * skin.CELL[0], skin.ROWS * skin.CELL[1]


def png(source, skin, name, kind, ratio):
    stem = source / f"{skin.FILES[kind]}-{name}-{kind}"
    if ratio > 1:
        return subprocess.run(["rsvg-convert", "-z", str(ratio), stem.with_suffix(".svg")],
                              check=True, capture_output=True).stdout
    suffix = ".gif" if skin.FILES[kind] in (1, 3) else ".bmp"
    return subprocess.run(["convert", stem.with_suffix(suffix), "-transparent", "#ff00ff", "png:-"],
                          check=True, capture_output=True).stdout


def render(page, target, ratio):
    with tempfile.TemporaryDirectory() as folder:
        svg = pathlib.Path(folder) / "page.svg"
        svg.write_text(page, encoding="utf-8")
        subprocess.run(["rsvg-convert", "-z", str(ratio), "-o", target, "--unlimited", svg],
                       check=True)


def window(skin, strips, width, active):
    look = skin.LOOK
    height = max(skin.TITLE[1] // 2, SMALLEST_TITLE, look.get("height", 0))
    return (body(look, width, height) + title(skin, strips["title"], width, height, active) +
            caption(skin, width, height, active) +
            buttons(skin, strips["frame"], width, height, active))


def body(look, width, top):
    border = look.get("border", 4)
    entry, entry_back = look["entry"]
    return (f'<rect width="{width}" height="{top + BODY}" fill="{look["back"]}"/>'
            f'<rect x=".5" y=".5" width="{width - 1}" height="{top + BODY - 1}" fill="none" '
            f'stroke="#000" stroke-opacity=".6"/>'
            f'<rect x="{border + 3}" y="{top + 2}" width="38" height="18" fill="{entry_back}"/>'
            f'<g font-family="DejaVu Sans" font-size="12" fill="{look["text"]}">'
            f'<text x="{border + 11}" y="{top + 15}" fill="{entry}">File</text>'
            f'<text x="{border + 53}" y="{top + 15}">Edit</text>'
            f'<text x="{border + 95}" y="{top + 15}">Skin</text>'
            f'<text x="{border + 11}" y="{top + 48}">Search for: *.txt</text></g>')


def button_width(skin):
    return max(skin.CELL[0], 18)


def caption_text(width):
    return "Netrove - 1,204 files found for *.txt; *.doc" if width > 500 else "Netrove"


def title(skin, strip, width, height, active):
    """The parts of the strip from left to right, each repeated up to where the next one begins."""
    row = skin.TITLE[1] // 2
    left, tile, divider, filler = skin.CUTS
    right_start = max(left, width - (skin.TITLE[0] - filler))
    text_end = skin.LOOK["icon"] + 28 + round(7.8 * len(caption_text(width)))
    tile_end = max(left, min(text_end, right_start))
    divider_end = tile_end + divider - tile
    parts = [(0, left, left), (left, tile, tile_end)]
    if divider_end <= right_start:
        parts.append((tile, divider, divider_end))
    parts.append((divider, filler, right_start))
    parts.append((skin.TITLE[0] - (width - right_start), skin.TITLE[0], width))
    x, pieces = 0, []
    for start, end, until in parts:
        while x < until:
            piece = min(end - start, until - x)
            pieces.append(strip.part((start, 0 if active else row, piece, row),
                                     (x, 0, piece, height)))
            x += piece
    return "".join(pieces)


def caption(skin, width, height, active):
    colour = skin.LOOK["caption"][0 if active else 1]
    icon = skin.LOOK["icon"]
    return (f'<g transform="translate({icon} {(height - 16) / 2})">{ICON}</g>'
            f'<text x="{icon + 20}" y="{height / 2 + 4.5}" font-family="DejaVu Sans" '
            f'font-size="12" font-weight="bold" fill="{colour}">{caption_text(width)}</text>')


def buttons(skin, strip, width, height, active):
    """From right to left: close (hovered in the active window), maximise (pressed), minimise."""
    cell_width, cell_height = skin.CELL
    top = 0 if active or skin.ROWS == 1 else cell_height
    wide = button_width(skin)
    high = min(height - 4, max(cell_height, 16))
    glyph = min(skin.LOOK.get("glyph", 12), high)
    x, y, parts = width - skin.LOOK.get("end", 8), (height - high) / 2, []
    for face, sign in ((1, 6), (2, 4), (0, 3)) if active else ((0, 6), (0, 5), (0, 3)):
        x -= wide
        parts.append(strip.part((face * cell_width, top, cell_width, cell_height),
                                (x, y, wide, high)))
        parts.append(strip.part((sign * cell_width, top, cell_width, cell_height),
                                (x + (wide - glyph) / 2, y + (high - glyph) / 2, glyph, glyph)))
        x -= 1
    return "".join(parts)
