% SPDX-License-Identifier: BSD-3-Clause

% drawSeries (SERIES): a picture of a series as a line with a mark at each value; NaN leaves a gap.
%   series.x, series.y      structs: label and values; x.values ascend
%   series.title, subtitle  one line each
% LAYOUT gives the pixels within the frame, counted from 0, and the x and y of its edges.
function [picture, layout] = drawSeries (series)
  frame = struct ("left", 110, "top", 72, "width", 800, "height", 400);
  picture = repmat (uint8 (255), [frame.top + frame.height + 66, frame.left + frame.width + 60, 3]);
  [y, x] = deal (series.y.values, series.x.values);
  series.x = setfield (setfield (series.x, "values", edges (x)), "at", [0 1]);
  series.y = setfield (setfield (series.y, "values", edges (y)), "at", [0 1]);
  layout = setfield (setfield (frame, "x", series.x.values), "y", series.y.values);

  [columns_, rows_] = deal (frame.left + 1:frame.left + frame.width, frame.top + 1:frame.top + frame.height);
  picture([frame.top, frame.top + frame.height + 1], frame.left:frame.left + frame.width + 1, :) = 0;
  picture(frame.top:frame.top + frame.height + 1, [frame.left, frame.left + frame.width + 1], :) = 0;
  inside = false (frame.height, frame.width);
  column = 1 + (frame.width - 1) * (x - layout.x(1)) / diff (layout.x);
  row = 1 + (frame.height - 1) * (layout.y(2) - y) / diff (layout.y);
  for i = 1:numel (y) - 1
    if (all (isfinite (row(i:i + 1))))
      steps = 1 + ceil (max (abs ([diff(column(i:i + 1)), diff(row(i:i + 1))])));
      at = sub2ind (size (inside), round (linspace (row(i), row(i + 1), steps)), ...
                    round (linspace (column(i), column(i + 1), steps)));
      inside(at) = true;
    endif
  endfor
  picture(rows_, columns_, :) = colour (inside, [120 170 210], picture(rows_, columns_, :));
  marks = false (size (inside));
  for i = find (isfinite (row))
    marks(near (row(i), frame.height), near (column(i), frame.width)) = true;
  endfor
  picture(rows_, columns_, :) = colour (marks, [20 60 120], picture(rows_, columns_, :));
  picture = drawAxes (picture, frame, series);
endfunction

% A little more than the values need; a constant gets room on both sides.
function limits = edges (values)
  values = values(isfinite (values));
  limits = [min(values), max(values)];
  room = max (0.03 * diff (limits), merge (diff (limits) > 0, 0, max (abs (limits(1)) * 0.1, 1)));
  limits += [-room room];
endfunction

function pixels = near (at, length_)
  pixels = max (1, round (at) - 2):min (length_, round (at) + 2);
endfunction

function part = colour (where, rgb, part)
  for i = 1:3
    layer = part(:, :, i);
    layer(where) = rgb(i);
    part(:, :, i) = layer;
  endfor
endfunction
