// SPDX-License-Identifier: BSD-3-Clause
#include "library/mapped_objects.h"

#include <dlfcn.h>
#include <link.h>

namespace Ovard::gridio {
namespace {

// Closing it again leaves the library as it was before.
class Loaded {
public:
    Loaded(const char* path, int mode) noexcept
        : handle_(dlopen(path, RTLD_LAZY | RTLD_NOLOAD | mode))
    {
    }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;
    ~Loaded()
    {
        if (handle_ != nullptr)
            dlclose(handle_);
    }

    // Null if neither the library nor one that it needs defines the symbol.
    const void* find(const char* symbol) const
    {
        return handle_ == nullptr ? nullptr : dlsym(handle_, symbol);
    }

private:
    void* handle_;
};

std::vector<std::string> mappedLibraries()
{
    std::vector<std::string> paths;
    const auto add = [](dl_phdr_info* info, std::size_t /*size*/, void* list) {
        if (info->dlpi_name != nullptr && *info->dlpi_name != '\0')
            static_cast<std::vector<std::string>*>(list)->emplace_back(info->dlpi_name);
        return 0;
    };
    dl_iterate_phdr(add, &paths);
    return paths;
}

const char* pathAt(const void* address) noexcept
{
    Dl_info where = {};
    return dladdr(address, &where) != 0 && where.dli_fname != nullptr ? where.dli_fname : "";
}

} // namespace

std::string libraryAt(const void* address) { return pathAt(address); }

std::vector<std::string> librariesThatDefine(const char* symbol)
{
    std::vector<std::string> found;
    for (const std::string& path : mappedLibraries())
        if (const void* definition = Loaded(path.c_str(), 0).find(symbol))
            if (path == pathAt(definition))
                found.push_back(path);
    return found;
}

void keepMapped(const void* address) noexcept { const Loaded kept(pathAt(address), RTLD_NODELETE); }

} // namespace Ovard::gridio
