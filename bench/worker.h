// SPDX-License-Identifier: BSD-3-Clause
// What the workers of the side-by-side benchmark have in common. A worker reads one command a line:
//     run WORKLOAD FORMAT FILE COUNT    does the work and answers with the seconds that it took
//     check                             answers with the checksum of what the work gave
// so that whoever asks can look at the worker's memory in between.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <utility>

namespace bench {

struct Job {
    std::string format; // classic or netcdf4
    std::string path;
    std::size_t count = 0;
};

// What a piece of work took, and how to work out the checksum of what it gave; the memory behind it
// is held until then.
struct Done {
    double seconds;
    std::function<double()> checksum;
};

using Work = Done (*)(const Job& job);

class Stopwatch {
public:
    double seconds() const
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    }

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// The sum of all values and, so that order counts, a weighted sum of every 4099th. Exact for the
// values that are written here, in any order of summation.
template <class T> double checksum(const T* values, std::size_t count)
{
    double sum = 0;
    for (std::size_t i = 0; i < count; ++i)
        sum += static_cast<double>(values[i]);
    for (std::size_t i = 0, k = 0; i < count; i += 4099, ++k)
        sum += static_cast<double>(values[i]) * static_cast<double>(k % 7 + 1);
    return sum;
}

// Of the i-th value or block that is read from the long vector: scattered.
inline std::size_t positionOf(std::size_t i) { return i * 7919 % 100000; }

inline int serve(const std::map<std::string, Work>& works)
{
    std::cout.precision(17);
    std::string line;
    Done last{};
    while (std::getline(std::cin, line)) {
        std::istringstream words(line);
        std::string command;
        std::string name;
        words >> command;
        if (command == "run") {
            Job job;
            words >> name >> job.format >> job.path >> job.count;
            last = works.at(name)(job);
            std::cout << last.seconds << std::endl;
        } else {
            const double sum = std::exchange(last, {}).checksum();
            std::cout << sum << std::endl;
        }
    }
    return 0;
}

} // namespace bench
