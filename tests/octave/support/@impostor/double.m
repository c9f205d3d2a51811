% SPDX-License-Identifier: BSD-3-Clause
function result = double (varargin)
  global impostorCalls
  impostorCalls{end + 1} = "double";
  result = 1;
end
