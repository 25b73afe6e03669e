#include "platform/Files.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "contract/Machine.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"

using Names = std::vector<std::string>;

namespace {

Names sorted(Names names) {
    std::sort(names.begin(), names.end());
    return names;
}

std::string allBytes() {
    std::string bytes;
    for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
    return bytes;
}

}  // namespace

TEST_CASE("files keep what is written") {
    contract::freshMachine();
    const std::string path = contract::scratchFolder() + "file.txt";
    CHECK_FALSE(platform::fileExists(path));
    CHECK(platform::fileMissing(path));
    CHECK(platform::fileMissing(contract::scratchFolder() + "no folder\\file"));
    CHECK_FALSE(platform::fileMissing(contract::scratchFolder()));
    CHECK_FALSE(platform::readFile(path));

    // Each replaces the one before, longer ones included.
    const Names contents = {"line\r\n", std::string(300000, 'x'), allBytes() + allBytes(), "", "\x1A"};
    for (const std::string& content : contents) {
        CHECK(platform::writeFile(path, content));
        CHECK(platform::readFile(path) == content);
        CHECK(platform::fileExists(path));
        CHECK_FALSE(platform::fileMissing(path));
    }

    CHECK(platform::writeFile(path, "12345"));
    CHECK(platform::readFile(path, 5) == "12345");
    CHECK_FALSE(platform::readFile(path, 4));

    CHECK(platform::deleteFile(path));
    CHECK_FALSE(platform::deleteFile(path));
    CHECK_FALSE(platform::fileExists(path));
}

TEST_CASE("what is no file cannot be read, written or deleted") {
    contract::freshMachine();
    const std::string scratch = contract::scratchFolder();
    REQUIRE(platform::createFolders(scratch + "Folder"));
    REQUIRE(platform::writeFile(scratch + "file", "content"));
    const std::string nul(1, '\0');
    for (const std::string& path : {scratch + "Folder", scratch + "missing\\file", scratch + "file" + nul,
                                    scratch + "file" + nul + ".txt", std::string(), scratch + "a*b"}) {
        CAPTURE(path);
        CHECK_FALSE(platform::readFile(path));
        CHECK_FALSE(platform::fileExists(path));
        CHECK_FALSE(platform::writeFile(path, "new"));
        CHECK_FALSE(platform::deleteFile(path));
        CHECK_FALSE(platform::moveFileOver(path + "?", scratch + "moved"));
        CHECK_FALSE(platform::moveFileOver(scratch + "file", path));
    }
    CHECK(platform::readFile(scratch + "file") == "content");
}

TEST_CASE("a stamp tells states of a file apart") {
    contract::freshMachine();
    const std::string path = contract::scratchFolder() + "file.txt";
    CHECK_FALSE(platform::fileStamp(path));
    CHECK_FALSE(platform::fileStamp(contract::scratchFolder()));
    constexpr std::uint64_t kMinute = 600'000'000;
    const std::uint64_t before = platform::systemTime() - kMinute;
    REQUIRE(platform::writeFile(path, "first"));
    const auto first = platform::fileStamp(path);
    REQUIRE(first);
    CHECK(first->size == 5);
    CHECK(first->lastWrite > before);
    CHECK(first->lastWrite < before + 2 * kMinute);
    CHECK(platform::fileStamp(path) == first);
    REQUIRE(platform::writeFile(path, "longer than first"));
    CHECK(platform::fileStamp(path) != first);
    const auto second = platform::fileStamp(path);
    REQUIRE(platform::moveFileOver(path, path + ".moved"));
    CHECK(platform::fileStamp(path + ".moved") == second);
}

TEST_CASE("a file takes another's place in one step") {
    contract::freshMachine();
    const std::string from = contract::scratchFolder() + "new.tmp";
    const std::string to = contract::scratchFolder() + "old";
    REQUIRE(platform::writeFile(from, "new"));
    CHECK(platform::moveFileOver(from, to));
    CHECK(platform::readFile(to) == "new");
    CHECK_FALSE(platform::fileExists(from));

    REQUIRE(platform::writeFile(from, "newer"));
    CHECK(platform::moveFileOver(from, to));
    CHECK(platform::readFile(to) == "newer");
    CHECK_FALSE(platform::fileExists(from));

    CHECK_FALSE(platform::moveFileOver(from, to));
    CHECK(platform::readFile(to) == "newer");
}

