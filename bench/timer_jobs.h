// What the process timer is told to run, read from the lines of its job file: the number of rounds, then a command line
// a line, run in this order in every round. One that begins with "~" is run but not measured; one that begins with a
// number and "|" has to end with that exit code instead of 0.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bench {

struct TimerJob {
    std::wstring commandLine;
    bool measured = true;
    uint32_t expectedCode = 0;
};

struct TimerJobs {
    int rounds = 0;
    std::vector<TimerJob> jobs;
};

// Throws std::invalid_argument where a number should stand and does not. No lines give no jobs.
TimerJobs parseTimerJobs(const std::vector<std::wstring>& lines);

}  // namespace bench
