% SPDX-License-Identifier: BSD-3-Clause
function result = numel (varargin)
  global impostorCalls
  impostorCalls{end + 1} = "numel";
  result = 1;
end
