% SPDX-License-Identifier: BSD-3-Clause
% The peak memory of this process, in bytes.
function bytes = peak_memory ()
  kilobytes = regexp (fileread ("/proc/self/status"), 'VmHWM:\s+(\d+)', "tokens"){1}{1};
  bytes = 1024 * str2double (kilobytes);
end
