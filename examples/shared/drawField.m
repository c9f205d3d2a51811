% SPDX-License-Identifier: BSD-3-Clause

% drawField (FIELD): a picture of a field, with a colour scale and labelled axes.
%   field.values           one row for each x, one column for each y; NaN where there is no value
%   field.x, field.y       structs: label, and ascending values where the rows or columns lie;
%                          y.down, if it is there and true, makes y increase downwards
%   field.title, subtitle  one line each
%   field.width            at least so many pixels, if it is there
% PICTURE is a height by width by 3 uint8 array. LAYOUT gives the position in it of the cells of the field and
% the colour scale lie, in pixels counted from 0: x increases to the right, y and colours upwards.
function [picture, layout] = drawField (field)
  [nx, ny] = size (field.values);
  cellSize = min (24, max (1, round (min (900 / nx, 700 / ny))));
  least = [360 256];  % room for titles and all colours
  if (isfield (field, "width"))
    least(1) = field.width;
  endif
  cellSize = max (cellSize, ceil (least ./ [nx ny]));
  [width, height] = deal (nx * cellSize(1), ny * cellSize(2));
  [left, top] = deal (110, 72);
  picture = repmat (uint8 (255), [top + height + 66, left + width + 160, 3]);
  layout = struct ("left", left, "top", top, "cell", cellSize, "scaleLeft", left + width + 30);

  field.values(! isfinite (field.values)) = NaN;
  field.x.at = ((1:nx) - 0.5) / nx;
  field.y.at = ((1:ny) - 0.5) / ny;
  if (isfield (field.y, "down") && field.y.down)
    field.values = fliplr (field.values);
    field.y.at = 1 - field.y.at;
  endif
  limits = [min(field.values(:)), max(field.values(:))];
  pixels = repelem (flipud (colourIndex (field.values.', limits)), cellSize(2), cellSize(1));
  picture = paint (picture, left, top, pixels);
  frame = struct ("left", left, "top", top, "width", width, "height", height);
  picture = drawAxes (picture, frame, field);

  scale = repmat ((256:-1:1)(ceil ((1:height) * 256 / height)).', 1, 20);
  picture = paint (picture, layout.scaleLeft, top, scale);
  colours = struct ("values", linspace (limits(1), limits(2), 256));
  for tick = ticks (colours)
    at = 0.5;
    if (limits(2) > limits(1))
      at = ((tick.value - limits(1)) / (limits(2) - limits(1)) * 255 + 0.5) / 256;
    endif
    row = round (top + height - at * height);
    picture(row + 1, layout.scaleLeft + 20 + (1:6), :) = 0;
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
