// SPDX-License-Identifier: BSD-3-Clause
// The operations of ranks.h.
#include "ranks.h"
#include "../guarded_call.h"
#include "waiting.h"

#include <octave/error.h>

#include <mpi.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <string>

namespace hosts::oct::mpi {

namespace {

// A count of elements is an int in MPI, so that longer messages go in pieces.
constexpr std::uint64_t longestPiece = std::uint64_t{1} << 30U;

int sizeOfWorld()
{
    int size = 0;
    check(MPI_Comm_size(MPI_COMM_WORLD, &size), "MPI_Comm_size");
    return size;
}

int ownRank()
{
    int rank = 0;
    check(MPI_Comm_rank(MPI_COMM_WORLD, &rank), "MPI_Comm_rank");
    return rank;
}

// Whether MPI's functions are those of the library that this was compiled for: an interpreter that
// has loaded another one, with an HDF5 for MPI, calls the functions of that one. May be asked
// before MPI is started.
octave_value_list isOwn(const octave_value_list&)
{
    // Another library may write more than this one.
    std::array<char, std::max(8192, MPI_MAX_LIBRARY_VERSION_STRING)> version{};
    int length = 0;
    check(MPI_Get_library_version(version.data(), &length), "MPI_Get_library_version");
    const bool isOpenMpi = std::strstr(version.data(), "Open MPI") != nullptr;
#ifdef OPEN_MPI
    return ovl(isOpenMpi);
#else
    return ovl(!isOpenMpi);
#endif
}

octave_value_list start(const octave_value_list&)
{
    int isStarted = 0;
    check(MPI_Initialized(&isStarted), "MPI_Initialized");
    if (isStarted == 0) {
        // Other threads only unpack data.
        int provided = 0;
        check(MPI_Init_thread(nullptr, nullptr, MPI_THREAD_FUNNELED, &provided), "MPI_Init_thread");
        check(MPI_Comm_set_errhandler(MPI_COMM_WORLD, MPI_ERRORS_RETURN),
              "MPI_Comm_set_errhandler");
    }
    return ovl(ownRank(), sizeOfWorld());
}

int rankOf(const octave_value& argument)
{
    const int rank = argument.int_value();
    return rank < 0 ? MPI_ANY_SOURCE : rank;
}

// The first message with one of the tags, if one has arrived.
bool hasArrived(int source, const Array<int>& tags, MPI_Status& status)
{
    for (octave_idx_type i = 0; i < tags.numel(); ++i) {
        int isThere = 0;
        check(MPI_Iprobe(source, tags(i), MPI_COMM_WORLD, &isThere, &status), "MPI_Iprobe");
        if (isThere != 0) {
            return true;
        }
    }
    return false;
}

octave_value_list probe(const octave_value_list& args)
{
    MPI_Status status;
    return ovl(hasArrived(rankOf(args(1)), args(2).int_vector_value(), status));
}

// Sends the length, then the bytes in pieces. Memory and requests of a message that is not taken
// stay, since the library still reads them.
octave_value_list send(const octave_value_list& args)
{
    Message& message = Message::create(args(1).uint8_array_value());
    const int rank = args(2).int_value();
    const int tag = args(3).int_value();
    Array<int> watched(dim_vector(1, 1), args(4).int_value());
    message.post(&message.length, sizeof message.length, rank, tag);
    for (std::uint64_t at = 0; at < message.length; at += longestPiece) {
        message.post(message.bytes() + at, std::min(longestPiece, message.length - at), rank, tag);
    }
    bool isSent = false;
    waitUntil([&] {
        MPI_Status status;
        isSent = message.isTaken();
        return isSent || hasArrived(rank, watched, status);
    });
    if (isSent) {
        Message::forgetTaken();
    }
    return ovl(isSent);
}

// Sends without waiting for the receiver.
octave_value_list post(const octave_value_list& args)
{
    Message::forgetTaken();
    Message& message = Message::create(args(1).uint8_array_value());
    const int rank = args(2).int_value();
    const int tag = args(3).int_value();
    message.post(&message.length, sizeof message.length, rank, tag);
    message.post(message.bytes(), message.length, rank, tag);
    return {};
}

void receiveInto(void* memory, std::uint64_t length, int source, int tag)
{
    MPI_Request request = MPI_REQUEST_NULL;
    check(MPI_Irecv(memory, static_cast<int>(length), MPI_BYTE, source, tag, MPI_COMM_WORLD,
                    &request),
          "MPI_Irecv");
    finish(request);
}

octave_value_list receive(const octave_value_list& args)
{
    const int source = rankOf(args(1));
    const Array<int> tags = args(2).int_vector_value();
    MPI_Status status;
    waitUntil([&] { return hasArrived(source, tags, status); });
    std::uint64_t length = 0;
    receiveInto(&length, sizeof length, status.MPI_SOURCE, status.MPI_TAG);
    uint8NDArray bytes(dim_vector(1, static_cast<octave_idx_type>(length)));
    auto* memory = reinterpret_cast<unsigned char*>(bytes.fortran_vec());
    for (std::uint64_t at = 0; at < length; at += longestPiece) {
        receiveInto(memory + at, std::min(longestPiece, length - at), status.MPI_SOURCE,
                    status.MPI_TAG);
    }
    return ovl(bytes, status.MPI_SOURCE, status.MPI_TAG);
}

octave_value_list broadcast(const octave_value_list& args)
{
    uint8NDArray bytes = args(1).uint8_array_value();
    const auto length = static_cast<std::uint64_t>(args(2).idx_type_value());
    bytes.resize(dim_vector(1, static_cast<octave_idx_type>(length)));
    auto* memory = reinterpret_cast<unsigned char*>(bytes.fortran_vec());
    for (std::uint64_t at = 0; at < length; at += longestPiece) {
        const auto count = static_cast<int>(std::min(longestPiece, length - at));
        MPI_Request request = MPI_REQUEST_NULL;
        check(MPI_Ibcast(memory + at, count, MPI_BYTE, 0, MPI_COMM_WORLD, &request), "MPI_Ibcast");
        finish(request);
    }
    return ovl(bytes);
}

// Takes whatever was sent to this rank and never received.
void discardMessages()
{
    int isThere = 1;
    while (isThere != 0) {
        MPI_Status status;
        check(MPI_Iprobe(MPI_ANY_SOURCE, MPI_ANY_TAG, MPI_COMM_WORLD, &isThere, &status),
              "MPI_Iprobe");
        if (isThere != 0) {
            int count = 0;
            check(MPI_Get_count(&status, MPI_BYTE, &count), "MPI_Get_count");
            std::string memory(static_cast<std::size_t>(count), '\0');
            receiveInto(memory.data(), memory.size(), status.MPI_SOURCE, status.MPI_TAG);
        }
    }
}

octave_value_list stop(const octave_value_list& args)
{
    int isStopped = 0;
    check(MPI_Finalized(&isStopped), "MPI_Finalized");
    if (isStopped != 0) {
        return {};
    }
    const int tag = args(1).int_value();
    for (int rank = 0; rank < sizeOfWorld(); ++rank) {
        if (rank != ownRank()) {
            Message& message = Message::create(uint8NDArray());
            message.post(&message.length, sizeof message.length, rank, tag);
        }
    }
    MPI_Request request = MPI_REQUEST_NULL;
    check(MPI_Ibarrier(MPI_COMM_WORLD, &request), "MPI_Ibarrier");
    waitUntil([&] {
        discardMessages();
        return isFinished(request) && Message::areAllTaken();
    });
    discardMessages();
    check(MPI_Finalize(), "MPI_Finalize");
    return {};
}

using Operation = octave_value_list (*)(const octave_value_list&);

struct Row {
    int arguments;
    Operation operation;
};

} // namespace

octave_value_list call(const octave_value_list& args)
{
    // clang-format off
    static const std::map<std::string, Row> operations{
        {"isOwn",     {1, isOwn}},
        {"start",     {1, start}},
        {"post",      {4, post}},
        {"send",      {5, send}},
        {"receive",   {3, receive}},
        {"probe",     {3, probe}},
        {"broadcast", {3, broadcast}},
        {"stop",      {2, stop}},
    };
    // clang-format on
    const std::string name =
        args.length() > 0 ? args(0).xstring_value("the operation must be a text") : "";
    const auto row = operations.find(name);
    if (row == operations.end() || row->second.arguments != args.length()) {
        error("no operation \"%s\" with %d arguments", name.c_str(),
              static_cast<int>(args.length()));
    }
    return guardedCall(
        [&] { return row->second.operation(args); },
        [&](const std::string& failure) { error("%s: %s", name.c_str(), failure.c_str()); });
}

} // namespace hosts::oct::mpi
