// SPDX-License-Identifier: BSD-3-Clause
// The kinds of failure that a script can see, one class each. The class name is the last word of
// the identifier; the constructor's arguments are the message's, in order.
#pragma once

#include "vx/error.h"

#include <string>

namespace Ovard::gridio::validate {

// The argument count differs from the operation table.
struct wrongNumberOfInputs : msgcat::BaseMsgID {
    wrongNumberOfInputs() : BaseMsgID("Ovard:gridio:validate:wrongNumberOfInputs") {}
};

// A range-checked numeric conversion of an argument overflowed.
struct argumentOutOfBounds : msgcat::BaseMsgID {
    argumentOutOfBounds() : BaseMsgID("Ovard:gridio:validate:argumentOutOfBounds") {}
};

} // namespace Ovard::gridio::validate

namespace Ovard::gridio::netcdf {

using msgcat::MessageText;

// There is no such operation, or a family handler was reached with a code outside its family.
struct unrecognizedOperation : msgcat::BaseMsgID {
    explicit unrecognizedOperation(const std::string& operation)
        : BaseMsgID("Ovard:gridio:netcdf:unrecognizedOperation", {MessageText(operation)})
    {
    }
};

// A library call returned a status that is neither success nor a remote-access status.
struct libraryFailure : msgcat::BaseMsgID {
    libraryFailure(const std::string& operation, const std::string& codeName,
                   const std::string& libraryMessage)
        : BaseMsgID("Ovard:gridio:netcdf:libraryFailure",
                    {MessageText(operation), MessageText(codeName), MessageText(libraryMessage)})
    {
    }
};

// A library call returned a remote-access status.
struct librarydapFailure : msgcat::BaseMsgID {
    librarydapFailure(const std::string& operation, const std::string& codeName,
                      const std::string& libraryMessage)
        : BaseMsgID("Ovard:gridio:netcdf:librarydapFailure",
                    {MessageText(operation), MessageText(codeName), MessageText(libraryMessage)})
    {
    }
};

// A scalar argument is empty, not one element, not numeric, NaN or infinite, or a fill value of the
// wrong class.
struct badScalarArgument : msgcat::BaseMsgID {
    badScalarArgument(const std::string& parameter, const std::string& expectedKind)
        : BaseMsgID("Ovard:gridio:netcdf:badScalarArgument",
                    {MessageText(parameter), MessageText(expectedKind)})
    {
    }
};

// A text argument is not a character array.
struct argumentWasNotChar : msgcat::BaseMsgID {
    explicit argumentWasNotChar(const std::string& parameter)
        : BaseMsgID("Ovard:gridio:netcdf:argumentWasNotChar", {MessageText(parameter)})
    {
    }
};

// A flag argument is not a logical scalar.
struct expectedLogicalType : msgcat::BaseMsgID {
    explicit expectedLogicalType(const std::string& parameter)
        : BaseMsgID("Ovard:gridio:netcdf:expectedLogicalType", {MessageText(parameter)})
    {
    }
};

// The data of a variable write are empty.
struct emptyVariableData : msgcat::BaseMsgID {
    emptyVariableData() : BaseMsgID("Ovard:gridio:netcdf:emptyVariableData") {}
};

// START, COUNT or STRIDE is empty.
struct argumentIsEmpty : msgcat::BaseMsgID {
    explicit argumentIsEmpty(const std::string& parameter)
        : BaseMsgID("Ovard:gridio:netcdf:argumentIsEmpty", {MessageText(parameter)})
    {
    }
};

// START, COUNT or STRIDE is not of a numeric class.
struct argumentHasBadDatatype : msgcat::BaseMsgID {
    explicit argumentHasBadDatatype(const std::string& parameter)
        : BaseMsgID("Ovard:gridio:netcdf:argumentHasBadDatatype", {MessageText(parameter)})
    {
    }
};

// The mode argument is empty.
struct argumentIsEmptySet : msgcat::BaseMsgID {
    explicit argumentIsEmptySet(const std::string& parameter)
        : BaseMsgID("Ovard:gridio:netcdf:argumentIsEmptySet", {MessageText(parameter)})
    {
    }
};

// The mode argument is neither text nor a number of an accepted class.
struct badModeDatatype : msgcat::BaseMsgID {
    badModeDatatype() : BaseMsgID("Ovard:gridio:netcdf:badModeDatatype") {}
};

// A mode word is not known; the argument is the word in upper case.
struct unrecognizedFileMode : msgcat::BaseMsgID {
    explicit unrecognizedFileMode(const std::string& modeWord)
        : BaseMsgID("Ovard:gridio:netcdf:unrecognizedFileMode", {MessageText(modeWord)})
    {
    }
};

// There is no constant of that name; the argument is the name as it was looked up.
struct unrecognizedCharParameter : msgcat::BaseMsgID {
    explicit unrecognizedCharParameter(const std::string& constantName)
        : BaseMsgID("Ovard:gridio:netcdf:unrecognizedCharParameter", {MessageText(constantName)})
    {
    }
};

// The library reported a format code outside 1 to 4.
struct unknownNetCDFFormat : msgcat::BaseMsgID {
    explicit unknownNetCDFFormat(long formatCode)
        : BaseMsgID("Ovard:gridio:netcdf:unknownNetCDFFormat", {formatCode})
    {
    }
};

// A variable inquiry was called with the global pseudo-variable (NC_GLOBAL).
struct inqVarNcGlobal : msgcat::BaseMsgID {
    inqVarNcGlobal() : BaseMsgID("Ovard:gridio:netcdf:inqVarNcGlobal") {}
};

// The number of chunk sizes differs from the number of dimensions.
struct invalidChunkParameter : msgcat::BaseMsgID {
    invalidChunkParameter(long sizesGiven, long dimensionsOfVariable)
        : BaseMsgID("Ovard:gridio:netcdf:invalidChunkParameter", {sizesGiven, dimensionsOfVariable})
    {
    }
};

// A storage setting is neither chunked nor contiguous.
struct unrecognizedChunkStorage : msgcat::BaseMsgID {
    unrecognizedChunkStorage() : BaseMsgID("Ovard:gridio:netcdf:unrecognizedChunkStorage") {}
};

// The library reported a storage code other than chunked or contiguous.
struct unrecognizedChunkingCode : msgcat::BaseMsgID {
    explicit unrecognizedChunkingCode(long storageCode)
        : BaseMsgID("Ovard:gridio:netcdf:unrecognizedChunkingCode", {storageCode})
    {
    }
};

// Chunking was inquired on a file that is not netCDF-4.
struct attemptedChunkingInquiryOnNetcdf3File : msgcat::BaseMsgID {
    attemptedChunkingInquiryOnNetcdf3File()
        : BaseMsgID("Ovard:gridio:netcdf:attemptedChunkingInquiryOnNetcdf3File")
    {
    }
};

// The library reported a checksum setting other than none or Fletcher-32.
struct unrecognizedFletcher32Setting : msgcat::BaseMsgID {
    explicit unrecognizedFletcher32Setting(long setting)
        : BaseMsgID("Ovard:gridio:netcdf:unrecognizedFletcher32Setting", {setting})
    {
    }
};

// The checksum was inquired on a file that is not netCDF-4.
struct attemptedChecksumInquiryOnNetcdf3File : msgcat::BaseMsgID {
    attemptedChecksumInquiryOnNetcdf3File()
        : BaseMsgID("Ovard:gridio:netcdf:attemptedChecksumInquiryOnNetcdf3File")
    {
    }
};

// A fill value was set or inquired for a type without fill values here.
struct unhandledFillDatatype : msgcat::BaseMsgID {
    explicit unhandledFillDatatype(long externalType)
        : BaseMsgID("Ovard:gridio:netcdf:unhandledFillDatatype", {externalType})
    {
    }
};

// A numeric _FillValue attribute was written to a variable of a netCDF-4 file.
struct postCreationFillValueDefinition : msgcat::BaseMsgID {
    postCreationFillValueDefinition()
        : BaseMsgID("Ovard:gridio:netcdf:postCreationFillValueDefinition")
    {
    }
};

// An attribute read was reached with a code outside its family.
struct unhandledAttributeOperation : msgcat::BaseMsgID {
    explicit unhandledAttributeOperation(const std::string& operation)
        : BaseMsgID("Ovard:gridio:netcdf:unhandledAttributeOperation", {MessageText(operation)})
    {
    }
};

// The data do not fill the variable, or hold fewer bytes than the operation would read.
struct dataSizeMismatch : msgcat::BaseMsgID {
    dataSizeMismatch() : BaseMsgID("Ovard:gridio:netcdf:dataSizeMismatch") {}
};

// The product of COUNT differs from the number of data elements.
struct countNotEqualToData : msgcat::BaseMsgID {
    countNotEqualToData(long countProduct, long elementsGiven)
        : BaseMsgID("Ovard:gridio:netcdf:countNotEqualToData", {countProduct, elementsGiven})
    {
    }
};

// START, COUNT or STRIDE does not have one element for each dimension of the variable.
struct badIndexArgumentLength : msgcat::BaseMsgID {
    badIndexArgumentLength(const std::string& label, const std::string& variable,
                           long lengthRequired, long lengthGiven)
        : BaseMsgID("Ovard:gridio:netcdf:badIndexArgumentLength",
                    {MessageText(label), MessageText(variable), lengthRequired, lengthGiven})
    {
    }
};

// An index vector holds a NaN or an infinite value.
struct indexArgumentNotFinite : msgcat::BaseMsgID {
    indexArgumentNotFinite() : BaseMsgID("Ovard:gridio:netcdf:indexArgumentNotFinite") {}
};

// A row of dimension identifiers or chunk sizes is not of class double.
struct badRowDatatype : msgcat::BaseMsgID {
    explicit badRowDatatype(const std::string& parameter)
        : BaseMsgID("Ovard:gridio:netcdf:badRowDatatype", {MessageText(parameter)})
    {
    }
};

// A row of dimension identifiers or chunk sizes is too long.
struct rowLengthOutOfBounds : msgcat::BaseMsgID {
    rowLengthOutOfBounds(const std::string& parameter, long limit)
        : BaseMsgID("Ovard:gridio:netcdf:rowLengthOutOfBounds", {MessageText(parameter), limit})
    {
    }
};

// The one warning: files were still open when the module was unloaded.
struct closingFileHandle : msgcat::BaseMsgID {
    closingFileHandle() : BaseMsgID("Ovard:gridio:netcdf:closingFileHandle") {}
};

} // namespace Ovard::gridio::netcdf
