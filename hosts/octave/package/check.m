% SPDX-License-Identifier: BSD-3-Clause
% check.m TARBALL: checks the requirements of a package index on this package: its files, and a real installation for a user
% whose home is the current folder, with loading, help, tests, demos, unloading and uninstalling. Exit status 1 if any claim
% fails.
1;

function check (claim, holds)
  global passed failed
  if (holds)
    passed++;
  else
    failed++;
    printf ("FAILED: %s\n", claim);
  end
end

function [status, text] = run (varargin)
  [status, text] = system ([sprintf("'%s' ", varargin{:}) "2>&1"]);
end

% The lines of a file, without comments and empty ones.
function lines = lines_of (path)
  lines = strsplit (fileread (path), "\n");
  lines(cellfun (@isempty, lines) | strncmp (lines, "#", 1)) = [];
end

function yes = is_mapped ()
  yes = ! isempty (strfind (fileread ("/proc/self/maps"), "gridio.oct"));
end

function check_archive (tarball, name)
  [status, list] = run ("tar", "--numeric-owner", "-tvzf", tarball);
  rows = strsplit (strtrim (list), "\n");
  check ("the archive can be read", status == 0);
  inside = regexp (rows, [' \d+:\d+ ' regexptranslate("escape", name) '/']);
  check (["everything stands in the folder " name], ! any (cellfun (@isempty, inside)));
  check ("every file belongs to root and is readable by all",
         ! any (cellfun (@isempty, regexp (rows, '^(drwxr-xr-x|-rw-r--r--|-rwxr-xr-x) 0/0 '))));
  check ("only the configure script is executable",
         numel (regexp (list, '-rwxr-xr-x [^\n]*')) == 1 && any (regexp (list, '-rwxr-xr-x [^\n]*/src/configure\n')));
  check ("nothing built and no data are inside", isempty (regexp (list, '\.(o|oct|so|nc|orig|pyc)\n|~\n')));
end

