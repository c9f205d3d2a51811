// SPDX-License-Identifier: BSD-3-Clause
// Prints the identifiers of errors and warnings that are raised in C++, one a line: each of the
// module with the number of its arguments, then those of the interpreter's host.
#include "every_identifier.h"
#include "hosts/octave/host_identifiers.h"

#include <cstdio>

int main()
{
    for (const Occurrence& o : everyIdentifier())
        std::printf("%s %zu\n", o.id->identifier(), o.id->arguments().size());
    for (const char* identifier : hosts::oct::hostIdentifiers)
        std::printf("%s\n", identifier);
}
