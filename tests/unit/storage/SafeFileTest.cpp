#include "storage/SafeFile.h"

#include <doctest/doctest.h>

#include "platform/Files.h"
#include "platform/sim/Sim.h"

namespace sim = platform::sim;
using Lines = std::vector<std::string>;

namespace {

const std::string kPath = "C:\\Kestrum\\My Favs 1";
const std::string kOld = "old\r\n";
const std::string kNew = "new and longer\r\n";

}  // namespace

TEST_CASE("a file splits into its lines, whatever it holds") {
    const std::pair<std::string, Lines> cases[] = {
        {"", {}},
        {"\r\n", {""}},
        {"one\r\n\r\ntwo\r\n", {"one", "", "two"}},
        {"one\ntwo", {"one", "two"}},
        {"a\rb\r\r\nc\r", {"a\rb\r", "c\r"}},
        {std::string("a\0b\r\n\0", 6), {std::string("a\0b", 3), std::string("\0", 1)}},
        {std::string(1 << 20, 'x') + "\r\ny", {std::string(1 << 20, 'x'), "y"}},
    };
    for (const auto& [content, lines] : cases) {
        CAPTURE(content.substr(0, 20));
        const std::vector<std::string_view> split = storage::SplitLines(content);
        CHECK(Lines(split.begin(), split.end()) == lines);
    }
}

TEST_CASE("a file that is too large cannot be read, and none is written that could not be read again") {
    sim::reset();
    const std::string most(storage::kMostBytes, 'x');
    std::string content;
    CHECK(storage::WriteWhole(kPath, most));
    CHECK(storage::ReadWhole(kPath, content) == storage::ReadResult::Read);
    CHECK_FALSE(storage::WriteWhole(kPath, most + "x"));
    CHECK(sim::file(kPath)->size() == storage::kMostBytes);
    sim::putFile(kPath, most + "x");
    CHECK(storage::ReadWhole(kPath, content) == storage::ReadResult::Failed);
    CHECK(content.empty());
}

TEST_CASE("a program stopped at any step of a save leaves the old file or the new one") {
    int completed = 0;
    for (int steps = 0; steps <= 4; ++steps) {
        CAPTURE(steps);
        sim::reset();
        sim::putFile(kPath, kOld);
        sim::stopFilesAfter(steps);
        const bool written = storage::WriteWhole(kPath, kNew);
        sim::stopFilesAfter(std::nullopt);
        CHECK(sim::file(kPath) == (written ? kNew : kOld));
        completed += written ? 1 : 0;

        // What such an end left behind is in nobody's way.
        CHECK(storage::WriteWhole(kPath, kNew));
        CHECK(sim::file(kPath) == kNew);
        CHECK_FALSE(sim::file(kPath + ".new"));
    }
    CHECK(completed == 2);  // making room, writing and moving are all there is to it
}

TEST_CASE("what stands in the place of the temporary file is not written to, and costs no save") {
    sim::reset();
    sim::putFile(kPath, kOld);
    sim::putFolder(kPath + ".new");
    sim::putFile(kPath + ".new2", "theirs");
    sim::holdFile(kPath + ".new2");
    CHECK(storage::WriteWhole(kPath, kNew));
    CHECK(sim::file(kPath) == kNew);
    CHECK(sim::file(kPath + ".new2") == "theirs");
    sim::putFile(kPath + ".new3", "left behind");
    storage::CleanUpAfter(kPath);
    CHECK_FALSE(sim::file(kPath + ".new3"));
}

TEST_CASE("a save that fails changes nothing and leaves nothing behind") {
    sim::reset();
    sim::putFile(kPath, kOld);
    const std::vector<std::string> before = sim::allFiles();

    SUBCASE("full disk") {
        sim::setDiskSpace(3);
    }
    SUBCASE("read-only folder") {
        sim::setReadOnlyFolder("C:\\Kestrum", true);
    }
    CHECK_FALSE(storage::WriteWhole(kPath, kNew));
    CHECK(sim::file(kPath) == kOld);
    CHECK(sim::allFiles() == before);

    sim::putFolder("C:\\Kestrum2\\taken");
    CHECK_FALSE(storage::WriteWhole("C:\\Kestrum2\\taken", kNew));
    CHECK(sim::allFiles() == before);
}
