// SPDX-License-Identifier: BSD-3-Clause
#include "any/any_arguments.h"

#include "any_error_identifiers.h"
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/numeric_class.h"
#include "convert/numeric_conversion.h"
#include "convert/result_builders.h"

#include <boost/algorithm/string/predicate.hpp>

#include <algorithm>

namespace Ovard::gridio {
namespace {

template <class Target> std::vector<Target> readList(const vxArray* a, std::string_view name)
{
    std::vector<Target> list(vxGetNumberOfElements(a));
    const bool isNumeric = visitNumericElements(a, [&](const auto* elements) {
        using Source = std::decay_t<decltype(*elements)>;
        std::transform(elements, elements + list.size(), list.begin(),
                       convertChecked<Target, Source>);
    });
    if (!isNumeric)
        vxErrMsgId(
            any::badValueClass(std::string(name), "numbers, in an array of any numeric class"));
    return list;
}

} // namespace

nc_type readType(const vxArray* a, int ncid, std::string_view name, const OperationEntry* entry)
{
    if (vxGetClassID(a) != vxCHAR_CLASS)
        return readIntScalar(a, name);
    const std::string typeName = readText(a, name);
    nc_type xtype = NC_NAT;
    checkStatus(nc_inq_typeid(ncid, typeName.c_str(), &xtype), entry);
    return xtype;
}

std::vector<unsigned int> readUintList(const vxArray* a, std::string_view name)
{
    return readList<unsigned int>(a, name);
}

std::vector<int> readIntList(const vxArray* a, std::string_view name)
{
    return readList<int>(a, name);
}

int readWord(const vxArray* a, std::string_view name, const Word* words, std::size_t count)
{
    const std::string text = readText(a, name);
    std::string all;
    for (std::size_t i = 0; i < count; ++i) {
        if (boost::algorithm::iequals(text, words[i].text))
            return words[i].number;
        all += std::string(i == 0 ? "" : ", ") + words[i].text;
    }
    vxErrMsgId(any::unrecognizedWord(std::string(name), text, all));
}

vxArray* wordResult(int number, const Word* words, std::size_t count)
{
    const auto* found =
        std::find_if(words, words + count, [=](const Word& word) { return word.number == number; });
    return textResult(found == words + count ? std::to_string(number).c_str() : found->text);
}

} // namespace Ovard::gridio
