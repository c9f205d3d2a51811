// SPDX-License-Identifier: BSD-3-Clause
// Of waiting.h.
#include "waiting.h"

#include <octave/error.h>
#include <octave/quit.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <list>
#include <memory>
#include <string>
#include <thread>

namespace hosts::oct::mpi {

namespace {

// Not destroyed at exit: the library may still read the messages.
std::list<Message>& messages()
{
    static auto* const all = new std::list<Message>;
    return *all;
}

} // namespace

void check(int status, const char* call)
{
    if (status != MPI_SUCCESS) {
        std::array<char, MPI_MAX_ERROR_STRING> text{};
        int length = 0;
        (void)MPI_Error_string(status, text.data(), &length); // without a text the number has to do
        error("%s failed with status %d: %s", call, status, text.data());
    }
}

void waitUntil(const std::function<bool()>& condition)
{
    using std::chrono::microseconds;
    constexpr int tries = 100;
    constexpr microseconds longest(2000);
    microseconds pause(10);
    for (int i = 0; !condition(); ++i) {
        octave_quit();
        if (i >= tries) {
            std::this_thread::sleep_for(pause);
            pause = std::min(2 * pause, longest);
        }
    }
}

bool isFinished(MPI_Request& request)
{
    int isDone = 0;
    check(MPI_Test(&request, &isDone, MPI_STATUS_IGNORE), "MPI_Test");
    return isDone != 0;
}

void finish(MPI_Request& request)
{
    waitUntil([&] { return isFinished(request); });
}

Message::Message(const uint8NDArray& bytes)
    : length(static_cast<std::uint64_t>(bytes.numel())), bytes_(bytes)
{
}

Message& Message::create(const uint8NDArray& bytes) { return messages().emplace_back(bytes); }

void Message::forgetTaken()
{
    messages().remove_if([](Message& message) { return message.isTaken(); });
}

bool Message::areAllTaken()
{
    bool areTaken = true;
    for (Message& message : messages()) {
        areTaken = message.isTaken() && areTaken;
    }
    return areTaken;
}

void Message::post(const void* memory, std::uint64_t count, int rank, int tag)
{
    check(MPI_Isend(memory, static_cast<int>(count), MPI_BYTE, rank, tag, MPI_COMM_WORLD,
                    &requests_.emplace_back(MPI_REQUEST_NULL)),
          "MPI_Isend");
}

bool Message::isTaken()
{
    return std::all_of(requests_.begin(), requests_.end(),
                       [](MPI_Request& request) { return isFinished(request); });
}

const unsigned char* Message::bytes() const
{
    return reinterpret_cast<const unsigned char*>(bytes_.data());
}

} // namespace hosts::oct::mpi
