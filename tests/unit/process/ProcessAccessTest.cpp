#include <doctest/doctest.h>

#include "platform/sim/Sim.h"
#include "process/Affinity.h"
#include "process/PriorityClass.h"
#include "process/ProcessAccess.h"
#include "process/ProcessSnapshot.h"

namespace sim = platform::sim;
using Rights = std::vector<std::uint32_t>;

namespace {

struct Bench {
    ~Bench() { CHECK(sim::openHandles() == 0); }

    static platform::ProcessId Add(const std::string& name, std::uint32_t denied = 0) {
        sim::Process process;
        process.path = "C:\\Apps\\" + name;
        process.deniedRights = denied;
        return sim::addProcess(process);
    }
    // The rights that the operation asks for.
    template <class Operation>
    static Rights Asked(Operation operation) {
        sim::clearLog();
        operation();
        return sim::accessesAsked();
    }

    struct Fresh {
        Fresh() {
            sim::reset();
            sim::setProcessorCount(32);
        }
    } fresh;
    process::ErrorCounters errors;
    process::ProcessAccess access{errors};
};

}  // namespace

TEST_CASE_FIXTURE(Bench, "Each operation asks for exactly its rights") {
    const auto id = Add("app.exe");
    CHECK(Asked([&] { CHECK(access.EnableDebugPrivilege(true)); }) == Rights{0x1F0FFF});
    CHECK(Asked([&] { CHECK(access.GetAffinity(id) == 0xF); }) == Rights{0x410});
    CHECK(Asked([&] { CHECK(access.GetPriorityClass(id) == 0x20); }) == Rights{0x400});
    CHECK(Asked([&] { access.SetPriorityClass(id, 0x80); }) == Rights{0x400, 0x200});
    CHECK(Asked([&] { access.SetPriorityClass(id, 0x80); }) == Rights{0x400});  // has it already
    for (int times = 0; times < 2; ++times) {
        CHECK(Asked([&] { access.SetAffinity(id, "47"); }) == Rights{0x1F0FFF});
    }
    CHECK(Asked([&] { CHECK(access.WorkingSetText(id) == "1024"); }) == Rights{0x410});
    CHECK(Asked([&] { CHECK(access.ImagePath(id) == "C:\\Apps\\app.exe"); }) == Rights{0x410});
    CHECK(access.HighestCpu() == 7);
    CHECK(sim::findProcess(id)->priorityClass == 0x80);
    CHECK(sim::findProcess(id)->affinityMask == 0x90);
    sim::findProcess(id)->workingSet = 1023;
    CHECK(access.WorkingSetText(id) == "0");
    CHECK(Asked([&] { CHECK(access.Terminate(id)); }) == Rights{0x100001});
    CHECK_FALSE(sim::findProcess(id));
    CHECK(errors.Affinity() == 0);
    CHECK(errors.Priority() == 0);
}

TEST_CASE_FIXTURE(Bench, "Failures count once each, and reads give nothing") {
    const auto gone = Add("gone.exe");
    sim::endProcess(gone);
    const auto denied = Add("denied.exe", 0x210);
    for (const auto id : {gone, denied}) {
        access.SetAffinity(id, "0");
        access.SetPriorityClass(id, 0x80);
        CHECK(access.GetAffinity(id) == 0);
        CHECK(access.WorkingSetText(id).empty());
        CHECK(access.ImagePath(id).empty());
    }
    CHECK(access.GetPriorityClass(gone) == 0);
    CHECK_FALSE(access.Terminate(gone));
    CHECK(errors.Affinity() == 2);
    CHECK(errors.Priority() == 2);
    access.SetAffinity(Add("a.exe"), "");  // no processor at all
    CHECK(errors.Affinity() == 3);
    for (int i = 0; i < 40'000; ++i) errors.CountAffinity();
    CHECK(errors.Affinity() == 32767);
}

TEST_CASE_FIXTURE(Bench, "Module paths become the paths people know") {
    sim::putFile("C:\\WINDOWS\\System32\\smss.exe", "");
    std::string japanese = "C:\\";  // a path of 94 letters that takes 268 bytes
    for (int letter = 0; letter < 87; ++letter) japanese += "\xE3\x82\xAB";
    japanese += ".exe";
    sim::putFile(japanese, "");
    const std::string longest = "C:\\" + std::string(256, 'x');
    sim::putFile(longest, "");
    const std::pair<std::string, std::string> paths[] = {
        {"\\??\\C:\\APPS\\App.exe", "C:\\Apps\\app.exe"},
        {"\\SystemRoot\\System32\\smss.exe", "C:\\WINDOWS\\system32\\smss.exe"},
        {"\\systemroot\\System32\\smss.exe", ""},
        {"C:\\deleted.exe", ""},
        {japanese, japanese},
        {longest, longest},
        {longest + "x", ""},
    };
    const auto id = Add("app.exe");
    for (const auto& [module, known] : paths) {
        sim::findProcess(id)->path = module;
        CHECK(access.ImagePath(id) == known);
    }
}

TEST_CASE("Affinity and priority as text") {
    CHECK(process::AffinityText(5, 7) == "02");
    CHECK(process::AffinityText(255, 1) == "01");
    CHECK(process::AffinityText(0xFFFFFFFF, 7) == "01234567");
    CHECK(process::AffinityMask("13") == 10);
    CHECK(process::AffinityMask("01234567") == 255);
    CHECK(process::AffinityMask("x") == 1);
    CHECK(process::AffinityMask("89") == 0);
    CHECK(process::SplitMask(0x8000000D) == std::vector<std::uint32_t>{1, 4, 8, 0x80000000});

    for (const auto& entry : process::kPriorityClasses) {
        CHECK(process::PriorityName(entry.value) == entry.name);
        CHECK(process::PriorityValue(entry.name) == entry.value);
    }
    CHECK(process::PriorityName(0).empty());
    for (const char* none : {"normal", "Default", ""}) CHECK(process::PriorityValue(none) == 0);
}

TEST_CASE("A snapshot never sums its first two entries") {
    sim::reset();
    process::ProcessSnapshot snapshot;
    snapshot.Take();
    const std::uint32_t before = snapshot.IdSum();
    CHECK(before == platform::currentProcessId());
    sim::Process process;
    process.id = 0xFFFFFFF0;
    process.path = "C:\\Apps\\last.exe";
    sim::addProcess(process);
    snapshot.Take();
    CHECK(snapshot.Count() == 4);
    CHECK(snapshot.IdSum() == before + 0xFFFFFFF0u);
    sim::failEnumeration(true);
    snapshot.Take();
    CHECK(snapshot.Count() == 0);
    CHECK(snapshot.IdSum() == 0);
}
