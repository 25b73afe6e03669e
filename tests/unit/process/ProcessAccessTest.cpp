#include <doctest/doctest.h>

#include "platform/sim/Sim.h"
#include "process/Affinity.h"
#include "process/PriorityClass.h"
#include "process/ProcRec.h"
#include "process/ProcessAccess.h"
#include "process/ProcessSnapshot.h"

namespace sim = platform::sim;
using Rights = std::vector<std::uint32_t>;

namespace {

platform::ProcessId Add(const std::string& path, std::uint32_t denied = 0) {
    sim::Process process;
    process.path = path;
    process.deniedRights = denied;
    return sim::addProcess(process);
}

// The rights that the operation asks for.
template <class Operation>
Rights Asked(Operation operation) {
    sim::clearLog();
    operation();
    return sim::accessesAsked();
}

}  // namespace

TEST_CASE("Each operation asks for exactly its rights and closes what it opened") {
    sim::reset();
    const auto id = Add("C:\\Apps\\app.exe");
    process::ErrorCounters errors;
    process::ProcessAccess access(errors);

    CHECK(Asked([&] { CHECK(access.EnableDebugPrivilege(true)); }) == Rights{0x1F0FFF});
    CHECK(Asked([&] { CHECK(access.GetAffinity(id) == 0xF); }) == Rights{0x410});
    CHECK(Asked([&] { CHECK(access.GetPriorityClass(id) == 0x20); }) == Rights{0x400});
    CHECK(Asked([&] { access.SetPriorityClass(id, 0x80); }) == Rights{0x400, 0x200});
    CHECK(Asked([&] { access.SetPriorityClass(id, 0x80); }) == Rights{0x400});
    CHECK(Asked([&] { access.SetAffinity(id, "13"); }) == Rights{0x1F0FFF});
    CHECK(Asked([&] { access.SetAffinity(id, "13"); }) == Rights{0x1F0FFF});
    CHECK(Asked([&] { CHECK(access.WorkingSetText(id) == "1024"); }) == Rights{0x410});
    CHECK(Asked([&] { CHECK(access.ImagePath(id) == "C:\\Apps\\app.exe"); }) == Rights{0x410});
    CHECK(sim::findProcess(id)->priorityClass == 0x80);
    CHECK(sim::findProcess(id)->affinityMask == 0xA);
    CHECK(Asked([&] { CHECK(access.Terminate(id)); }) == Rights{0x100001});
    CHECK_FALSE(sim::findProcess(id));
    CHECK(errors.Affinity() == 0);
    CHECK(errors.Priority() == 0);
    CHECK(sim::openHandles() == 0);
}

