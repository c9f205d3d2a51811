// SPDX-License-Identifier: BSD-3-Clause
// The boundary of a native function: no exception leaves it but those that the interpreter expects.
#pragma once

#include <octave/oct.h>
#include <octave/quit.h>

#include <exception>
#include <new>
#include <string>

namespace hosts::oct {

// Returns what run returns. Any other exception is given as a text to raise, which raises an error
// of the interpreter and does not return.
template <class Run, class Raise> octave_value_list guardedCall(const Run& run, const Raise& raise)
{
    std::string failure;
    try {
        return run();
    } catch (const octave::execution_exception&) {
        throw;
    } catch (const octave::interrupt_exception&) {
        throw;
    } catch (const octave::exit_exception&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& foreign) {
        failure = foreign.what();
    } catch (...) {
        failure = "an exception of unknown type";
    }
    raise(failure);
    return {};
}

} // namespace hosts::oct
