// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/structure_result.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

vxArray* numberMatrix(const std::vector<double>& numbers, std::size_t rows, std::size_t columns)
{
    const std::size_t dims[] = {rows, columns};
    vxArray* array = vxCreateUninitNumericArray(2, dims, vxDOUBLE_CLASS, vxREAL);
    std::copy(numbers.begin(), numbers.end(), static_cast<double*>(vxGetWritableData(array)));
    return array;
}

} // namespace

vxArray* structureResult(const Fields& fields)
{
    std::vector<const char*> names;
    for (const auto& field : fields)
        names.push_back(field.first);
    vxArray* structure = vxCreateStruct(names.size(), names.data());
    for (std::size_t i = 0; i < fields.size(); ++i)
        vxSetField(structure, i, fields[i].second);
    return structure;
}

vxArray* numberColumn(const std::vector<double>& numbers)
{
    return numberMatrix(numbers, numbers.size(), 1);
}

vxArray* textColumn(const std::vector<std::string>& texts)
{
    vxArray* cells = emptyCells(texts.size(), 1);
    for (std::size_t i = 0; i < texts.size(); ++i)
        vxSetCell(cells, i, vxCreateString(texts[i].c_str()));
    return cells;
}

vxArray* numberRow(const std::vector<double>& numbers)
{
    return numberMatrix(numbers, 1, numbers.size());
}

vxArray* emptyCells(std::size_t rows, std::size_t columns)
{
    const std::size_t dims[] = {rows, columns};
    return vxCreateCellArray(2, dims);
}

} // namespace Ovard::gridio
