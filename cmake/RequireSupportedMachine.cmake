# SPDX-License-Identifier: BSD-3-Clause
# Values are exchanged with files and hosts as bytes in little-endian order, and sizes of the library as 64 bits.
function(require_supported_machine pointer_size byte_order)
    if(NOT pointer_size EQUAL 8)
        math(EXPR bits "8 * ${pointer_size}")
        message(FATAL_ERROR "gridio needs a 64-bit system, and this one has ${bits} bits.")
    endif()
    if(NOT byte_order STREQUAL "LITTLE_ENDIAN")
        message(FATAL_ERROR "gridio needs a little-endian system, and this one is big-endian.")
    endif()
endfunction()
