#include "process/clsProcessCpuUsage.h"

#include "platform/Machine.h"
#include "process/ProcessAccess.h"

namespace process {

namespace {

// Difference of two times on their low 32 bits: readings lie half a second apart, which is far from a wrap.
std::uint32_t LowDifference(std::uint64_t now, std::uint64_t before) {
    return static_cast<std::uint32_t>(now) - static_cast<std::uint32_t>(before);
}

}  // namespace

void clsProcessCpuUsage::SetPID(platform::ProcessId pid) {
    if (pid == pid_) return;
    pid_ = pid;
    Reset();
}

void clsProcessCpuUsage::Reset() {
    processorCount_ = highestCpu_ + 1;
    frequency_ = platform::performanceFrequency();
    counter_ = platform::performanceCounter();
    ReadTimes();
    previousCounter_ = counter_;
    previousKernelTime_ = kernelTime_;
    previousUserTime_ = userTime_;
}

void clsProcessCpuUsage::ReadTimes() {
    const platform::ProcessHandle process = platform::openProcess(pid_, rights::kQuery);
    if (!process) return;
    if (const auto times = platform::processTimes(process)) {
        kernelTime_ = times->kernel;
        userTime_ = times->user;
        counter_ = times->counter;
    }
}

double clsProcessCpuUsage::GetCpuUsage() {
    ReadTimes();
    const auto ticks = static_cast<std::int32_t>(LowDifference(userTime_, previousUserTime_) +
                                                 LowDifference(kernelTime_, previousKernelTime_));
    // The times bring the moment they are of, which may lie some time back: now would be the wrong one.
    const std::int64_t elapsed = counter_ - previousCounter_;
    // Without a clock nothing can be told; what was used stays for the next reading.
    if (frequency_ == 0 || elapsed == 0) return 0;
    previousCounter_ = counter_;
    previousKernelTime_ = kernelTime_;
    previousUserTime_ = userTime_;

    const double busy = static_cast<double>(ticks) / processorCount_;
    const double seconds = static_cast<double>(elapsed) / static_cast<double>(frequency_);
    const double usage = busy / seconds / 100'000;  // 10,000,000 units a second are 100 percent
    return usage > 100 ? 100 : usage;
}

}  // namespace process
