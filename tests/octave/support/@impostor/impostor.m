% SPDX-License-Identifier: BSD-3-Clause
% An object of the older kind with the same intent as Impostor.
function object = impostor ()
  object = class (struct ("value", 1), "impostor");
end
