// SPDX-License-Identifier: BSD-3-Clause
// The interpreter notes a signal when it comes and acts upon it when it is safe to.
#include "vx/interrupt.h"

#include <octave/quit.h>

// Other signals, such as that of a child that has ended, are no reason to stop.
bool vxContinue() { return octave_signal_caught == 0 || octave_interrupt_state <= 0; }

void vxRaiseInterrupt()
{
    octave_quit();
    throw octave::interrupt_exception(); // the signal was seen to meanwhile
}
