#include "platform/Files.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <numeric>

#include "contract/Machine.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"

using namespace contract;
using namespace platform;

using Names = std::vector<std::string>;

TEST_CASE_FIXTURE(Fresh, "files keep what is written") {
    const std::string path = scratch + "file.txt";
    CHECK(fileMissing(path));
    CHECK_FALSE(readFile(path));
    CHECK_FALSE(deleteFile(path));
    CHECK(fileMissing(scratch + "no folder\\file"));
    CHECK_FALSE(fileMissing(scratch));

    std::string allBytes(256, '\0');
    std::iota(allBytes.begin(), allBytes.end(), '\0');
    const Names contents = {"line\r\n", std::string(300000, 'x'), allBytes + allBytes, "", "\x1A"};
    for (const std::string& content : contents) {
        CHECK(writeNewFile(path, content));
        CHECK_FALSE(writeNewFile(path, "other"));  // never to what is there
        CHECK(readFile(path) == content);
        CHECK(fileExists(path));
        CHECK_FALSE(fileMissing(path));
        CHECK(deleteFile(path));
    }
    CHECK(writeNewFile(path, "12345"));
    CHECK(readFile(path, 5) == "12345");
    CHECK_FALSE(readFile(path, 4));
    CHECK(deleteFile(path));
    CHECK(fileMissing(path));
}

TEST_CASE_FIXTURE(Fresh, "what is no file cannot be read, written or deleted") {
    REQUIRE(createFolders(scratch + "Folder"));
    REQUIRE(writeNewFile(scratch + "file", "content"));
    const std::string nul(1, '\0');
    for (const std::string& path : {scratch + "Folder", scratch + "missing\\file", scratch + "file" + nul,
                                    scratch + "file" + nul + ".txt", std::string(), scratch + "a*b"}) {
        CAPTURE(path);
        CHECK_FALSE(readFile(path));
        CHECK_FALSE(fileExists(path));
        CHECK_FALSE(writeNewFile(path, "new"));
        CHECK_FALSE(deleteFile(path));
        CHECK_FALSE(moveFileOver(path + "?", scratch + "moved"));
        CHECK_FALSE(moveFileOver(scratch + "file", path));
    }
    CHECK(readFile(scratch + "file") == "content");
    CHECK_FALSE(writeNewFile(scratch + "NUL", "for a device"));
}

TEST_CASE_FIXTURE(Fresh, "what a link leads to is safe from what is done to the link") {
    REQUIRE(createFolders(scratch + "There"));
    REQUIRE(writeNewFile(scratch + "There\\file", "theirs"));
    makeLink(scratch + "link", scratch + "There\\file");
    makeLink(scratch + "Folder link", scratch + "There");
    for (const char* link : {"link", "Folder link"}) {
        CAPTURE(link);
        CHECK(isLink(scratch + link));
        CHECK_FALSE(writeNewFile(scratch + link, "ours"));
    }
    for (const char* none : {"There", "There\\file", "missing", ""}) CHECK_FALSE(isLink(scratch + none));
    deleteFile(scratch + "link");
    deleteFile(scratch + "Folder link");
    CHECK(readFile(scratch + "There\\file") == "theirs");
}

TEST_CASE_FIXTURE(Fresh, "a stamp tells states of a file apart") {
    const std::string path = scratch + "file.txt";
    for (const std::string& none : {path, scratch}) CHECK_FALSE(fileStamp(none));
    constexpr std::uint64_t kMinute = 600'000'000;
    REQUIRE(writeNewFile(path, "first"));
    const FileStamp first = fileStamp(path).value_or(FileStamp{});
    CHECK(first.size == 5);
    CHECK(first.lastWrite > systemTime() - kMinute);
    CHECK(first.lastWrite < systemTime() + kMinute);
    CHECK(fileStamp(path) == first);
    REQUIRE(deleteFile(path));
    REQUIRE(writeNewFile(path, "longer than first"));
    const auto second = fileStamp(path);
    CHECK(second != first);
    REQUIRE(moveFileOver(path, path + ".moved"));
    CHECK(fileStamp(path + ".moved") == second);
}