TEST_CASE("a sealed file stays as it is") {
    contract::freshMachine();
    const std::string sealed = contract::sealedFile();
    CHECK(platform::readFile(sealed) == "old");
    CHECK_FALSE(platform::writeFile(sealed, "new"));
    CHECK_FALSE(platform::deleteFile(sealed));
    CHECK_FALSE(platform::moveFileOver(sealed, contract::scratchFolder() + "moved"));
    const std::string other = contract::scratchFolder() + "other";
    REQUIRE(platform::writeFile(other, "new"));
    CHECK_FALSE(platform::moveFileOver(other, sealed));
    CHECK(platform::readFile(other) == "new");
    CHECK(platform::readFile(sealed) == "old");
}

TEST_CASE("files are found by name whatever its case") {
    contract::freshMachine();
    const std::string scratch = contract::scratchFolder();
    for (const char* name :
         {"one.bmp", "Two.BMP", "three.bmpx", "bmp", "Gr\xC3\xB6\xC3\x9F\x65.bmp", "My Favs 1"}) {
        REQUIRE(platform::writeFile(scratch + name, name));
    }
    REQUIRE(platform::createFolders(scratch + "folder.bmp"));
    CHECK(sorted(platform::listFiles(scratch, "*.bmp")) ==
          Names{"Gr\xC3\xB6\xC3\x9F\x65.bmp", "Two.BMP", "one.bmp"});
    CHECK(platform::listFiles(scratch, "my favs *") == Names{"My Favs 1"});
    CHECK(platform::listFiles(scratch, "*").size() == 6);
    CHECK(platform::listFiles(scratch, "*.txt").empty());
    CHECK(platform::listFiles(scratch + "missing\\", "*").empty());
    CHECK(platform::readFile(scratch + "ONE.bmp") == "one.bmp");
    CHECK(platform::readFile(scratch + "Gr\xC3\xB6\xC3\x9F\x65.bmp"));
}

TEST_CASE("folders are created with their parents") {
    contract::freshMachine();
    const std::string scratch = contract::scratchFolder();
    CHECK(platform::createFolders(scratch + "Cache\\Filters"));
    CHECK(platform::createFolders(scratch + "Cache\\Filters\\"));
    CHECK(platform::createFolders(scratch + "Other\\"));
    CHECK(platform::writeFile(scratch + "Cache\\Filters\\file", ""));
    CHECK(platform::writeFile(scratch + "Other\\file", ""));
    CHECK_FALSE(platform::createFolders(scratch + "Cache\\Filters\\file"));
    CHECK_FALSE(platform::createFolders(scratch + "Cache\\Filters\\file\\below"));
    CHECK_FALSE(platform::createFolders(""));
}

TEST_CASE("long path names") {
    contract::freshMachine();
    const std::string scratch = contract::scratchFolder();
    REQUIRE(platform::createFolders(scratch + "Mixed"));
    REQUIRE(platform::writeFile(scratch + "Mixed\\Name.exe", ""));
    REQUIRE(platform::writeFile(scratch + "Mixed\\Longer than 8.3.exe", ""));
    const auto path = platform::longPathName(scratch + "mixed\\NAME.EXE");
    REQUIRE(path);
    CHECK(path->ends_with("\\Mixed\\Name.exe"));
    // The system looks up only what might be a short name; the case of others is not to be relied on.
    const auto longer = platform::longPathName(scratch + "mixed\\LONGER than 8.3.exe");
    REQUIRE(longer);
    CHECK(platform::lowerCase(*longer).ends_with("\\mixed\\longer than 8.3.exe"));
    CHECK(platform::longPathName(scratch + "Mixed"));
    for (const std::string& unresolved : {scratch + "missing.exe", std::string(),
                                          std::string("\\systemroot\\x.exe"), scratch + std::string(2000, 'x')}) {
        CAPTURE(unresolved);
        CHECK_FALSE(platform::longPathName(unresolved));
    }
}
