% SPDX-License-Identifier: BSD-3-Clause
% The contract in the interpreter's host: a line for each check. The last one ends this script.
samples = {[1; 2], single([1; 2]), int8([1; 2]), uint8([1; 2]), int16([1; 2]), uint16([1; 2]), int32([1; 2]), ...
           uint32([1; 2]), int64([1; 2]), uint64([1; 2]), ['a'; 'b'], [true; false], {1; 'x'}, ...
           struct('a', {1; 2}, 'b', 3), @sin, reshape(int32(1:12), [2 3 2]), [1-1i, 2-2i, 3-3i], ...
           sparse([0 5 0; 0 0 6]), 1:5, true, [true, true], zeros(0, 3), '', zeros(2, 0, 5, 'int8'), cell(3, 0), ...
           {1, 'two'; {3}, []}, struct('depth', single([1; 2]), 'name', 'high', 'inner', struct('flag', true)), ...
           'open', ['a', 'c'; char(0), 'd'], [intmin('int64'), intmax('int64')]};

function failures = check(name, count, ending, samples)
    entry = @gridio;
    if strcmp(ending, 'second')
        entry = @gridio_any;
    end
    lastwarn('', '');
    results = cell(1, count);
    identifier = '';
    try
        % Five results are asked for where there are five.
        [results{:}] = entry(name, samples{:});
    catch failure
        identifier = failure.identifier;
    end
    [~, warned] = lastwarn();
    switch ending
        case 'raises'
            isRight = strcmp(identifier, 'contract:error');
        case 'memory'
            isRight = strcmp(identifier, 'Octave:bad-alloc') || any(strfind(failure.message, 'out of memory'));
        case 'fails'
            isRight = strcmp(identifier, 'Ovard:gridio:host:internal');
        case 'warns'
            isRight = isempty(identifier) && strcmp(warned, 'contract:warning');
        otherwise
            isRight = isempty(identifier) && isempty(warned);
    end
    if ! isRight
        failures = sprintf('raised "%s", warned "%s"', identifier, warned);
        return
    end
    failures = results{1};
    if isempty(failures) && count > 1 && isempty(identifier)
        failures = entry(['again:' name], results{2:end});
    end
end

list = textscan(gridio('checks'), '%s %d %s');
for i = 1:numel(list{1})
    if strcmp(list{3}{i}, 'interrupt')
        continue
    end
    failures = check(list{1}{i}, list{2}(i), list{3}{i}, samples);
    if isempty(failures)
        printf('ok %s\n', list{1}{i});
    else
        printf('FAILED %s: %s\n', list{1}{i}, failures);
    end
end
clear gridio gridio_any
fflush(stdout);
unwind_protect
    gridio('CallsPassInterrupts', samples{:});
    printf('FAILED CallsPassInterrupts\n');
unwind_protect_cleanup
    printf('ok CallsPassInterrupts\n');
end_unwind_protect
printf('FAILED the script went on after an interrupt\n');
