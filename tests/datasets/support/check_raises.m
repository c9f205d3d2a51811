% SPDX-License-Identifier: BSD-3-Clause
% check_raises (CLAIM, KIND, CALL, PATTERN): the claim that CALL () raises Ovard:gridio:dataset:KIND with a message that the
% pattern matches.
function check_raises (claim, kind, call, pattern = "")
  failure = struct ("identifier", "(no error)", "message", "");
  try
    call ();
  catch failure
  end
  wanted = ["Ovard:gridio:dataset:" kind];
  check (sprintf ("%s: %s instead of %s (%s)", claim, failure.identifier, wanted, failure.message),
         strcmp (failure.identifier, wanted));
  check (sprintf ("%s: \"%s\" does not match %s", claim, failure.message, pattern),
         ! isempty (regexp (failure.message, pattern, "once")) || isempty (pattern));
end
