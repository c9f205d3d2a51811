// SPDX-License-Identifier: BSD-3-Clause
// chunk_bench [--quick] [--threads 1,2,4] [--rounds N] [FOLDER]: chunked data by the library and by
// src/chunks with several numbers of threads, in turns, without an interpreter. Prints medians of
// the ratios of time, and what a read with other numbers of threads would take by its parts.
#include "chunks/block_indices.h"
#include "chunks/chunk_reads.h"
#include "chunks/chunked_dataset.h"
#include "chunks/thread_count.h"

#include <hdf5.h>
#include <netcdf.h>
#include <sys/mman.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace Ovard::gridio;

const OperationEntry entry = {0, "bench", 0, nullptr};

void require(int status)
{
    if (status != NC_NOERR) {
        std::fprintf(stderr, "%s\n", nc_strerror(status));
        std::exit(1);
    }
}

// Fresh memory on huge pages, as the hosts give it.
class Result {
public:
    explicit Result(std::size_t size)
        : size_((size + pageSize - 1) / pageSize * pageSize),
          data_(std::aligned_alloc(pageSize, size_))
    {
        madvise(data_, size_, MADV_HUGEPAGE);
    }
    ~Result() { std::free(data_); }
    Result(const Result&) = delete;
    void* data() const { return data_; }

private:
    static constexpr std::size_t pageSize = std::size_t{2} << 20;
    std::size_t size_;
    void* data_;
};

