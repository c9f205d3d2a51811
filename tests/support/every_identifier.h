// SPDX-License-Identifier: BSD-3-Clause
// Every identifier that the module raises, with arguments that a text can be searched for.
#pragma once

#include "vx/error.h"

#include <memory>
#include <string>
#include <vector>

struct Occurrence {
    std::shared_ptr<msgcat::BaseMsgID> id;
    std::vector<std::string> argumentsInText; // in this order
};

// A new class of identifiers gets its line here.
std::vector<Occurrence> everyIdentifier();
