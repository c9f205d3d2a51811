// SPDX-License-Identifier: BSD-3-Clause
// The factory of each codec, defined in a file of that name if the build found its library.
#pragma once

#include "chunks/codecs/codec.h"

namespace Ovard::gridio {

std::unique_ptr<Decompressor> makeBloscDecompressor(const Filter& filter);
std::unique_ptr<Decompressor> makeBzip2Decompressor(const Filter& filter);
std::unique_ptr<Decompressor> makeDeflateDecompressor(const Filter& filter);
std::unique_ptr<Decompressor> makeLz4Decompressor(const Filter& filter);
std::unique_ptr<Decompressor> makeSzipDecompressor(const Filter& filter);
std::unique_ptr<Decompressor> makeZstdDecompressor(const Filter& filter);

std::unique_ptr<Compressor> makeDeflateCompressor(const Filter& filter);

} // namespace Ovard::gridio
