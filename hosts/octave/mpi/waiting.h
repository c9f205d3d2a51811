// SPDX-License-Identifier: BSD-3-Clause
// Waiting for MPI without holding a processor, and messages on their way.
#pragma once

#include <octave/oct.h>

#include <mpi.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace hosts::oct::mpi {

// Raises an error of the interpreter unless the status of an MPI call is good.
void check(int status, const char* call);

// Returns when the condition holds; lets Ctrl-C through.
void waitUntil(const std::function<bool()>& condition);

bool isFinished(MPI_Request& request);
void finish(MPI_Request& request);

// A message that this rank sends. It stays until the library has read it, even after an error or
// Ctrl-C.
class Message {
public:
    static Message& create(const uint8NDArray& bytes);
    static void forgetTaken();
    static bool areAllTaken();

    explicit Message(const uint8NDArray& bytes);

    void post(const void* memory, std::uint64_t count, int rank, int tag);
    bool isTaken();
    const unsigned char* bytes() const;

    std::uint64_t length;

private:
    uint8NDArray bytes_;
    std::vector<MPI_Request> requests_;
};

} // namespace hosts::oct::mpi