double secondsOf(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

struct Options {
    std::vector<std::size_t> threads{1, 2};
    int rounds = 5;
    std::size_t maps = 100;
    std::string folder = "/dev/shm";
};

template <class T> std::vector<T> field(std::size_t count)
{
    // A smooth field with noise: of a float, the last two bytes are random.
    std::mt19937 engine(1);
    std::vector<T> values(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double x = static_cast<double>(i % 1000) / 200;
        const double y = static_cast<double>(i / 1000 % 1000) / 300;
        const double noise = static_cast<double>(engine()) / 4294967296.0;
        const double value = 280 + 20 * std::sin(x) * std::cos(y) + noise;
        values[i] = static_cast<T>(sizeof(T) == 2 ? (value - 280) * 100 : value);
    }
    return values;
}

void report(const char* what, double library, const std::vector<std::pair<std::string, double>>& us)
{
    std::printf("%-34s %8.1f ms ", what, library * 1e3);
    for (const auto& [name, ratio] : us)
        std::printf("  %s %.2f", name.c_str(), ratio);
    std::printf("\n");
    std::fflush(stdout);
}

// floor is the library, or something else with the same number of threads.
void compare(const Options& options, const char* what, const std::function<void()>& floor,
             const std::function<void()>& engine)
{
    std::vector<double> times;
    std::vector<std::vector<double>> ratios(options.threads.size());
    for (int round = 0; round < options.rounds; ++round) {
        for (std::size_t i = 0; i < options.threads.size(); ++i) {
            setThreadCount(options.threads[i]);
            times.push_back(secondsOf(floor));
            ratios[i].push_back(secondsOf(engine) / times.back());
        }
    }
    std::vector<std::pair<std::string, double>> columns;
    for (std::size_t i = 0; i < options.threads.size(); ++i)
        columns.emplace_back(std::to_string(options.threads[i]) + "t", median(ratios[i]));
    report(what, median(times), columns);
}

class File {
public:
    template <class T>
    File(const Options& options, nc_type type, std::vector<std::size_t> chunk, T*)
        : path_(options.folder + "/chunk_bench.nc"), size_(options.maps * 1000000 * sizeof(T))
    {
        require(nc_create(path_.c_str(), NC_NETCDF4 | NC_CLOBBER, &ncid_));
        const std::size_t lengths[] = {options.maps, 1000, 1000};
        int dimids[3] = {};
        for (int i = 0; i < 3; ++i)
            require(nc_def_dim(ncid_, std::string(1, static_cast<char>('x' + i)).c_str(),
                               lengths[i], &dimids[i]));
        require(nc_def_var(ncid_, "v", type, 3, dimids, &varid_));
        require(nc_def_var_chunking(ncid_, varid_, NC_CHUNKED, chunk.data()));
        require(nc_def_var_deflate(ncid_, varid_, 1, 1, 4));
        const std::vector<T> values = field<T>(options.maps * 1000000);
        require(nc_put_var(ncid_, varid_, values.data()));
        require(nc_close(ncid_));
        require(nc_open(path_.c_str(), NC_NOWRITE, &ncid_));
    }
    ~File()
    {
        require(nc_close(ncid_));
        std::remove(path_.c_str());
    }
    File(const File&) = delete;

    int ncid() const { return ncid_; }
    int varid() const { return varid_; }
    std::size_t size() const { return size_; }

private:
    std::string path_;
    int ncid_ = 0;
    int varid_ = 0;
    std::size_t size_;
};

void readWhole(const File& file, const cf::Decoder* decoder, std::size_t size)
{
    const Result result(size);
    Variable variable(file.ncid(), file.varid(), &entry);
    if (!readChunked(variable, wholeBlock(variable), {result.data(), decoder}))
        std::fprintf(stderr, "left to the library\n");
}

void readByLibrary(const File& file)
{
    const Result result(file.size());
    require(nc_get_var(file.ncid(), file.varid(), result.data()));
}

void compareWithLibrary(const Options& options, const File& file, const char* what)
{
    compare(
        options, what, [&] { readByLibrary(file); },
        [&] { readWhole(file, nullptr, file.size()); });
}

void compareDecoding(const Options& options, const File& file)
{
    cf::DecodingRules rules;
    rules.stored = cf::StoredType::int16;
    rules.missing.push_back(cf::storedValue<short>(-32768));
    rules.scale = 0.01;
    rules.offset = 280;
    const cf::Decoder toDouble(rules);
    rules.decoded = cf::DecodedType::float32;
    const cf::Decoder toSingle(rules);
    for (const auto* decoder : {&toDouble, &toSingle})
        compare(
            options,
            decoder == &toDouble ? "  decoded to double / as stored"
                                 : "  decoded to single / as stored",
            [&] { readWhole(file, nullptr, file.size()); },
            [&] { readWhole(file, decoder, file.size() / 2 * decoder->decodedSize()); });
}

// What one thread has to do in any case: fetch the chunks as they are in the file.
void readRaw(const File& file)
{
    Variable variable(file.ncid(), file.varid(), &entry);
    const Block block = wholeBlock(variable);
    const auto indices = blockIndices(variable, block);
    const auto dataset = ChunkedDataset::open(variable);
    ByteBuffer bytes;
    for (ChunkWalk walk(*indices, dataset->chunkLengths()); !walk.isDone(); walk.next()) {
        const std::size_t size = dataset->storedSize(walk.origin());
        static_cast<void>(dataset->read(walk.origin(), size, bytes.reserve(size)));
    }
}

// With T threads a read takes no less than all of its work divided by T, than the raw reads, which
// one thread makes, and than writing the result to memory.
void reportModel(const Options& options, const File& file, const char* what)
{
    std::vector<double> raw;
    std::vector<double> memory;
    std::vector<double> whole;
    std::vector<double> two;
    for (int round = 0; round < options.rounds; ++round) {
        raw.push_back(secondsOf([&] { readRaw(file); }));
        memory.push_back(secondsOf([&] {
            const Result result(file.size());
            std::memset(result.data(), round, file.size());
        }));
        setThreadCount(1);
        whole.push_back(secondsOf([&] { readWhole(file, nullptr, file.size()); }));
        setThreadCount(2);
        two.push_back(secondsOf([&] { readWhole(file, nullptr, file.size()); }));
    }
    const double floor = std::max(median(raw), median(memory));
    std::printf(
        "%s: raw reads %.1f ms, memory %.1f ms, one thread %.1f ms;\n  two threads %.1f ms, "
        "by the model %.1f; 8 threads %.1f, 64 threads %.1f\n",
        what, median(raw) * 1e3, median(memory) * 1e3, median(whole) * 1e3, median(two) * 1e3,
        std::max(floor, median(whole) / 2) * 1e3, std::max(floor, median(whole) / 8) * 1e3,
        std::max(floor, median(whole) / 64) * 1e3);
}

void reads(const Options& options)
{
    {
        const File file(options, NC_FLOAT, {1, 500, 500}, static_cast<float*>(nullptr));
        compareWithLibrary(options, file, "float32, 1x500x500 / library");
        reportModel(options, file, "float32");
    }
    {
        const File file(options, NC_SHORT, {1, 500, 500}, static_cast<short*>(nullptr));
        compareWithLibrary(options, file, "int16, 1x500x500 / library");
        compareDecoding(options, file);
        reportModel(options, file, "int16");
    }
    const File file(options, NC_SHORT, {1, 16, 32}, static_cast<short*>(nullptr));
    compareWithLibrary(options, file, "int16, 1x16x32 (1 KiB) / library");
}

} // namespace

int main(int argc, char* argv[])
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--quick")
            options.maps = 10;
        else if (argument == "--rounds")
            options.rounds = std::atoi(argv[++i]);
        else if (argument == "--threads") {
            options.threads.clear();
            for (char* list = std::strtok(argv[++i], ","); list != nullptr;
                 list = std::strtok(nullptr, ","))
                options.threads.push_back(std::strtoul(list, nullptr, 10));
        } else
            options.folder = argument;
    }
    reads(options);
    return 0;
}
