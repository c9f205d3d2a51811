// SPDX-License-Identifier: BSD-3-Clause
// HDF5 prints what fails unless it is asked not to.
#pragma once

#include <hdf5.h>

namespace Ovard::gridio {

// For a scope, since the setting is the whole process's.
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
