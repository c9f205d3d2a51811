// SPDX-License-Identifier: BSD-3-Clause
// The interpreter records a signal when it arrives and acts on it when it is safe.
#include "vx/interrupt.h"

#include <octave/quit.h>

// Other signals, such as that of a child that has ended, are no reason to stop.
bool vxContinue() { return octave_signal_caught == 0 || octave_interrupt_state <= 0; }

void vxRaiseInterrupt()
{
    octave_quit();
    throw octave::interrupt_exception(); // the signal was handled in the meantime
}
