#include "platform/RunList.h"

#include <doctest/doctest.h>

#include <string>

#include "contract/Machine.h"

namespace {

const std::string kName = "Kestrum2 Contract";

// Leaves nothing behind in the list, whatever becomes of the test.
struct CleanList {
    CleanList() {
        contract::freshMachine();
        platform::deleteRunEntry(kName);
    }
    ~CleanList() { platform::deleteRunEntry(kName); }
};

}  // namespace

TEST_CASE("an entry of the run list is written, found in either case, replaced and deleted") {
    const CleanList clean;
    CHECK_FALSE(platform::runEntryExists(kName));
    CHECK(platform::deleteRunEntry(kName));  // there is none afterwards
    REQUIRE(platform::writeRunEntry(kName, "C:\\Kestrum 2\\Kestrum2.exe"));
    CHECK(platform::runEntryExists(kName));
    CHECK(platform::runEntryExists("kESTRUM2 contract"));
    CHECK_FALSE(platform::runEntryExists(kName + "2"));
    REQUIRE(platform::writeRunEntry("KESTRUM2 CONTRACT", "short"));
    CHECK(contract::storedRunEntry(kName) == "short");
    CHECK(platform::deleteRunEntry(kName));
    CHECK_FALSE(platform::runEntryExists(kName));
    CHECK_FALSE(contract::storedRunEntry(kName));
}

TEST_CASE("a command is stored with every byte it has, and one NUL behind it") {
    const CleanList clean;
    using namespace std::string_literals;
    for (const std::string& command : {"\"C:\\a b\\c.exe\" /d  e"s, "ends in one\0"s, "\0in front"s,
                                       "one\0two\0\0three"s, ""s, "gr\xC3\xBC\xC3\x9F"s, std::string(3000, 'x')}) {
        CAPTURE(command.size());
        REQUIRE(platform::writeRunEntry(kName, command));
        CHECK(contract::storedRunEntry(kName) == command);
        CHECK(platform::runEntryExists(kName));
    }
}

TEST_CASE("a name that holds a NUL is not taken for what stands in front of it") {
    const CleanList clean;
    REQUIRE(platform::writeRunEntry(kName, "kept"));
    const std::string other = kName + std::string("\0more", 5);
    CHECK_FALSE(platform::writeRunEntry(other, "lost"));
    CHECK_FALSE(platform::runEntryExists(other));
    CHECK(platform::deleteRunEntry(other));
    CHECK(contract::storedRunEntry(kName) == "kept");
}
