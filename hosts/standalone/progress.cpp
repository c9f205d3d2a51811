// SPDX-License-Identifier: BSD-3-Clause
// How far operations are, which tests look up.
#include "hosts/standalone/ledger.h"

#include "vx/progress.h"

#include <algorithm>

void vxShowProgress(double done)
{
    standalone::Ledger& books = standalone::ledger();
    if (done < 0)
        ++books.operationsEnded;
    else if (done < books.lastProgress || done > 1)
        books.noteBreach("vxShowProgress: neither growing nor up to 1");
    ++books.progressShown;
    books.lastProgress = std::max(done, 0.0);
}
