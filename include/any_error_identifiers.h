// SPDX-License-Identifier: BSD-3-Clause
// The kinds of failure that the operations on values of any type add to error_identifiers.h. A
// place is a position within the values, such as "field 2 'depth', element 7", counted from 1 in
// storage order.
#pragma once

#include "vx/error.h"

#include <string>

namespace Ovard::gridio::any {

using msgcat::MessageText;

// Values, or a part of them, do not have the class that their type needs.
struct badValueClass : msgcat::BaseMsgID {
    badValueClass(const std::string& place, const std::string& expected)
        : BaseMsgID("Ovard:gridio:any:badValueClass", {MessageText(place), MessageText(expected)})
    {
    }
};

// There are more or fewer values than needed in a part of them.
struct wrongNumberOfValues : msgcat::BaseMsgID {
    wrongNumberOfValues(const std::string& place, long needed, long given)
        : BaseMsgID("Ovard:gridio:any:wrongNumberOfValues", {MessageText(place), needed, given})
    {
    }
};

// A number has no exact counterpart in the type that it is to be stored in.
struct valueDoesNotFit : msgcat::BaseMsgID {
    valueDoesNotFit(const std::string& place, const std::string& value, const std::string& type)
        : BaseMsgID("Ovard:gridio:any:valueDoesNotFit",
                    {MessageText(place), MessageText(value), MessageText(type)})
    {
    }
};

// A label is not a member of the enumeration; members are listed with commas between them.
struct unknownLabel : msgcat::BaseMsgID {
    unknownLabel(const std::string& place, const std::string& label, const std::string& type,
                 const std::string& members)
        : BaseMsgID("Ovard:gridio:any:unknownLabel", {MessageText(place), MessageText(label),
                                                      MessageText(type), MessageText(members)})
    {
    }
};

// A structure lacks a field of its compound type.
struct missingField : msgcat::BaseMsgID {
    missingField(const std::string& place, const std::string& field, const std::string& type)
        : BaseMsgID("Ovard:gridio:any:missingField",
                    {MessageText(place), MessageText(field), MessageText(type)})
    {
    }
};

// A structure has a field that its compound type does not have.
struct surplusField : msgcat::BaseMsgID {
    surplusField(const std::string& place, const std::string& field, const std::string& type)
        : BaseMsgID("Ovard:gridio:any:surplusField",
                    {MessageText(place), MessageText(field), MessageText(type)})
    {
    }
};

// A text to be stored as a string contains a NUL, where the string would end.
struct textHoldsNul : msgcat::BaseMsgID {
    explicit textHoldsNul(const std::string& place)
        : BaseMsgID("Ovard:gridio:any:textHoldsNul", {MessageText(place)})
    {
    }
};

// The file's description of a type contradicts itself.
struct damagedType : msgcat::BaseMsgID {
    explicit damagedType(const std::string& type)
        : BaseMsgID("Ovard:gridio:any:damagedType", {MessageText(type)})
    {
    }
};

// A compound type whose fields are not laid out as in a C structure, although the library reads and
// writes them so.
struct unalignedType : msgcat::BaseMsgID {
    unalignedType(const std::string& type, const std::string& layout)
        : BaseMsgID("Ovard:gridio:any:unalignedType", {MessageText(type), MessageText(layout)})
    {
    }
};

// A type whose values the file stores in another layout or byte order than this machine's memory:
// the library would write them incorrectly.
struct foreignType : msgcat::BaseMsgID {
    explicit foreignType(const std::string& type)
        : BaseMsgID("Ovard:gridio:any:foreignType", {MessageText(type)})
    {
    }
};

// A word is not one of those that an argument accepts; words are listed with commas between them.
struct unrecognizedWord : msgcat::BaseMsgID {
    unrecognizedWord(const std::string& parameter, const std::string& word,
                     const std::string& words)
        : BaseMsgID("Ovard:gridio:any:unrecognizedWord",
                    {MessageText(parameter), MessageText(word), MessageText(words)})
    {
    }
};

} // namespace Ovard::gridio::any
