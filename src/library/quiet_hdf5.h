// SPDX-License-Identifier: BSD-3-Clause
// Suppresses HDF5's error output.
#pragma once

#include <hdf5.h>

namespace Ovard::gridio {

// Limited to a scope, since the setting applies to the whole process.
class QuietHdf5 {
public:
    QuietHdf5()
    {
        H5Eget_auto2(H5E_DEFAULT, &print_, &data_);
        H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr);
    }
    ~QuietHdf5() { H5Eset_auto2(H5E_DEFAULT, print_, data_); }
    QuietHdf5(const QuietHdf5&) = delete;
    QuietHdf5& operator=(const QuietHdf5&) = delete;

private:
    H5E_auto2_t print_ = nullptr;
    void* data_ = nullptr;
};

} // namespace Ovard::gridio
