% SPDX-License-Identifier: BSD-3-Clause
% path = made_file (CDL, KIND): a file that ncgen makes of a description; KIND is that of ncgen's -k.
function path = made_file (cdl, kind = "nc4")
  stem = tempname ();
  path = [stem ".nc"];
  description = [stem ".cdl"];
  file = fopen (description, "w");
  fputs (file, cdl);
  fclose (file);
  ncgen = getenv ("NCGEN");
  if (isempty (ncgen))
    ncgen = "ncgen";
  end
  [status, said] = system (sprintf ("%s -k %s -o %s %s 2>&1", ncgen, kind, path, description));
  unlink (description);
  if (status != 0)
    error ("ncgen: %s", said);
  end
end
