// The user's part of the registry: the settings store, and what starts with the session.
#include "platform/Store.h"

#include <doctest/doctest.h>

#include <string>

#include "contract/Machine.h"
#include "platform/RunList.h"

using namespace contract;
using namespace platform;
using namespace std::string_literals;

TEST_CASE_FIXTURE(Fresh, "settings are kept as text") {
    CHECK_FALSE(storeRead(kSection, "Key"));
    // Around the sizes where reading must ask again, and far beyond.
    for (const std::string& value :
         {"134,82,60,"s, ""s, "Gr\xC3\xB6\xC3\x9F\x65 \xE2\x82\xAC"s, "a\r\nb\t\""s, std::string(254, 'a'),
          std::string(255, 'b'), std::string(256, 'c'), std::string(257, 'd'), std::string(70000, 'e')}) {
        CHECK(storeWrite(kSection, "Key", value));
        CHECK(storeRead(kSection, "Key") == value);
    }
    CHECK(storeWrite(kSection, "Cut", "before\0after"s));
    CHECK(storeRead(kSection, "Cut") == "before");
}

TEST_CASE_FIXTURE(Fresh, "settings are told apart by section and key, not by case") {
    CHECK(storeWrite(kSection, "One", "1"));
    CHECK(storeWrite(kSection, "Two", "2"));
    CHECK(storeRead(kSection, "oNE") == "1");
    CHECK(storeRead(kSection, "Two") == "2");
    CHECK_FALSE(storeRead(kSection + "Other", "One"));

    CHECK_FALSE(storeDeleteValue(kSection + "Other", "One"));
    CHECK(storeDeleteValue(kSection, "tWO"));
    CHECK_FALSE(storeDeleteValue(kSection, "Two"));
    CHECK_FALSE(storeRead(kSection, "Two"));
    CHECK(storeRead(kSection, "One") == "1");

    CHECK(storeDelete(kSection));
    CHECK_FALSE(storeRead(kSection, "One"));
    CHECK_FALSE(storeDelete(kSection));
    CHECK(storeWrite(kSection, "One", "again"));
    CHECK(storeRead(kSection, "One") == "again");
}

TEST_CASE_FIXTURE(Fresh, "what others put into the store is read with care") {
    for (const StoredAs kind : {StoredAs::Binary, StoredAs::ExpandableText}) {
        putStored("Key", kind, "%TEMP%\0"s);
        CHECK_FALSE(storeRead(kSection, "Key"));
    }
    for (const std::string& bytes : {"abc"s, "abc\0def\0\0"s}) {
        putStored("Key", StoredAs::Text, bytes);
        CHECK(storeRead(kSection, "Key") == "abc");
    }
    putStored("Key", StoredAs::Binary, "abc");
    CHECK(storeWrite(kSection, "Key", "text now"));
    CHECK(storeRead(kSection, "Key") == "text now");
}

TEST_CASE_FIXTURE(Fresh, "an entry of the run list is written, found in either case, replaced and deleted") {
    CHECK_FALSE(runEntryExists(kRunEntry));
    CHECK(deleteRunEntry(kRunEntry));  // there is none afterwards
    REQUIRE(writeRunEntry(kRunEntry, "C:\\Kestrum 2\\Kestrum2.exe"));
    CHECK(runEntryExists(kRunEntry));
    CHECK(runEntryExists("kESTRUM2 contract"));
    CHECK_FALSE(runEntryExists(kRunEntry + "2"));
    REQUIRE(writeRunEntry("KESTRUM2 CONTRACT", "short"));
    CHECK(storedRunEntry(kRunEntry) == "short");

    // A name that holds a NUL is not taken for what stands in front of it.
    const std::string other = kRunEntry + "\0more"s;
    CHECK_FALSE(writeRunEntry(other, "lost"));
    CHECK_FALSE(runEntryExists(other));
    CHECK(deleteRunEntry(other));
    CHECK(storedRunEntry(kRunEntry) == "short");
    CHECK(deleteRunEntry(kRunEntry));
    CHECK_FALSE(runEntryExists(kRunEntry));
    CHECK_FALSE(storedRunEntry(kRunEntry));
}

TEST_CASE_FIXTURE(Fresh, "a command is stored with every byte it has, and one NUL behind it") {
    for (const std::string& command : {"\"C:\\a b\\c.exe\" /d  e"s, "ends in one\0"s, "\0in front"s,
                                       "one\0two\0\0three"s, ""s, "gr\xC3\xBC\xC3\x9F"s, std::string(3000, 'x')}) {
        CAPTURE(command.size());
        REQUIRE(writeRunEntry(kRunEntry, command));
        CHECK(storedRunEntry(kRunEntry) == command);
        CHECK(runEntryExists(kRunEntry));
    }
}
