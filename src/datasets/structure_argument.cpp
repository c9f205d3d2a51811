// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/structure_argument.h"

#include "convert/argument_readers.h"
#include "convert/numeric_class.h"
#include "dataset_error_identifiers.h"

#include <algorithm>
#include <cstring>

namespace Ovard::gridio {

std::vector<double> readNumbers(const vxArray* a, const char* name, const char* expected)
{
    std::vector<double> numbers(vxGetNumberOfElements(a));
    if (vxGetClassID(a) == vxLOGICAL_CLASS) {
        std::copy_n(vxGetLogicals(a), numbers.size(), numbers.begin());
        return numbers;
    }
    const bool isNumeric = visitNumericElements(a, [&](const auto* elements) {
        std::transform(elements, elements + numbers.size(), numbers.begin(),
                       [](auto element) { return static_cast<double>(element); });
    });
    if (!isNumeric)
        vxErrMsgId(dataset::badArgument(name, expected));
    return numbers;
}

std::vector<std::string> readTexts(const vxArray* a, const char* name)
{
    if (vxGetClassID(a) != vxCELL_CLASS)
        vxErrMsgId(dataset::badArgument(name, "a cell array of texts"));
    std::vector<std::string> texts(vxGetNumberOfElements(a));
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = readText(vxGetCell(a, i), name);
    return texts;
}

StructureArgument::StructureArgument(const vxArray* a, const char* name)
    : structure_(a), name_(name)
{
    if (vxGetClassID(a) != vxSTRUCT_CLASS || vxGetNumberOfElements(a) != 1)
        vxErrMsgId(dataset::badArgument(name, "a structure"));
}

const vxArray* StructureArgument::field(const char* fieldName) const
{
    for (std::size_t i = 0; i < vxGetNumberOfFields(structure_); ++i)
        if (std::strcmp(vxGetFieldName(structure_, i), fieldName) == 0)
            return vxGetField(structure_, i);
    const std::string expected = std::string("a structure with the field ") + fieldName;
    vxErrMsgId(dataset::badArgument(name_, expected));
}

double StructureArgument::number(const char* fieldName) const
{
    return readDoubleScalar(field(fieldName), fieldName);
}

std::vector<double> StructureArgument::numbers(const char* fieldName) const
{
    return readNumbers(field(fieldName), fieldName, "numbers");
}

std::string StructureArgument::text(const char* fieldName) const
{
    return readText(field(fieldName), fieldName);
}

std::vector<std::string> StructureArgument::texts(const char* fieldName) const
{
    return readTexts(field(fieldName), fieldName);
}

} // namespace Ovard::gridio
