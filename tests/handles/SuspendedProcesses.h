// Processes that do nothing, to be looked at.
#pragma once

#include <cstdint>
#include <vector>

namespace handles {

// Copies of this program that never run; they end with this object.
class SuspendedProcesses {
public:
    explicit SuspendedProcesses(int count);
    ~SuspendedProcesses();
    SuspendedProcesses(const SuspendedProcesses&) = delete;
    SuspendedProcesses& operator=(const SuspendedProcesses&) = delete;

    // As many as could be started.
    const std::vector<std::uint32_t>& Ids() const { return ids_; }

private:
    std::vector<std::uint32_t> ids_;
};

}  // namespace handles
