"""An SVG drawing, element by element. Only what Qt's SVG reader knows is used: no clipping, no
nested drawings, no patterns; so shapes must keep inside their row or cell."""

from contextlib import contextmanager


def number(value):
    return f"{value:.3f}".rstrip("0").rstrip(".")


def mixed(first, second, share):
    """The colour between two (#rrggbb): share 0 gives the first, 1 the second."""
    def channels(colour):
        return [int(colour[place:place + 2], 16) for place in (1, 3, 5)]
    pairs = zip(channels(first), channels(second))
    return "#" + "".join(f"{round(one + (other - one) * share):02x}" for one, other in pairs)


class Canvas:
    def __init__(self, width, height):
        self.width, self.height = width, height
        self.gradients, self.elements, self.indent = [], [], "  "

    def add(self, element):
        self.elements.append(self.indent + element)

    def shade(self, *colours, across=False):
        """A fill that runs evenly through the colours from the shape's top to its bottom (or from
        left to right). A colour may be (colour, place) with places from 0 to 1."""
        stops = []
        for index, colour in enumerate(colours):
            colour, place = colour if isinstance(colour, tuple) else (
                colour, index / (len(colours) - 1))
            stops.append(f'<stop offset="{number(place)}" stop-color="{colour}"/>')
        end = 'x2="1" y2="0"' if across else 'x2="0" y2="1"'
        body = f'x1="0" y1="0" {end}>{"".join(stops)}</linearGradient>'
        if body not in self.gradients:
            self.gradients.append(body)
        return f"url(#g{self.gradients.index(body)})"

    def rect(self, x, y, width, height, fill, radius=0, opacity=1):
        corner = f' rx="{number(radius)}"' if radius else ""
        self.add(f'<rect x="{number(x)}" y="{number(y)}" width="{number(width)}" '
                 f'height="{number(height)}"{corner} fill="{fill}"{faint(opacity)}/>')

    def ellipse(self, x, y, radius_x, radius_y, fill, opacity=1):
        self.add(f'<ellipse cx="{number(x)}" cy="{number(y)}" rx="{number(radius_x)}" '
                 f'ry="{number(radius_y)}" fill="{fill}"{faint(opacity)}/>')

    def path(self, data, fill, opacity=1):
        self.add(f'<path d="{data}" fill="{fill}"{faint(opacity)}/>')

    def line(self, data, colour, width, opacity=1, cap="butt"):
        self.add(f'<path d="{data}" fill="none" stroke="{colour}" stroke-width="{number(width)}" '
                 f'stroke-linecap="{cap}" stroke-linejoin="round"{faint(opacity)}/>')

    @contextmanager
    def moved(self, x, y, scale_x=1, scale_y=1):
        scale = "" if scale_x == scale_y == 1 else f" scale({number(scale_x)} {number(scale_y)})"
        self.add(f'<g transform="translate({number(x)} {number(y)}){scale}">')
        self.indent += "  "
        yield
        self.indent = self.indent[:-2]
        self.add("</g>")

    def text(self):
        gradients = [f'    <linearGradient id="g{index}" {body}'
                     for index, body in enumerate(self.gradients)]
        return "\n".join([
            f'<svg xmlns="http://www.w3.org/2000/svg" width="{self.width}" height="{self.height}" '
            f'viewBox="0 0 {self.width} {self.height}">',
            "  <defs>", *gradients, "  </defs>", *self.elements, "</svg>", ""])


def faint(opacity):
    return "" if opacity == 1 else f' opacity="{number(opacity)}"'


def below(curve, left, right, bottom, step=2):
    """The path of the area between a curve, a function from x to y, and the bottom."""
    count = round((right - left) / step)
    places = [left + (right - left) * index / count for index in range(count + 1)]
    points = " ".join(f"L{number(x)} {number(min(curve(x), bottom))}" for x in places)
    return f"M{number(left)} {number(bottom)} {points} L{number(right)} {number(bottom)}Z"
