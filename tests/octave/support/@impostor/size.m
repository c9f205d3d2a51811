% SPDX-License-Identifier: BSD-3-Clause
function result = size (varargin)
  global impostorCalls
  impostorCalls{end + 1} = "size";
  result = ones (1, 2);
end
