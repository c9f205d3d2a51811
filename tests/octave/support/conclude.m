% SPDX-License-Identifier: BSD-3-Clause
% Prints the counts and ends the session with the result as its status.
function conclude ()
  [passed, failed] = check ();
  printf ("%d passed, %d failed\n", passed, failed);
  exit (failed > 0 || passed == 0);
end
