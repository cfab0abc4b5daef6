// What a container takes, measured in a process of its own.
#pragma once

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

namespace Torvo::bench {

// The bytes that the heap has given out.
inline double HeapBytes() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

// A figure that a file of /proc/self tells in KiB, in bytes. Takes nothing from the heap.
inline double ProcessBytes(const char* file, const char* name) {
    char text[4000] = {};
    const int descriptor = open(file, O_RDONLY);
    std::size_t length = 0;
    for (ssize_t more = 1; more > 0 && length < sizeof text - 1; length += static_cast<std::size_t>(more)) {
        more = read(descriptor, text + length, sizeof text - 1 - length);
        if (more < 0) break;
    }
    close(descriptor);
    long kibibytes = -1;
    if (const char* const found = std::strstr(text, name)) std::sscanf(found + std::strlen(name), ": %ld", &kibibytes);
    return static_cast<double>(kibibytes) * 1024;
}

inline double ResidentBytes() {
    return ProcessBytes("/proc/self/smaps_rollup", "Anonymous");
}

inline double PeakBytes() {
    return ProcessBytes("/proc/self/status", "VmHWM");
}

// Makes the present memory the peak.
inline void ResetPeak() {
    const int descriptor = open("/proc/self/clear_refs", O_WRONLY);
    if (write(descriptor, "5", 1) != 1) std::perror("clear_refs");
    close(descriptor);
}

// Runs `build` in a child process, once, and reports what the process holds more by the end of it, and held at most in
// between. What `build` returns is the container, which lives until all is measured.
//   heap      given out by the heap, at the end
//   resident  memory of the process's own that is really there, at the end
//   peak      the most memory that was there, the pages of programs and libraries included
template <typename Build>
void MeasureMemory(benchmark::State& state, Build build) {
    double told[3] = {};
    for (auto _ : state) {
        int ends[2];
        if (pipe(ends) != 0) return state.SkipWithError("no pipe");
        const pid_t child = fork();
        if (child == 0) {
            malloc_trim(0);
            ResetPeak();
            const double before[3] = {HeapBytes(), ResidentBytes(), PeakBytes()};
            {
                const auto container = build();
                const double now[3] = {HeapBytes(), ResidentBytes(), PeakBytes()};
                for (int i = 0; i < 3; ++i) told[i] = now[i] - before[i];
            }
            const bool written = write(ends[1], told, sizeof told) == static_cast<ssize_t>(sizeof told);
            _exit(written && before[1] > 0 && before[2] > 0 ? 0 : 1);
        }
        close(ends[1]);
        const bool read = ::read(ends[0], told, sizeof told) == static_cast<ssize_t>(sizeof told);
        close(ends[0]);
        int status = 1;
        waitpid(child, &status, 0);
        if (!read || status != 0) return state.SkipWithError("the child has not told");
    }
    state.counters["heap"] = told[0];
    state.counters["resident"] = told[1];
    state.counters["peak"] = told[2];
}

}  // namespace Torvo::bench
