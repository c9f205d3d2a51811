% SPDX-License-Identifier: BSD-3-Clause
% check (CLAIM, HOLDS): counts a claim and prints it when it does not hold.
% [PASSED, FAILED] = check (): what was counted.
function varargout = check (claim, holds)
  persistent passed = 0;
  persistent failed = 0;
  if nargin == 0
    varargout = {passed, failed};
  elseif isscalar (holds) && holds
    passed++;
  else
    failed++;
    printf ("FAILED: %s\n", claim);
  end
end
