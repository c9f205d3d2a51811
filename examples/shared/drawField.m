% SPDX-License-Identifier: BSD-3-Clause
% drawField (FIELD): a picture of a field, with a colour scale and labelled axes.
%   field.values           one row for each x, one column for each y; NaN where there is no value
%   field.x, field.y       structs: label, and ascending values where the rows or columns lie
%   field.title, subtitle  one line each
% PICTURE is a height by width by 3 uint8 array. LAYOUT tells where in it the cells of the field and
% the colour scale lie, in pixels counted from 0: x increases to the right, y and colours upwards.
function [picture, layout] = drawField (field)
  [nx, ny] = size (field.values);
  cellSize = min (24, max (1, round (min (900 / nx, 700 / ny))));
  cellSize = max (cellSize, ceil ([360 / nx, 256 / ny]));  % room for titles and all colours
  [width, height] = deal (nx * cellSize(1), ny * cellSize(2));
  [left, top] = deal (110, 72);
  picture = repmat (uint8 (255), [top + height + 66, left + width + 160, 3]);
  layout = struct ("left", left, "top", top, "cell", cellSize, "scaleLeft", left + width + 30);

  field.values(! isfinite (field.values)) = NaN;
  limits = [min(field.values(:)), max(field.values(:))];
  pixels = repelem (flipud (colourIndex (field.values.', limits)), cellSize(2), cellSize(1));
  picture = paint (picture, left, top, pixels);
  scale = repmat ((256:-1:1)(ceil ((1:height) * 256 / height)).', 1, 20);
  picture = paint (picture, layout.scaleLeft, top, scale);

  picture = drawText (picture, field.title, left, 24, "left", 2);
  picture = drawText (picture, field.subtitle, left, 50, "left", 2);
  for tick = ticks (field.x.values, 6)
    column = left + (tick.position - 0.5) * cellSize(1);
    picture = line (picture, column, top + height, 1, 6);
    picture = drawText (picture, tick.text, column, top + height + 18, "centre", 2);
  endfor
  for tick = ticks (field.y.values, 6)
    row = top + height - (tick.position - 0.5) * cellSize(2);
    picture = line (picture, left - 6, row, 6, 1);
    picture = drawText (picture, tick.text, left - 10, row, "right", 2);
  endfor
  picture = drawText (picture, field.x.label, left + width / 2, top + height + 46, "centre", 2);
  sideways = rot90 (drawText (blankLine (height + top), field.y.label, height / 2, 10, "centre", 2));
  picture(1:rows (sideways), 4:23, :) = sideways;

  for tick = ticks (linspace (limits(1), limits(2), 256), 6)
    row = top + height - (tick.position - 0.5) * height / 256;
    picture = line (picture, layout.scaleLeft + 20, row, 6, 1);
    picture = drawText (picture, tick.text, layout.scaleLeft + 30, row, "left", 2);
  endfor
  if (any (isnan (field.values(:))))
    picture = paint (picture, layout.scaleLeft, top + height + 10, ones (16, 20) * 257);
    picture = drawText (picture, "no value", layout.scaleLeft + 30, top + height + 18, "left", 2);
  endif
endfunction

% From 1 to 256 for a value, 257 for none.
function index = colourIndex (values, limits)
  index = repmat (128, size (values));
  if (limits(2) > limits(1))
    index = 1 + round (255 * (values - limits(1)) / (limits(2) - limits(1)));
  endif
  index(isnan (values)) = 257;
endfunction

% Puts colours into the picture, with a frame around them.
function picture = paint (picture, left, top, index)
  colours = [uint8(round (255 * viridis (256))); uint8([208 208 208])];
  [height, width] = size (index);
  picture(top:top + height + 1, left:left + width + 1, :) = 0;
  picture(top + (1:height), left + (1:width), :) = reshape (colours(index, :), height, width, 3);
endfunction

function picture = line (picture, column, row, width, height)
  picture(round (row) + (1:height), round (column) + (1:width), :) = 0;
endfunction

function picture = blankLine (width)
  picture = repmat (uint8 (255), [20, width, 3]);
endfunction

% ROW is the middle of the line; text that does not fit becomes smaller, then is cut.
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

% Round numbers within ascending values: a row of structs with the text, and the position among
% the values, counted from 1.
function list = ticks (values, wanted)
  [low, high] = deal (values(1), values(end));
  list = struct ("text", {}, "position", {});
  if (! (high > low))
    if (isfinite (low))
      list(1) = struct ("text", sprintf ("%.6g", low), "position", (1 + numel (values)) / 2);
    endif
    return;
  endif
  step = (high - low) / wanted;
  power = 10 ^ floor (log10 (step));
  step = power * [1 2 5 10](find (step <= power * [1 2 5 10] * (1 + 1e-9), 1));
  for number = ceil (low / step - 1e-9):floor (high / step + 1e-9)
    number += 0;  % no "-0"
    value = min (max (number * step, low), high);
    list(end + 1) = struct ("text", sprintf ("%.10g", number * step), ...
                            "position", interp1 (values, 1:numel (values), value));
  endfor
endfunction
