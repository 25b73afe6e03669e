#include "platform/win32/WineProcesses.h"

#include <algorithm>
#include <cstddef>

#include "platform/Machine.h"

namespace platform::wine {

namespace {

using QuerySystemInformation = LONG(WINAPI*)(ULONG, void*, ULONG, ULONG*);

constexpr ULONG kProcessInformation = 5;
constexpr LONG kInfoLengthMismatch = static_cast<LONG>(0xC0000004u);
constexpr DWORD kFreshMilliseconds = 200;
constexpr DWORD kMostFreshMilliseconds = 1000;
constexpr ProcessId kIdleProcess = 0;
constexpr ProcessId kSystemProcess = 4;

// The head of a record of the process table, for 32 and 64 bits alike.
struct Record {
    ULONG nextOffset;  // from this record; 0 in the last one
    ULONG threadCount;
    LONGLONG reserved[3];
    LONGLONG creation;
    LONGLONG user;
    LONGLONG kernel;
    USHORT nameLength;
    USHORT nameCapacity;
    const void* name;
    LONG basePriority;
    UINT_PTR id;
};
static_assert(offsetof(Record, id) == (sizeof(void*) == 8 ? 80 : 68));

// The process table of the last reading. Its memory is kept: it is read twice a second for days.
class Table {
public:
    bool read() {
        static const auto query = systemFunction<QuerySystemInformation>("ntdll.dll", "NtQuerySystemInformation");
        rows_.clear();
        if (query == nullptr) return false;
        const DWORD began = GetTickCount();
        ULONG used = 0;
        LONG status = query(kProcessInformation, buffer_.data(), bufferBytes(), &used);
        while (status == kInfoLengthMismatch && bufferBytes() < kMaxBufferBytes) {
            buffer_.resize(buffer_.size() * 2);
            status = query(kProcessInformation, buffer_.data(), bufferBytes(), &used);
        }
        if (status < 0) return false;
        counter_ = performanceCounter();
        readAt_ = GetTickCount();
        // Among thousands of processes a pass over all of them takes longer than that, and so does reading the
        // table.
        fresh_ = std::clamp(4 * (readAt_ - began), kFreshMilliseconds, kMostFreshMilliseconds);
        decode();
        return true;
    }

    bool fresh() const { return !rows_.empty() && GetTickCount() - readAt_ < fresh_; }

    // Wine has no idle and no system process; without them the first two real ones would be taken for them.
    void listIds(std::vector<ProcessId>& ids) const {
        ids = {kIdleProcess, kSystemProcess};
        for (const Row& row : rows_) ids.push_back(row.id);
    }

    // Callers ask in the table's order: the search goes on where it last succeeded.
    const ProcessTimes* find(ProcessId id) {
        for (std::size_t step = 0; step < rows_.size(); ++step) {
            const std::size_t at = (next_ + step) % rows_.size();
            if (rows_[at].id == id) {
                next_ = at + 1;
                return &rows_[at].times;
            }
        }
        return nullptr;
    }

private:
    struct Row {
        ProcessId id;
        ProcessTimes times;
    };

    static constexpr ULONG kMaxBufferBytes = 64u << 20;

    ULONG bufferBytes() const { return static_cast<ULONG>(buffer_.size() * sizeof buffer_[0]); }

    void decode() {
        const auto* bytes = reinterpret_cast<const unsigned char*>(buffer_.data());
        for (std::size_t offset = 0;;) {
            const auto* record = reinterpret_cast<const Record*>(bytes + offset);
            rows_.push_back(
                {static_cast<ProcessId>(record->id),
                 {static_cast<std::uint64_t>(record->creation), static_cast<std::uint64_t>(record->kernel),
                  static_cast<std::uint64_t>(record->user), counter_}});
            if (record->nextOffset == 0) break;
            offset += record->nextOffset;
        }
    }

    std::vector<std::uint64_t> buffer_ = std::vector<std::uint64_t>(512);
    std::vector<Row> rows_;
    std::size_t next_ = 0;
    DWORD readAt_ = 0;
    DWORD fresh_ = kFreshMilliseconds;  // so long after that
    std::int64_t counter_ = 0;
};

// One table for the process, as there is one system below it; used on the user-interface thread only.
Table& table() {
    static Table instance;
    return instance;
}

}  // namespace

bool present() {
    static const bool isWine = systemFunction<void*>("ntdll.dll", "wine_get_version") != nullptr;
    return isWine;
}

ProcessId processId(HANDLE process) {
    // XP has it from its first service pack on: linked directly it would keep the program from starting there.
    using GetId = DWORD(WINAPI*)(HANDLE);
    static const auto getId = systemFunction<GetId>("kernel32.dll", "GetProcessId");
    return getId == nullptr ? 0 : getId(process);
}

bool enumerateProcesses(std::vector<ProcessId>& ids) {
    ids.clear();
    if (!table().read()) return false;
    table().listIds(ids);
    return true;
}

std::optional<ProcessTimes> processTimes(ProcessId id) {
    if (table().fresh()) {
        if (const ProcessTimes* times = table().find(id)) return *times;
    }
    // Old, or the process is younger than the table.
    if (!table().read()) return std::nullopt;
    const ProcessTimes* times = table().find(id);
    if (times == nullptr) return std::nullopt;
    return *times;
}

}  // namespace platform::wine
