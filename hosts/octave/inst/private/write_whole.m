## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} write_whole (@var{path}, @var{value}, @var{key})
## Undocumented internal function: write a value to a file that appears under its name only when it is whole.
## @end deftypefn

function write_whole (path, value, key = "")

  bytes = pack_value (value, "the value");
  start = uint8 (sprintf ("gridio value 1 %s %d\n", key, numel (bytes)));
  beside = sprintf ("%s.%d.%08x", path, getpid (), randi (2^31)); # two machines may write the same
  [file, reason] = fopen (beside, "w");
  if (file < 0)
    fail ("notWritten", "cannot write '%s': %s", visible_text (path), reason);
  endif
  unwind_protect
    isWritten = fwrite (file, start) == numel (start) && fwrite (file, bytes) == numel (bytes) && fflush (file) == 0;
    isWritten = fclose (file) == 0 && isWritten;
    [about, failed] = stat (beside);
    if (! isWritten || failed || about.size != numel (start) + numel (bytes))
      fail ("notWritten", "cannot write the %d bytes of '%s': is the disk full?", numel (bytes), visible_text (path));
    endif
    [failed, reason] = rename (beside, path);
    if (failed)
      fail ("notWritten", "cannot write '%s': %s", visible_text (path), reason);
    endif
  unwind_protect_cleanup
    if (! isempty (stat (beside)))
      unlink (beside);
    endif
  end_unwind_protect

endfunction
