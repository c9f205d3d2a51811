## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {@var{r} =} gridio_reduce (@var{files}, @var{partial}, @var{combine})
## @deftypefnx {} {@var{r} =} gridio_reduce (@dots{}, "on", @var{place})
## @deftypefnx {} {@var{r} =} gridio_reduce (@dots{}, @var{option}, @var{value}, @dots{})
## @deftypefnx {} {[@var{r}, @var{info}] =} gridio_reduce (@dots{})
## Reduce many files to one result, in this process, on all cores, or on a cluster.
##
## @var{files} is a pattern such as @qcode{"sst_*.nc"}, whose files are taken in the order of their names, or a cell array
## of names.  They are divided into bins of consecutive files.  @var{partial} gets the names of a bin's files in a cell array
## and returns a struct with whatever is needed of them, such as a sum and a count.  @var{combine} gets two such structs, of
## files that follow each other, and returns the one of them all.  @var{r} is the struct of all files.
##
## @example
## @group
## partial = @@(files) struct ("sum", sum (gridio_read (files@{1@}, "sst"), 3), "count", 31);
## combine = @@(a, b) struct ("sum", a.sum + b.sum, "count", a.count + b.count);
## r = gridio_reduce ("sst_*.nc", partial, combine, "on", "cores", "bin", 1);
## average = r.sum / r.count;
## @end group
## @end example
##
## The bins depend on the list of files alone and are combined in a fixed order, so that the result is the same to the last
## bit at every place and with any number of processes.
##
## @table @asis
## @item "on"
## The place: @qcode{"here"}, this process, the default; @qcode{"cores"}, several processes of this machine;
## @qcode{"mpi"}, all ranks of a script that @command{mpirun} or @command{srun} started, each of which gets the result;
## @qcode{"slurm"}, jobs that are handed over to Slurm's @command{sbatch}.
## @item "folder"
## A folder that keeps the partial of each bin.  A second call, after a failure or with more files, computes only those that
## are missing or of which files or functions have changed.  Changes in functions that @var{partial} calls in turn are not noticed.
## @item "bin"
## The number of files in a bin.  By default at most 256 bins are made.
## @item "workers"
## The number of processes on @qcode{"cores"}; by default as many as the machine has processors.
## @item "tasks", "sbatch", "wait"
## On @qcode{"slurm"}: the number of tasks of the array job, at most and by default 64; further arguments of
## @command{sbatch} in a cell array, such as @code{@{"--time=10", "--mem=4G"@}}; and whether to wait for the result.  If
## @code{"wait"} is false, @var{r} is a struct of functions that is explained below.
## @end table
##
## Other processes know the load path, the working folder, and the variables that anonymous functions have captured.  What
## cannot travel is refused, such as a dataset: open it in @var{partial}.  Processes start anew and end with the call, whatever
## happens.  When @var{partial} fails, the error names the file.
##
## @var{info} has the number of @code{files} and @code{bins}, @code{rank} and @code{ranks}, the number of this process and
## how many there are (0 and 1, except under MPI), and the @code{seconds} passed.  Under MPI, let one rank write the result:
##
## @example
## @group
## [r, info] = gridio_reduce ("sst_*.nc", @@sums, @@add, "on", "mpi");
## if (info.rank == 0)
##   gridio_write ("mean.nc", "sst", r.sum ./ r.count, @{"lon", "lat"@});
## endif
## @end group
## @end example
##
## With @code{"wait", false}, @code{r.state ()} is @qcode{"waiting"}, @qcode{"running"}, @qcode{"done"} or
## @qcode{"failed"}, @code{r.fetch ()} waits for the result and returns it, @code{r.cancel ()} cancels the jobs, and
## @code{r.jobs} and @code{r.folder} are the numbers of Slurm's jobs and the folder of partials and logs.  The same call in a later session
## finds jobs that still run, or the partials of those that have ended.
##
## @seealso{gridio_dataset, gridio_variable, gridio_threads}
## @end deftypefn

