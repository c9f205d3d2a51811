% SPDX-License-Identifier: BSD-3-Clause

% drawAxes (PICTURE, FRAME, PLOT): the picture with title, subtitle, ticks and labels around a frame.
%   FRAME                           left, top, width, height: the pixels within it, counted from 0
%   PLOT.title, subtitle            one line each
%   PLOT.x, y                       label; ascending values; at: where these lie, from 0 (left or
%                                   bottom) to 1
function picture = drawAxes (picture, frame, plot_)
  [left, top, width, height] = deal (frame.left, frame.top, frame.width, frame.height);
  picture = drawText (picture, plot_.title, left, 24, "left", 2);
  picture = drawText (picture, plot_.subtitle, left, 50, "left", 2);
  for tick = ticks (plot_.x)
    column = left + place (plot_.x, tick) * width;
    picture = line (picture, column, top + height, 1, 6);
    picture = drawText (picture, tick.text, column, top + height + 18, "centre", 2);
  endfor
  for tick = ticks (plot_.y)
    row = top + height - place (plot_.y, tick) * height;
    picture = line (picture, left - 6, row, 6, 1);
    picture = drawText (picture, tick.text, left - 10, row, "right", 2);
  endfor
  picture = drawText (picture, plot_.x.label, left + width / 2, top + height + 46, "centre", 2);
  blank = repmat (uint8 (255), [20, height + top, 3]);
  sideways = rot90 (drawText (blank, plot_.y.label, height / 2, 10, "centre", 2));
  picture(1:rows (sideways), 4:23, :) = sideways;
endfunction

function at = place (axis_, tick)
  at = mean (axis_.at);
  if (axis_.values(end) > axis_.values(1))
    at = interp1 (axis_.values, axis_.at, tick.value);
  endif
endfunction

function picture = line (picture, column, row, width, height)
  picture(round (row) + (1:height), round (column) + (1:width), :) = 0;
endfunction
