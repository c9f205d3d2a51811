## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{text} =} readable_text (@var{text})
## Undocumented internal function: a text of a file as UTF-8; bytes that are not UTF-8 are read as ISO 8859-1.
## @end deftypefn

function text = readable_text (text)

  if (any (text > 127) && ! isempty (unicode_errors (text)))
    text = native2unicode (uint8 (text), "ISO-8859-1");
  endif

endfunction

function errors = unicode_errors (text)

  errors = "";
  try
    regexp (text, "x", "once");
  catch failure
    errors = failure.message;
  end_try_catch

endfunction
