// SPDX-License-Identifier: BSD-3-Clause
// Interrupts, which tests simulate.
#include "hosts/standalone/errors.h"
#include "hosts/standalone/ledger.h"

#include "vx/interrupt.h"

bool vxContinue()
{
    standalone::Ledger& books = standalone::ledger();
    ++books.continueQuestions;
    return books.interruptedQuestion == 0 || books.continueQuestions < books.interruptedQuestion;
}

void vxRaiseInterrupt()
{
    standalone::ledger().interruptedQuestion = 0;
    throw standalone::Interrupt();
}
