#include "bench/timer_jobs.h"

namespace bench {
namespace {

TimerJob parseJob(std::wstring line) {
    TimerJob job;
    if (line.starts_with(L'~')) {
        job.measured = false;
        line.erase(0, 1);
    }
    if (const size_t bar = line.find(L'|'); bar != std::wstring::npos) {
        job.expectedCode = static_cast<uint32_t>(std::stoul(line.substr(0, bar)));
        line.erase(0, bar + 1);
    }
    job.commandLine = line;
    return job;
}

}  // namespace

TimerJobs parseTimerJobs(const std::vector<std::wstring>& lines) {
    TimerJobs plan;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (i == 0) {
            plan.rounds = std::stoi(lines[i]);
        } else {
            plan.jobs.push_back(parseJob(lines[i]));
        }
    }
    return plan;
}

}  // namespace bench
