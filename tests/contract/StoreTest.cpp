#include "platform/Store.h"

#include <doctest/doctest.h>

#include "contract/Machine.h"

using contract::kSection;
using contract::StoredAs;

TEST_CASE("settings are kept as text") {
    contract::freshMachine();
    CHECK_FALSE(platform::storeRead(kSection, "Key"));
    // Around the sizes where reading must ask again, and far beyond.
    for (const std::string& value :
         {std::string("True"), std::string(), std::string("134,82,60,"),
          std::string("Gr\xC3\xB6\xC3\x9F\x65 \xE2\x82\xAC"), std::string("a\r\nb\t\""), std::string(254, 'a'),
          std::string(255, 'b'), std::string(256, 'c'), std::string(257, 'd'), std::string(70000, 'e')}) {
        CHECK(platform::storeWrite(kSection, "Key", value));
        CHECK(platform::storeRead(kSection, "Key") == value);
    }
    CHECK(platform::storeWrite(kSection, "Cut", std::string("before\0after", 12)));
    CHECK(platform::storeRead(kSection, "Cut") == "before");
}

TEST_CASE("settings are told apart by section and key, not by case") {
    contract::freshMachine();
    CHECK(platform::storeWrite(kSection, "One", "1"));
    CHECK(platform::storeWrite(kSection, "Two", "2"));
    CHECK(platform::storeRead(kSection, "oNE") == "1");
    CHECK(platform::storeRead(kSection, "Two") == "2");
    CHECK_FALSE(platform::storeRead(kSection, "Three"));
    CHECK_FALSE(platform::storeRead(kSection + "Other", "One"));

    CHECK(platform::storeWrite(kSection, "Three", "3"));
    CHECK(platform::storeDeleteValue(kSection, "tHREE"));
    CHECK_FALSE(platform::storeDeleteValue(kSection, "Three"));
    CHECK_FALSE(platform::storeDeleteValue(kSection + "Other", "One"));
    CHECK_FALSE(platform::storeRead(kSection, "Three"));
    CHECK(platform::storeRead(kSection, "One") == "1");

    CHECK(platform::storeDelete(kSection));
    CHECK_FALSE(platform::storeRead(kSection, "One"));
    CHECK_FALSE(platform::storeRead(kSection, "Two"));
    CHECK_FALSE(platform::storeDelete(kSection));
    CHECK(platform::storeWrite(kSection, "One", "again"));
    CHECK(platform::storeRead(kSection, "One") == "again");
}

TEST_CASE("what others put into the store is read with care") {
    contract::freshMachine();
    contract::putStored("Binary", StoredAs::Binary, "abc");
    CHECK_FALSE(platform::storeRead(kSection, "Binary"));
    contract::putStored("Expandable", StoredAs::ExpandableText, std::string("%TEMP%", 7));
    CHECK_FALSE(platform::storeRead(kSection, "Expandable"));
    contract::putStored("Unterminated", StoredAs::Text, "abc");
    CHECK(platform::storeRead(kSection, "Unterminated") == "abc");
    contract::putStored("TwoParts", StoredAs::Text, std::string("abc\0def\0\0", 9));
    CHECK(platform::storeRead(kSection, "TwoParts") == "abc");

    CHECK(platform::storeWrite(kSection, "Binary", "text now"));
    CHECK(platform::storeRead(kSection, "Binary") == "text now");
}
