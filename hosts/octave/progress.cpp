// SPDX-License-Identifier: BSD-3-Clause
// A line on the terminal while a long operation lasts, only where a user is watching: in an
// interactive session whose error output is a terminal. It is erased at the end.
#include "vx/progress.h"

#include <octave/interpreter.h>

#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds quiet{1000}; // nothing is shown of operations that are shorter
constexpr std::chrono::milliseconds interval{200};

struct ProgressLine {
    bool isRunning = false;
    Clock::time_point start;
    Clock::time_point next;
    std::size_t width = 0; // of what is on the terminal
};

bool isWatched()
{
    const octave::interpreter* interpreter = octave::interpreter::the_interpreter();
    const char* terminal = std::getenv("TERM");
    return interpreter != nullptr && interpreter->interactive() && isatty(STDERR_FILENO) == 1 &&
           terminal != nullptr && std::strcmp(terminal, "dumb") != 0;
}

std::string timeText(double seconds)
{
    const double minutes = std::ceil(seconds / 60);
    return seconds < 100 ? std::to_string(static_cast<long>(std::ceil(seconds))) + " s"
                         : std::to_string(static_cast<long>(minutes)) + " min";
}

void write(ProgressLine& line, const std::string& text)
{
    const std::string blanks(line.width > text.size() ? line.width - text.size() : 0, ' ');
    std::fprintf(stderr, "\r%s%s", text.c_str(), blanks.c_str());
    if (text.empty())
        std::fputc('\r', stderr);
    std::fflush(stderr);
    line.width = text.size();
}

ProgressLine progressLine;

} // namespace

void vxShowProgress(double done)
{
    ProgressLine& shown = progressLine;
    const Clock::time_point now = Clock::now();
    if (done < 0) {
        if (shown.width > 0)
            write(shown, "");
        shown = {};
    } else if (!shown.isRunning) {
        shown = {true, now, isWatched() ? now + quiet : Clock::time_point::max(), 0};
    } else if (now >= shown.next && done > 0) {
        const double gone = std::chrono::duration<double>(now - shown.start).count();
        write(shown, std::to_string(static_cast<int>(done * 100)) + " %, " +
                         timeText(gone / done - gone) + " left");
        shown.next = now + interval;
    }
}