TEST_CASE("Failures count once each, and reads give nothing") {
    sim::reset();
    process::ErrorCounters errors;
    process::ProcessAccess access(errors);
    const auto gone = Add("C:\\Apps\\gone.exe");
    sim::endProcess(gone);
    const auto denied = Add("C:\\Apps\\denied.exe", 0x210);
    const auto quiet = Add("C:\\Apps\\quiet.exe", 0x200);

    access.SetAffinity(gone, "0");
    CHECK(errors.Affinity() == 1);
    access.SetAffinity(denied, "0");
    access.SetAffinity(Add("C:\\Apps\\a.exe"), "");    // no processor at all
    access.SetAffinity(Add("C:\\Apps\\b.exe"), "67");  // processors the machine does not have
    CHECK(errors.Affinity() == 4);

    access.SetPriorityClass(gone, 0x80);
    access.SetPriorityClass(denied, 0x80);
    CHECK(errors.Priority() == 2);
    access.SetPriorityClass(quiet, 0x20);  // has it already: the right to set is not even asked for
    CHECK(errors.Priority() == 2);

    CHECK(access.GetAffinity(denied) == 0);
    CHECK(access.GetPriorityClass(gone) == 0);
    CHECK(access.WorkingSetText(denied).empty());
    CHECK(access.ImagePath(gone).empty());
    CHECK_FALSE(access.Terminate(gone));
    CHECK(sim::openHandles() == 0);

    for (int i = 0; i < 40'000; ++i) errors.CountAffinity();
    CHECK(errors.Affinity() == 32767);
}

TEST_CASE("Working sets and processor counts at their edges") {
    sim::reset();
    const auto small = Add("C:\\Apps\\small.exe");
    sim::findProcess(small)->workingSet = 1023;
    sim::setProcessorCount(32);
    process::ErrorCounters errors;
    process::ProcessAccess access(errors);
    CHECK(access.WorkingSetText(small) == "0");
    CHECK(access.HighestCpu() == 7);
    access.SetAffinity(small, "47");
    CHECK(sim::findProcess(small)->affinityMask == 0x90);
}

TEST_CASE("Module paths become the paths people know") {
    sim::reset();
    sim::putFile("C:\\WINDOWS\\System32\\smss.exe", "");
    process::ErrorCounters errors;
    process::ProcessAccess access(errors);
    const auto id = Add("C:\\WINDOWS\\system32\\csrss.exe");
    sim::Process& process = *sim::findProcess(id);
    process.path = "\\??\\C:\\WINDOWS\\SYSTEM32\\csrss.exe";
    CHECK(access.ImagePath(id) == "C:\\WINDOWS\\system32\\csrss.exe");
    process.path = "\\SystemRoot\\System32\\smss.exe";
    CHECK(access.ImagePath(id) == "C:\\WINDOWS\\system32\\smss.exe");
    process.path = "\\systemroot\\System32\\smss.exe";
    CHECK(access.ImagePath(id).empty());
    process.path = "C:\\deleted.exe";
    CHECK(access.ImagePath(id).empty());
}

TEST_CASE("Affinity and priority as text") {
    CHECK(process::AffinityText(0, 7).empty());
    CHECK(process::AffinityText(5, 7) == "02");
    CHECK(process::AffinityText(255, 1) == "01");
    CHECK(process::AffinityText(0xFFFFFFFF, 7) == "01234567");
    CHECK(process::AffinityMask("13") == 10);
    CHECK(process::AffinityMask("01234567") == 255);
    CHECK(process::AffinityMask("x") == 1);
    CHECK(process::AffinityMask("89") == 0);
    CHECK(process::SplitMask(0).empty());
    CHECK(process::SplitMask(0x8000000D) == std::vector<std::uint32_t>{1, 4, 8, 0x80000000});

    CHECK(process::PriorityName(0x8000) == "Above");
    CHECK(process::PriorityName(0x4000) == "Below");
    CHECK(process::PriorityName(0).empty());
    for (const auto& entry : process::kPriorityClasses) CHECK(process::PriorityValue(entry.name) == entry.value);
    for (std::size_t i = 0; i < process::kPriorityTexts.size(); ++i)
        CHECK(process::PriorityValue(process::kPriorityTexts[i]) ==
              (i < 6 ? process::kPriorityClasses[i].value : 0));
    CHECK(process::PriorityValue("normal") == 0);
    CHECK(process::PriorityValue("Default") == 0);
}

TEST_CASE("A snapshot never sums its first two entries") {
    sim::reset();
    process::ProcessSnapshot snapshot;
    snapshot.Take();
    const std::uint32_t before = snapshot.IdSum();
    CHECK(snapshot.Count() == 3);
    CHECK(before == platform::currentProcessId());
    sim::Process process;
    process.id = 0xFFFFFFF0;
    process.path = "C:\\Apps\\last.exe";
    sim::addProcess(process);
    snapshot.Take();
    CHECK(snapshot.IdSum() == before + 0xFFFFFFF0u);
    sim::failEnumeration(true);
    snapshot.Take();
    CHECK(snapshot.Count() == 0);
    CHECK(snapshot.IdSum() == 0);
}

TEST_CASE("Rows end at 256 and always carry the end mark") {
    process::ProcRecs rows;
    for (platform::ProcessId id = 1; id <= 300; ++id) CHECK(rows.Add({"row", id, 5}) == (id <= 256));
    CHECK(rows.Count() == 256);
    CHECK(rows.At(256).icon == 0);
    rows.Clear();
    CHECK(rows.At(0).icon == 0);
    CHECK_FALSE(rows.Add({"no icon", 1, 0}));
}
