// SPDX-License-Identifier: BSD-3-Clause
// A default memory resource that compares each release with the allocation. Arrays of the
// interpreter use it if they have polymorphic allocators.
#include <dlfcn.h>

#include <octave/oct.h>

#include <map>
#include <memory_resource>
#include <utility>

namespace {

class Counting : public std::pmr::memory_resource {
public:
    double allocations = 0;
    double mismatches = 0;

private:
    void* do_allocate(std::size_t bytes, std::size_t alignment) override
    {
        void* block = std::pmr::new_delete_resource()->allocate(bytes, alignment);
        ++allocations;
        sizes_[block] = {bytes, alignment};
        return block;
    }

    void do_deallocate(void* block, std::size_t bytes, std::size_t alignment) override
    {
        const auto found = sizes_.find(block);
        if (found == sizes_.end() || found->second != std::pair{bytes, alignment})
            ++mismatches;
        if (found != sizes_.end())
            sizes_.erase(found);
        std::pmr::new_delete_resource()->deallocate(block, bytes, alignment);
    }

    bool do_is_equal(const memory_resource& other) const noexcept override
    {
        return this == &other;
    }

    std::map<void*, std::pair<std::size_t, std::size_t>> sizes_;
};

} // namespace

DEFUN_DLD(counted_storage, , , R"([IS_USED, ALLOCATIONS, MISMATCHES] = counted_storage ()

Whether arrays use it, how many blocks have been allocated, and how many releases did not match, since the first call.)")
{
    // Neither destroyed nor unloaded: arrays of the interpreter outlive this function.
    static Counting* const counting = [] {
        auto* made = new Counting;
        Dl_info self;
        dladdr(reinterpret_cast<void*>(&Gcounted_storage), &self);
        dlopen(self.dli_fname, RTLD_NOW | RTLD_NODELETE);
        std::pmr::set_default_resource(made);
        return made;
    }();
#ifdef OCTAVE_HAVE_STD_PMR_POLYMORPHIC_ALLOCATOR
    const bool isUsed = true;
#else
    const bool isUsed = false;
#endif
    return ovl(isUsed, counting->allocations, counting->mismatches);
}
