// SPDX-License-Identifier: BSD-3-Clause
#include "fuzz/nested_type.h"

#include <netcdf.h>

#include <cstddef>
#include <stdexcept>

namespace fuzz {

using standalone::Value;

namespace {

struct Nested {
    char* name;
    nc_vlen_t words;
    signed char sky;
    unsigned char blob[3];
    short counts[2];
};

void require(int status)
{
    if (status != NC_NOERR)
        throw std::runtime_error(std::string("preparing types: ") + nc_strerror(status));
}

} // namespace

int addNestedType(int ncid)
{
    static const signed char members[] = {0, 1};
    static const int two = 2;
    static const int x = 0;
    nc_type sky = 0;
    nc_type words = 0;
    nc_type blob = 0;
    nc_type pair = 0;
    nc_type nested = 0;
    require(nc_def_enum(ncid, NC_BYTE, "sky", &sky));
    require(nc_insert_enum(ncid, sky, "clear", &members[0]));
    require(nc_insert_enum(ncid, sky, "cloudy", &members[1]));
    require(nc_def_vlen(ncid, "words", NC_STRING, &words));
    require(nc_def_opaque(ncid, 3, "blob", &blob));
    require(nc_def_compound(ncid, 8, "pair", &pair));
    require(nc_insert_compound(ncid, pair, "a", 0, NC_INT));
    require(nc_def_compound(ncid, sizeof(Nested), "nested", &nested));
    require(nc_insert_compound(ncid, nested, "name", offsetof(Nested, name), NC_STRING));
    require(nc_insert_compound(ncid, nested, "words", offsetof(Nested, words), words));
    require(nc_insert_compound(ncid, nested, "sky", offsetof(Nested, sky), sky));
    require(nc_insert_compound(ncid, nested, "blob", offsetof(Nested, blob), blob));
    require(nc_insert_array_compound(ncid, nested, "counts", offsetof(Nested, counts), NC_SHORT, 1,
                                     &two));
    int variable = 0;
    require(nc_def_var(ncid, "u", nested, 1, &x, &variable));

    char one[] = "one";
    char* list[] = {one, one};
    const Nested value = {one, {2, list}, 1, {1, 2, 3}, {4, 5}};
    const Nested both[] = {value, value};
    require(nc_put_att(ncid, variable, "range", nested, 2, both));
    return variable;
}

Value nestedValues(std::size_t count)
{
    const std::vector<Value> words(count, Value::cell({2, 1}, {"one", ""}));
    return Value::structure(
        {{"name", Value::cell({count, 1}, std::vector<Value>(count, "Oslo"))},
         {"words", Value::cell({count, 1}, words)},
         {"sky", Value::cell({count, 1}, std::vector<Value>(count, "clear"))},
         {"blob",
          Value::numeric<std::uint8_t>({3, count}, std::vector<std::uint8_t>(3 * count, 7))},
         {"counts", Value::numeric<double>({2, count}, std::vector<double>(2 * count, 8))}});
}

} // namespace fuzz
