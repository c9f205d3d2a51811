% SPDX-License-Identifier: BSD-3-Clause
% The text and the identifier of the last warning that CALL shows; both are empty without one. Octave 11 remembers in
% lastwarn also what is switched off: after such a one the identifier is not known.
function [text, identifier] = raised_warning (call)
  lastwarn ("", "");
  shown = evalc ("call ();");
  [text, identifier] = lastwarn ();
  if (isempty (text) || isempty (strfind (shown, text)))
    shown = regexp (shown, '^(?:[^\n]*: )?warning: (?!called from$)(.*)$', "tokens", "lineanchors", "dotexceptnewline");
    text = identifier = "";
    if (! isempty (shown))
      text = shown{end}{1};
    end
  end
end
