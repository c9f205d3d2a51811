## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{shown} =} visible_text (@var{text})
## Undocumented internal function: @var{text} with its control characters spelled out, as the messages of @code{gridio} show
## it, so that none reaches the terminal.
## @end deftypefn

function shown = visible_text (text)

  bytes = double (text(:)');
  isAlone = [true, bytes(1:end-1) < 128];
  isC1 = bytes >= 128 & bytes < 160;
  isEncoded = isC1 & [false, bytes(1:end-1) == 194];
  isControl = bytes < 32 | bytes == 127 | isEncoded | (isC1 & isAlone(1:numel (bytes)));
  shown = num2cell (char (bytes));
  shown(isControl) = arrayfun (@(byte) sprintf ("%s%02X", '\x', byte), bytes(isControl), "UniformOutput", false);
  shown(bytes == 0) = {'\0'};
  shown([isEncoded(2:end), false]) = {""}; # the first of the two bytes
  shown = [shown{:}, ""];

endfunction
