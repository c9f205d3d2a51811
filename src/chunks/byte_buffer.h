// SPDX-License-Identifier: BSD-3-Clause
// Uninitialised memory for bytes that are about to be written.
#pragma once

#include <cstddef>
#include <memory>

namespace Ovard::gridio {

class ByteBuffer {
public:
    // At least that many bytes, aligned for any number. Growing discards their content.
    unsigned char* reserve(std::size_t size)
    {
        if (size > size_) {
            bytes_.reset();
            size_ = 0;
            bytes_.reset(new unsigned char[size]);
            size_ = size;
        }
        return bytes_.get();
    }

    unsigned char* data() { return bytes_.get(); }
    const unsigned char* data() const { return bytes_.get(); }
    std::size_t size() const { return size_; }

private:
    std::unique_ptr<unsigned char[]> bytes_;
    std::size_t size_ = 0;
};

} // namespace Ovard::gridio
