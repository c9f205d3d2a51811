% SPDX-License-Identifier: BSD-3-Clause

% textPixels (TEXT, SCALE): a logical matrix, true where the letters of one line of text are.
function pixels = textPixels (text, scale)
  persistent glyphs;
  if (isempty (glyphs))
    lines = strsplit (fileread (fullfile (fileparts (mfilename ("fullpath")), "pixel_font.txt")), "\n");
    art = char (regexp (lines, '^[.# ]+$', "match", "once"){:});
    art = art(any (art != " ", 2), :) == "#";
    glyphs = false (8, 5, 96);
    for i = 0:95
      glyphs(:, :, i + 1) = art(8 * fix (i / 16) + (1:8), 6 * mod (i, 16) + (1:5));
    endfor
  endif
  codes = double (text);
  codes(codes >= 128 & codes < 192) = [];  % of a UTF-8 character the first byte counts
  codes(codes < 32 | codes > 126) = 127;
  pixels = false (8, 6 * numel (codes));
  for i = 1:numel (codes)
    pixels(:, 6 * i - 5:6 * i - 1) = glyphs(:, :, codes(i) - 31);
  endfor
  pixels = repelem (pixels, scale, scale);
endfunction
