"""How each skin's pictures are drawn. A skin's module has

  FILES   the numbers of its two pictures
  TITLE   width and height of the title picture: two rows, the upper for the active window
  CUTS    the columns of the title picture where the left cap, the tile behind the caption, the
          divider and the filler end; the right cap follows them. Tile and filler are repeated and
          may be cut off anywhere.
  CELL    width and height of each of the seven cells of the frame picture: three faces of a button
          and four glyphs
  ROWS    rows of cells: two where inactive windows have cells of their own
  title(canvas, active), face(canvas, state, active), glyph(canvas, kind, active)
          draw one row or cell, whose upper left corner is at 0,0
"""
