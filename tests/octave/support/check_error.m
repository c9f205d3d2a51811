% SPDX-License-Identifier: BSD-3-Clause
% check_error (CLAIM, IDENTIFIER, ARG1, ...): the claim that gridio (ARG1, ...) raises the identifier,
% of which "Ovard:gridio:" is understood. Also returns the error.
function failure = check_error (claim, identifier, varargin)
  failure = struct ("identifier", "(no error)", "message", "");
  try
    gridio (varargin{:});
  catch failure
  end
  wanted = ["Ovard:gridio:" identifier];
  check (sprintf ("%s: %s instead of %s", claim, failure.identifier, wanted),
         strcmp (failure.identifier, wanted));
end
