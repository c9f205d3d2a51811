## SPDX-License-Identifier: BSD-3-Clause

classdef gridio_file < handle

  ## -*- texinfo -*-
  ## @deftypefn {} {@var{file} =} gridio_file (@var{opened})
  ## Undocumented internal class: the open file of a dataset, closed when the last object of the dataset goes.
  ##
  ## There are two for each file.  The guard is held by the dataset, and closes the file in its destructor; what it guards is
  ## known to the end of the session as well, which closes it before the interpreter takes functions and classes down.  After
  ## that a destructor may call no function, and sees its properties only if the class has no indexing of its own: so this is
  ## a class of its own.
  ## @seealso{gridio_dataset}
  ## @end deftypefn

  properties (Hidden)
    content; # what file_open returned
    isOpen = false;
    isGuard = false;
    guarded;
  endproperties

  methods

    function self = gridio_file (opened)
      if (nargin != 1)
        fail ("badCall", "files are opened by gridio_dataset");
      elseif (isstruct (opened))
        self.content = opened;
        self.isOpen = true;
      else
        self.isGuard = true;
        self.guarded = opened;
      endif
    endfunction

    function delete (self)
      if (self.isGuard)
        if (self.guarded.isOpen)
          close_guarded (self.guarded, false);
        endif
      endif
    endfunction

  endmethods

endclassdef
