% SPDX-License-Identifier: BSD-3-Clause

% drawText (PICTURE, TEXT, COLUMN, ROW, ALIGNMENT, SCALE): the picture with a line of text, whose middle
% ROW is. Text that does not fit becomes smaller, then is cut.
function picture = drawText (picture, text, column, row, alignment, scale)
  pixels = textPixels (text, scale);
  if (scale > 1 && columns (pixels) > columns (picture) - merge (strcmp (alignment, "left"), column, 0))
    pixels = textPixels (text, 1);
  endif
  [height, width] = size (pixels);
  shift = struct ("left", 0, "centre", width / 2, "right", width).(alignment);
  [at, from] = deal (round (column - shift) + (1:width), round (row - height / 2) + (1:height));
  [inColumns, inRows] = deal (at >= 1 & at <= columns (picture), from >= 1 & from <= rows (picture));
  for colour = 1:3
    part = picture(from(inRows), at(inColumns), colour);
    part(pixels(inRows, inColumns)) = 0;
    picture(from(inRows), at(inColumns), colour) = part;
  endfor
endfunction
