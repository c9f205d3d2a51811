// SPDX-License-Identifier: BSD-3-Clause
#include "fuzz/operation_signatures.h"

#include <string_view>

namespace fuzz {
namespace {

struct Signature {
    std::string_view name;
    std::string_view parameters;
};

// clang-format off
constexpr Signature signatures[] = {
    {"abort", "n"}, {"close", "n"}, {"pCreate", "fmzz"}, {"create", "fm"}, {"endDef", "n"},
    {"pEndDef", "nzzzz"}, {"pOpen", "fmz"}, {"open", "fm"}, {"redef", "n"},
    {"setDefaultFormat", "i"}, {"setFill", "ni"}, {"sync", "n"},
    {"setChunkCache", "zzP"}, {"getChunkCache", ""},
    {"inq", "n"}, {"inqDimIDs", "nl"}, {"inqFormat", "n"}, {"inqLibVers", ""},
    {"inqUnlimDims", "n"}, {"inqVarIDs", "n"},
    {"defGrp", "nN"}, {"inqGrpName", "n"}, {"inqGrpNameFull", "n"}, {"inqGrps", "n"},
    {"inqGrpParent", "n"}, {"inqNcid", "nN"},
    {"defDim", "nNz"}, {"inqDim", "nd"}, {"inqDimID", "nN"}, {"renameDim", "ndN"},
    {"defVar", "nNxR"}, {"inqVarID", "nN"}, {"inqVar", "nv"}, {"renameVar", "nvN"},
    {"defVarChunking", "nviK"}, {"defVarDeflate", "nvlli"}, {"defVarFletcher32", "nvi"},
    {"inqVarChunking", "nv"}, {"inqVarDeflate", "nv"}, {"inqVarFletcher32", "nv"},
    {"defVarFill", "nvlV"}, {"inqVarFill", "nv"},
    {"copyAtt", "nvNnv"}, {"delAtt", "nvN"}, {"inqAtt", "nvN"}, {"inqAttID", "nvN"},
    {"inqAttName", "nv#"}, {"renameAtt", "nvNN"},
    {"parameter", "C"}, {"getConstantNames", ""},
};

// One operation for each element type.
constexpr Signature typedSignatures[] = {
    {"getAtt", "nvN"}, {"putAtt", "nvNxD"}, {"getVar", "nv"}, {"putVar", "nvD"},
    {"getVar1", "nvs"}, {"getVara", "nvsc"}, {"getVars", "nvsck"},
    {"putVar1", "nvsD"}, {"putVara", "nvscD"}, {"putVars", "nvsckD"},
};

struct Type {
    std::string_view suffix;
    vxClassID classId;
};
constexpr Type types[] = {
    {"Double", vxDOUBLE_CLASS}, {"Float", vxSINGLE_CLASS}, {"Int64", vxINT64_CLASS},
    {"Uint64", vxUINT64_CLASS}, {"Int", vxINT32_CLASS}, {"Uint", vxUINT32_CLASS},
    {"Short", vxINT16_CLASS}, {"Ushort", vxUINT16_CLASS}, {"Schar", vxINT8_CLASS},
    {"Uchar", vxUINT8_CLASS}, {"Ubyte", vxUINT8_CLASS}, {"Text", vxCHAR_CLASS},
};
// clang-format on

Operation typedOperation(const Signature& family, const Type& type)
{
    Operation operation{std::string(family.name).append(type.suffix),
                        std::string(family.parameters), type.classId};
    if (operation.name == "putVar1Uint")
        operation.name = "putVar1UInt";
    if (operation.name == "putVar1Uint64")
        operation.name = "putVar1UInt64";
    if (operation.name == "putAttText")
        operation.parameters = "nvND";
    return operation;
}

std::vector<Operation> makeOperations()
{
    std::vector<Operation> all;
    for (const Signature& signature : signatures)
        all.push_back(
            {std::string(signature.name), std::string(signature.parameters), vxUNKNOWN_CLASS});
    for (const Signature& family : typedSignatures) {
        const bool isOfAttributes = family.name.substr(3) == "Att";
        for (const Type& type : types) {
            if (type.suffix != "Ubyte" || isOfAttributes)
                all.push_back(typedOperation(family, type));
        }
    }
    return all;
}

} // namespace

const std::vector<Operation>& operations()
{
    static const std::vector<Operation> all = makeOperations();
    return all;
}

} // namespace fuzz