function check_files (name, version)
  for file = {"DESCRIPTION", "COPYING", "INDEX", "NEWS", "src/configure", "src/Makefile", "doc/gridio.info"}
    check (["there is a file " file{1}], exist (fullfile (name, file{1}), "file") == 2);
  end

  fields = struct ();
  for line = regexp (strjoin (lines_of (fullfile (name, "DESCRIPTION")), "\n"), '(?<=^|\n)(\w+): *([^\n]+)', "tokens")
    fields.(line{1}{1}) = line{1}{2};
  end
  for field = {"Name", "Version", "Date", "Author", "Maintainer", "Title", "Description", "Categories", "Depends", ...
               "BuildRequires", "SystemRequirements", "License"}
    check (["DESCRIPTION has the field " field{1}], isfield (fields, field{1}));
  end
  known = {"Name", "Version", "Date", "Title", "Author", "Maintainer", "Description", "Categories", "Problems", "Url", ...
           "Depends", "License", "SystemRequirements", "BuildRequires"};
  check (["DESCRIPTION has only fields that are still in use: " strjoin(setdiff (fieldnames (fields), known)', " ")],
         all (ismember (fieldnames (fields), known)));
  check ("DESCRIPTION has the name and version of the archive",
         strcmp ([fields.Name "-" fields.Version], name) && strcmp (fields.Version, version));
  check ("the date is one", ! isempty (regexp (fields.Date, '^\d{4}-\d\d-\d\d$')));
  check ("COPYING is the licence that DESCRIPTION names",
         strcmp (fields.License, "BSD-3-Clause")
         && ! isempty (strfind (fileread (fullfile (name, "COPYING")), "BSD 3-Clause License")));
  news = strsplit (fileread (fullfile (name, "NEWS")), "\n");
  newest = news{find (strncmp (news, "## ", 3), 1)};
  check ("NEWS begins with this version and its date", strcmp (newest, sprintf ("## gridio %s (%s)", version, fields.Date)));
end

% The functions of INDEX, in their order.
function functions = indexed (folder)
  lines = lines_of (fullfile (folder, "INDEX"));
  check ("INDEX begins with the name", strncmp (lines{1}, "gridio >> ", 10));
  is_function = strncmp (lines, " ", 1);
  functions = strtrim (lines(is_function));
end

% The functions that the load path has in the folders of the package, without those that are internal.
function functions = provided (folder)
  functions = {};
  for path = strsplit (genpath (folder), pathsep ())
    if (isempty (regexp (path{1}, '(private|packinfo|doc|html|examples|shared)$')))
      functions = [functions, {dir(fullfile (path{1}, "*.m")).name}, {dir(fullfile (path{1}, "*.oct")).name}];
    end
  end
  functions = regexprep (functions, '\.\w+$', "");
  % Those that gridio.oct has besides.
  more = autoload ();
  functions = [functions, {more(strncmp ({more.file}, folder, numel (folder))).function}];
  internal = strncmp (functions, "__", 2) | ismember (functions, {"gridio_file", "gridio_native"});
  functions = functions(! internal);
end

function check_help (name)
  [text, format] = get_help_text (name);
  check (["the help of " name " is texinfo"], strcmp (format, "texinfo"));
  file = [tempname() ".texi"];
  fid = fopen (file, "w");
  fprintf (fid, "\\input texinfo\n%s\n@node Top\n%s\n@bye\n", fileread (texi_macros_file ()),
           strrep (text, "-*- texinfo -*-", ""));
  fclose (fid);
  [status, said] = run ("makeinfo", "--no-validate", "--plaintext", "-o", "/dev/null", file);
  delete (file);
  check (["makeinfo has nothing to say about the help of " name ": " said], status == 0 && isempty (strtrim (said)));
  sentence = get_first_help_sentence (name, 200);
  check (["the first sentence of the help of " name " fits"], ! isempty (sentence) && isempty (regexp (sentence, '\.\.\.$')));
  check (["the help of " name " has an example"], ! isempty (strfind (text, "@example")));
end

function check_session (folder)
  functions = indexed (fullfile (folder, "packinfo"));
  check ("INDEX lists exactly the functions of the package", isequal (sort (functions), sort (provided (folder))));
  cellfun (@check_help, functions);

  for word = {"netCDF", "HDF5", "NetCDF-4", "CDF"}
    check (["lookfor finds gridio by " word{1}], any (strcmp (lookfor (word{1}), "gridio")));
  end
  check ("news are shown", ! isempty (strfind (evalc ("news gridio"), "## gridio 1")));

  % Runs the tests of every function; each file must have some.
  sources = {file_in_loadpath("gridio.cc-tst")};
  for f = functions
    if (! any (strcmp (f{1}, {"gridio", "gridio_any"})))
      sources{end+1} = file_in_loadpath ([f{1} ".m"]);
    end
  end
  total = 0;
  for source = sources
    [good, all] = test (source{1}, "quiet", "tests.log");
    check (sprintf ("the tests of %s pass: %d of %d", source{1}, good, all), all > 0 && good == all);
    total += all;
  end
  printf ("%d tests of the package passed\n", total);
  check ("there are a few hundred tests", total > 200);
  % "pkg test" finds and runs the same tests.
  said = evalc ("pkg test gridio");
  counts = regexp (said, '\n +PASS +(\d+)\n +FAIL +(\d+)\n', "tokens", "once");
  check (["pkg test passes: " said], isequal (str2double (counts)(:), [total; 0]));

  for f = {"gridio", "gridio_help"}
    [code, at] = test (f{1}, "grabdemo");
    check (["there is a demo of " f{1}], numel (at) > 1);
    for k = 1:numel (at) - 1
      said = evalc (code(at(k):at(k+1)-1));
      check (["the demo of " f{1} " shows something"], ! isempty (said));
    end
  end
end

% A file that is open when the package is unloaded is closed.
function check_unloading ()
  ncid = gridio ("create", "left_open.nc", "clobber");
  gridio ("putAttText", ncid, -1, "title", "kept");
  check ("gridio.oct is mapped", is_mapped ());
  said = evalc ("pkg unload gridio; clear gridio");
  check (["unloading warns of an open file: " said], numel (strfind (said, "Files were still open")) == 1);
  check ("gridio.oct is gone after unloading", ! is_mapped ());
  check ("no function is left", ! exist ("gridio") && ! exist ("gridio_help"));
  check ("a file left open was written to its end", ! isempty (strfind (fileread ("left_open.nc"), "kept")));
  pkg load gridio
  ncid = gridio ("open", "left_open.nc", "nowrite");
  check ("and opens again after loading again", strcmp (gridio ("getAttText", ncid, -1, "title"), "kept"));
  gridio ("close", ncid);
  ds = gridio_dataset ("whole.nc", "replace");
  ds.put ("x", 1:3, {"n"});
  pkg unload gridio
  check ("a dataset left open is completed", exist ("whole.nc", "file") == 2);
  delete ("whole.nc");
end

% The output of another session, which must end well and say nothing on its error channel.
function said = session (varargin)
  [status, said] = system (["octave-cli --norc --no-history --quiet " sprintf("'%s' ", varargin{:}) "2>errors"]);
  check (["a session succeeds: " varargin{:} " " fileread("errors")], status == 0 && isempty (fileread ("errors")));
  delete ("errors");
end

% What a new user does first, with the installed files.
function check_first_use (folder, version)
  ncid = gridio ("create", "own.nc", "netcdf4");
  gridio ("putVarInt", ncid, gridio ("defVar", ncid, "depth", 4, gridio ("defDim", ncid, "x", 3)), int32 ([9 40 200]));
  files = gridio_open_files ();
  check ("open files are listed", strcmp (files.path, "own.nc") && strcmp (files.mode, "write"));
  gridio ("close", ncid);
  check ("gridio is that of the package", strncmp (which ("gridio"), [folder "/"], numel (folder) + 1)
                                          && strcmp (which ("gridio")(end-10:end), "/gridio.oct"));
  check ("the manual is that of the package", strcmp (gridio_manual (), fullfile (folder, "doc", "html", "index.html"))
                                              && exist (gridio_manual (), "file") == 2);
  examples = gridio_version ().examples;
  check ("the examples are those of the package", strcmp (examples, fullfile (folder, "examples")));

  load = "pkg load gridio; ";
  said = session (fullfile (examples, "field.m"), "own.nc", "depth");
  check (["an example runs: " said],
         ! isempty (strfind (said, "\n3 values, 0 of them missing, from 9 to 200, mean 83\n")));
  said = session ("--eval", [load "printf (\"%d\\n\", gridio_read (\"own.nc\", \"depth\"))"]);
  check (["values of a dataset are read: " said], strcmp (said, "9\n40\n200\n"));
  for name = {"gridio", "gridio_help"}
    said = session ("--eval", [load "doc " name{1}]);
    check (["doc " name{1} " shows the manual"], strncmp (said, "File: gridio.info,", 18)
           && ! isempty (strfind (said(1:min (end, 10000)), ["This is the manual of gridio " version])));
  end
  delete ("own.nc");
end

function main (tarball)
  global passed = 0
  global failed = 0
  name = strrep (tarball(rindex (tarball, "/")+1:end), ".tar.gz", "");
  version = strsplit (name, "-"){end};

  check_archive (tarball, name);
  unpack (tarball, pwd ());
  check_files (name, version);
  confirm_recursive_rmdir (false, "local");
  rmdir (name, "s");

  % Not that of the whole machine; and a superuser would install for everyone.
  pkg ("global_list", fullfile (pwd (), "global"));
  own = {"-local"}(geteuid () == 0);
  said = evalc ('pkg ("install", own{:}, tarball)');
  check (["installing warns about nothing: " said], isempty (strfind (said, "warning: ")));
  listed = pkg ("list", "gridio");
  check (["the package is installed: " said], numel (listed) == 1 && strcmp (listed{1}.version, version));
  folder = listed{1}.dir;
  check ("it is in the user's home", strncmp (folder, [pwd() "/"], numel (pwd ()) + 1));
  pkg load gridio
  check_first_use (folder, version);
  check_session (folder);
  check_unloading ();
  pkg ("uninstall", own{:}, "gridio");
  check ("uninstalling leaves nothing", isempty (pkg ("list", "gridio")) && ! exist (folder, "dir"));
  % But for what the plots' library knows of the machine's fonts.
  [~, left] = run ("find", ".", "!", "-type", "d", "!", "-path", "./.cache/fontconfig/*", "-o", "-name", "*gridio*");
  left = sort (strsplit (strtrim (left), "\n"));
  check (["nothing else is left: " strjoin(left)], isequal (left, {"./fntests.log", "./global", "./left_open.nc", "./tests.log"}));

  printf ("%d passed, %d failed\n", passed, failed);
  exit (double (failed > 0));
end

main (argv (){1});
