// SPDX-License-Identifier: BSD-3-Clause
// Prints the advice on each status for the manual: the status, a tab and the text, or a heading
// alone.
#include "hosts/messages/status_advice.h"

#include <cstdio>

int main()
{
    for (const hosts::messages::StatusAdvice& row : hosts::messages::everyStatusAdvice()) {
        if (row.codeName == nullptr)
            std::puts(row.text);
        else
            std::printf("%s\t%s\n", row.codeName, row.text);
    }
}