TEST_CASE_FIXTURE(Fresh, "a file takes another's place in one step, but not that of a sealed one") {
    const std::string from = scratch + "new.tmp";
    const std::string to = scratch + "old";
    for (const char* content : {"new", "newer"}) {
        REQUIRE(writeNewFile(from, content));
        CHECK(moveFileOver(from, to));
        CHECK(readFile(to) == content);
        CHECK_FALSE(fileExists(from));
    }
    CHECK_FALSE(moveFileOver(from, to));
    const std::string sealed = sealedFile();
    CHECK_FALSE(moveFileOver(to, sealed));
    CHECK(readFile(to) == "newer");
    CHECK_FALSE(writeNewFile(sealed, "new"));
    CHECK_FALSE(deleteFile(sealed));
    CHECK_FALSE(moveFileOver(sealed, scratch + "moved"));
    CHECK(readFile(sealed) == "old");
}

TEST_CASE_FIXTURE(Fresh, "files are found by name whatever its case") {
    for (const char* name :
         {"one.bmp", "Two.BMP", "three.bmpx", "bmp", "Gr\xC3\xB6\xC3\x9F\x65.bmp", "My Favs 1"}) {
        REQUIRE(writeNewFile(scratch + name, name));
    }
    REQUIRE(createFolders(scratch + "folder.bmp"));
    Names bitmaps = listFiles(scratch, "*.bmp");
    std::sort(bitmaps.begin(), bitmaps.end());
    CHECK(bitmaps == Names{"Gr\xC3\xB6\xC3\x9F\x65.bmp", "Two.BMP", "one.bmp"});
    CHECK(listFiles(scratch, "my favs *") == Names{"My Favs 1"});
    CHECK(listFiles(scratch, "*").size() == 6);
    CHECK(listFiles(scratch, "*.txt").empty());
    CHECK(listFiles(scratch + "missing\\", "*").empty());
    CHECK(readFile(scratch + "ONE.bmp") == "one.bmp");
    CHECK(readFile(scratch + "Gr\xC3\xB6\xC3\x9F\x65.bmp"));
}

TEST_CASE_FIXTURE(Fresh, "folders are created with their parents") {
    for (const std::string& folder : {scratch + "Cache\\Filters", scratch + "Cache\\Filters\\"}) {
        CHECK(createFolders(folder));
    }
    CHECK(writeNewFile(scratch + "Cache\\Filters\\file", ""));
    CHECK(createFolders(scratch + "Other\\"));
    for (const std::string& none :
         {scratch + "Cache\\Filters\\file", scratch + "Cache\\Filters\\file\\below", std::string()}) {
        CHECK_FALSE(createFolders(none));
    }
}

TEST_CASE_FIXTURE(Fresh, "long path names") {
    REQUIRE(createFolders(scratch + "Mixed"));
    REQUIRE(writeNewFile(scratch + "Mixed\\Name.exe", ""));
    REQUIRE(writeNewFile(scratch + "Mixed\\Longer than 8.3.exe", ""));
    CHECK(longPathName(scratch + "mixed\\NAME.EXE").value_or("").ends_with("\\Mixed\\Name.exe"));
    // The system looks up only what might be a short name; the case of others is not to be relied on.
    const std::string longer = longPathName(scratch + "mixed\\LONGER than 8.3.exe").value_or("");
    CHECK(lowerCase(longer).ends_with("\\mixed\\longer than 8.3.exe"));
    CHECK(longPathName(scratch + "Mixed"));
    for (const std::string& unresolved : {scratch + "missing.exe", std::string(),
                                          std::string("\\systemroot\\x.exe"), scratch + std::string(2000, 'x')}) {
        CAPTURE(unresolved);
        CHECK_FALSE(longPathName(unresolved));
    }
}
