// SPDX-License-Identifier: BSD-3-Clause
// A call of one of the module's entries from the interpreter. No foreign exception leaves it.
#pragma once

#include "call.h"
#include "errors.h"
#include "guarded_call.h"
#include "vx/plug.h"

#include <octave/oct.h>

#include <string>

namespace hosts::oct {

template <auto entry> octave_value_list callModule(const octave_value_list& args, int nargout)
{
    Call call;
    const octave_idx_type count = args.length();
    auto** arguments = static_cast<const vxArray**>(
        call.allocate(static_cast<size_t>(count) * sizeof(const vxArray*)));
    for (octave_idx_type i = 0; i < count; ++i)
        arguments[i] = call.add(args(i));

    vxArray* results[plugResultSlots] = {};
    try {
        entry(nargout, results, static_cast<int>(count), arguments);
    } catch (const fnd::except::IMsgIDException& failure) {
        constexpr auto table = entry == plugAnyFunction       ? messages::OperationTable::any
                               : entry == plugDatasetFunction ? messages::OperationTable::datasets
                                                              : messages::OperationTable::first;
        raiseMessage(failure.messageId(), {arguments, static_cast<size_t>(count), table});
    }

    // All results, whatever the script requested: the interpreter drops surplus ones.
    octave_idx_type used = 0;
    while (used < plugResultSlots && results[used])
        ++used;
    octave_value_list values(used);
    for (octave_idx_type i = 0; i < used; ++i)
        values(i) = toValue(*results[i]);
    return values;
}

// before: called with the arguments first, for instance to warn.
template <auto entry, auto before>
octave_value_list callGuarded(const octave_value_list& args, int nargout)
{
    return guardedCall(
        [&] {
            before(args);
            return callModule<entry>(args, nargout);
        },
        [](const std::string& failure) { raiseInternal(failure.c_str()); });
}

} // namespace hosts::oct