function [r, info] = gridio_reduce (files, partial, combine, varargin)

  if (nargin < 3)
    print_usage ();
  endif
  since = tic ();
  files = reduced_files (files);
  if (! is_function_handle (partial) || ! is_function_handle (combine))
    fail ("badCall", "PARTIAL and COMBINE must be function handles, such as @partial");
  endif
  options = reduce_options (varargin);
  options.scope.files = unique ({dbstack("-completenames")(2:end).file});
  options.scope.files(cellfun (@isempty, options.scope.files)) = [];
  ## Functions that only the caller's file sees.
  for word = function_words ([func2str(partial) "\n" func2str(combine)])
    own = evalin ("caller", ["@" word{1}], "[]");
    if (is_function_handle (own) && strcmp (functions (own).type, "scopedfunction"))
      options.scope.own.(word{1}) = own;
    endif
  endfor

  question = reduce_question (files, partial, combine, options);
  info = struct ("files", numel (files), "bins", question.count, "rank", 0, "ranks", 1, "seconds", 0);
  switch (options.place)
    case "here"
      show_progress ("begin", numel (files));
      unwind_protect
        tree = reduce_here (question, 0, question.count - 1, @(k) show_progress ("go on", question.edges(k+1)));
      unwind_protect_cleanup
        show_progress ("end");
      end_unwind_protect
      r = tree.value{1};
    case "cores"
      r = reduce_on_cores (question, options);
    case "mpi"
      [r, info.rank, info.ranks] = reduce_on_mpi (question, options);
    case "slurm"
      r = reduce_on_slurm (question, options);
  endswitch
  info.seconds = toc (since);

endfunction

%!function p = sums (files)
%!  p = struct ("sum", sum (cellfun (@str2double, files) / 3), "files", {files});
%!endfunction
%!function p = add (a, b)
%!  p = struct ("sum", a.sum + b.sum, "files", {[a.files, b.files]});
%!endfunction

%!test
%! ## Bins are fixed, and combined in order.
%! files = arrayfun (@(k) sprintf ("%d", k), 1:11, "UniformOutput", false);
%! [r, info] = gridio_reduce (files, @sums, @add);
%! assert (r.files, files);
%! assert ([info.files, info.bins, info.rank, info.ranks], [11 11 0 1]);
%! p = @(k) k / 3;
%! assert (r.sum, (((p (1) + p (2)) + (p (3) + p (4))) + ((p (5) + p (6)) + (p (7) + p (8)))) + ((p (9) + p (10)) + p (11)), 0);
%! [r, info] = gridio_reduce (files, @sums, @add, "bin", 4);
%! assert (info.bins, 3);
%! assert (r.files, files);

%!test
%! ## Other processes get captured variables, to the last bit.
%! weight = [1/3, -0];
%! f = @(files) struct ("n", numel (files) * weight);
%! r = gridio_reduce ({"a", "b", "c"}, f, @(a, b) struct ("n", a.n + b.n), "on", "cores", "workers", 2);
%! assert (r.n(1), (1/3 + 1/3) + 1/3, 0);
%! assert (1 / r.n(2), -Inf);

%!test
%! ## A folder keeps what is done; changed functions do not take it.
%! folder = tempname ();
%! unwind_protect
%!   add = @(a, b) struct ("n", a.n + b.n);
%!   for factor = [1 1 2]
%!     r = gridio_reduce ({"a", "b", "c"}, @(f) struct ("n", factor * numel (f)), add, "folder", folder);
%!     assert (r.n, 3 * factor);
%!   endfor
%!   assert (numel (glob (fullfile (folder, "partial-*"))), 6);
%! unwind_protect_cleanup
%!   confirm_recursive_rmdir (false, "local");
%!   rmdir (folder, "s");
%! end_unwind_protect

%!error <Invalid call> gridio_reduce ("*.nc")
%!error <no file matches> gridio_reduce ("/nowhere/*.nc", @sin, @plus)
%!error <FILES must be a pattern or a cell array of names> gridio_reduce (3, @sin, @plus)
%!error <must be function handles> gridio_reduce ({"a"}, "sin", @plus)
%!error <"on" must be one of here, cores, mpi, slurm, not moon> gridio_reduce ({"a"}, @sin, @plus, "on", "moon")
%!error <"workers" must be a whole number from 1> gridio_reduce ({"a"}, @sin, @plus, "workers", 0)
%!error <no option 'speed'> gridio_reduce ({"a"}, @sin, @plus, "speed", 2)
%!error <each option needs a value> gridio_reduce ({"a"}, @sin, @plus, "on")
%!error <PARTIAL must return one struct> gridio_reduce ({"a"}, @(f) 3, @plus)
%!error <a: no luck> gridio_reduce ({"a"}, @(f) error ("no luck"), @plus)
%!error <the variable 'm' of PARTIAL is a containers.Map> m = containers.Map (); gridio_reduce ({"a"}, @(f) m(f{1}), @plus, "on", "cores")
