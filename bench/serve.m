## SPDX-License-Identifier: BSD-3-Clause
## Answers what bench.py asks on the standard input, until that ends (bench/worker.h): "run WORK FORMAT PATH COUNT" by the
## seconds that works.(WORK) (FORMAT, PATH, COUNT) took, "check" by the checksum of its second result, and any other word
## by what others.(WORD) (LINE) returns.
function serve (works, others = struct ())

  while (true)
    try
      line = input ("", "s"); # fgetl would wait for the line after this one
    catch
      return;
    end_try_catch
    words = strsplit (line, " ");
    switch (words{1})
      case "run"
        [seconds, values] = works.(words{2}) (words{3:4}, str2double (words{5}));
        printf ("%.9f\n", seconds);
      case "check"
        printf ("%.17g\n", checksum (values));
        clear values
      otherwise
        puts (others.(words{1}) (line));
    endswitch
    fflush (stdout);
  endwhile

endfunction
