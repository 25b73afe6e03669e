#include "favorites/ProfileFile.h"

#include <doctest/doctest.h>

#include "platform/CodePage.h"
#include "platform/sim/Sim.h"

namespace sim = platform::sim;
using favorites::Favorite;

namespace {

const std::string kPath = "C:\\Kestrum\\My Favs 1";
const std::string kHeader = "[Kestrum 2 - Morvell Software 2010]\r\n";
const std::string kGame = "C:\\Games\\Chess.exe";
const std::string kGameLine = "Chess.exe\t01\tAbove\t" + kGame + "\t/fast now\r\n";
const Favorite kGameRow{"Chess.exe", "01", "Above", kGame, "/fast now"};

favorites::LoadedProfile Load(const std::string& content) {
    sim::putFile(kPath, content);
    return favorites::LoadProfile(kPath);
}

// What is in the file after it has been loaded and saved.
std::string LoadedAndSaved(const std::string& content) {
    CHECK(favorites::SaveProfile(kPath, Load(content).rows));
    return sim::file(kPath).value_or("(no file)");
}

}  // namespace

TEST_CASE("a profile is written byte for byte, and comes back the same") {
    sim::reset();
    sim::putFile(kGame, "");
    sim::putFile("D:\\a\\B.scr", "");
    const std::vector<Favorite> rows = {kGameRow, {"B.scr", "", "Default", "D:\\a\\B.scr", ""}};
    REQUIRE(favorites::SaveProfile(kPath, rows));
    CHECK(sim::file(kPath) == kHeader + kGameLine + "B.scr\t\tDefault\tD:\\a\\B.scr\t\r\n");
    CHECK(favorites::LoadProfile(kPath).rows == rows);
}

TEST_CASE("an empty profile has no file") {
    sim::reset();
    sim::putFile(kPath, kHeader + kGameLine);
    CHECK(favorites::SaveProfile(kPath, {}));
    CHECK_FALSE(sim::file(kPath));
    CHECK(favorites::SaveProfile(kPath, {}));
    CHECK(LoadedAndSaved(kHeader) == "(no file)");
    const auto loaded = favorites::LoadProfile("C:\\Kestrum\\none");
    CHECK(loaded.rows.empty());
    CHECK(loaded.missing == 0);
    CHECK_FALSE(loaded.unreadable);
}

TEST_CASE("lines are taken as they come, and each is written back with its five columns") {
    sim::reset();
    sim::putFile(kGame, "");
    sim::putFile("C:\\x", "");
    struct Case {
        const char* what;
        std::string content;
        std::string saved;
    };
    const std::string invalid = "B\xFF\xFE.exe\t01\tHigh\tC:\\B\xFF\xFE.exe\t-x \xC3\r\n";
    const Case cases[] = {
        {"the first line is skipped unchecked", kGameLine + kGameLine, kHeader + kGameLine},
        {"no line end at the end", kHeader + kGameLine.substr(0, kGameLine.size() - 2), kHeader + kGameLine},
        {"lone line feeds", "h\nChess.exe\t01\tAbove\t" + kGame + "\t/fast now\n", kHeader + kGameLine},
        {"7 characters are ignored, 8 are not", kHeader + "\t\t\tC:\\x\r\n" + "\t\t\tC:\\x\t\r\n",
         kHeader + "\t\t\tC:\\x\t\r\n"},
        {"no parameter", kHeader + "C\t0\tLow\t" + kGame + "\r\n", kHeader + "C\t0\tLow\t" + kGame + "\t\r\n"},
        {"more columns", kHeader + "C\t0\tLow\t" + kGame + "\tp\t7\tmore\r\n",
         kHeader + "C\t0\tLow\t" + kGame + "\tp\r\n"},
        {"any bytes around a path", kHeader + "\x01\x80\t99\t?\t" + kGame + "\t\xFF\r\n",
         kHeader + "\x01\x80\t99\t?\t" + kGame + "\t\xFF\r\n"},
        {"a path in another code page", kHeader + invalid + kGameLine, kHeader + invalid + kGameLine},
    };
    for (const Case& each : cases) {
        CAPTURE(each.what);
        CHECK(LoadedAndSaved(each.content) == each.saved);
        CHECK(favorites::LoadProfile(kPath).missing == 0);
    }
}

TEST_CASE("favourites whose program is gone are counted and named") {
    sim::reset();
    sim::putFile(kGame, "");
    sim::putFolder("C:\\Folder.exe");
    const auto loaded =
        Load(kHeader + "Gone.exe\t0\tLow\tC:\\Gone.exe\t\r\n" + kGameLine + "F\t0\tLow\tC:\\Folder.exe\t\r\n" +
             "no columns at all\r\n" + "x\t1\tHigh\tplain\t\r\n");
    CHECK(loaded.rows == std::vector<Favorite>{kGameRow});
    CHECK(loaded.missing == 4);
    CHECK(loaded.missingNames == "Gone.exe, Folder.exe, , plain");
    CHECK(favorites::MissingText(loaded.missing, loaded.missingNames) ==
          "4 favorites not found and removed from current profile!\r\nGone.exe, Folder.exe, , plain");
}

TEST_CASE("the balloon's text is cut where a balloon ends, after a whole name or character") {
    sim::reset();
    std::string lines;
    for (int i = 0; i < 200; ++i) lines += "N\t0\tLow\tC:\\Pr\xC3\xB6gram" + std::to_string(i) + ".exe\t\r\n";
    const auto many = Load(kHeader + lines);
    CHECK(many.missing == 200);
    CHECK(many.missingNames.size() < 1000);
    const std::string text = favorites::MissingText(many.missing, many.missingNames);
    CHECK(text.size() <= 255);
    CHECK(text.size() > 200);
    CHECK(text.ends_with(".exe, ..."));

    std::string longName = "C:\\y";
    for (int i = 0; i < 300; ++i) longName += "\xC3\xB6";
    for (const char* odd : {"", "z"}) {
        const auto one = Load(kHeader + "N\t0\tLow\t" + longName.insert(3, odd) + "\t\r\n");
        const std::string single = favorites::MissingText(one.missing, one.missingNames);
        CHECK(single.size() <= 255);
        CHECK(platform::isValidText(single));
        CHECK(single.ends_with("\xC3\xB6..."));
    }
}

TEST_CASE("damage does not reach the lines beside it") {
    sim::reset();
    sim::putFile(kGame, "");
    std::string noise;
    std::uint32_t seed = 12345;
    for (int i = 0; i < 20000; ++i) {
        seed = seed * 1664525 + 1013904223;
        noise += static_cast<char>(seed >> 24);
    }
    const std::string nuls(5000, '\0');
    const std::string longLine(1 << 20, 'x');
    SUBCASE("noise, NULs and long lines") {
        const auto loaded = Load(kHeader + kGameLine + noise + "\r\n" + nuls + "\r\n" + kGameLine + longLine +
                                 "\r\n" + "a\tb\tc\t" + longLine + "\td\r\n" + kGameLine);
        int found = 0;
        for (const Favorite& row : loaded.rows) found += row == kGameRow ? 1 : 0;
        CHECK(found == 3);
    }
    SUBCASE("a header of noise") {
        CHECK(Load(longLine + nuls + "\r\n" + kGameLine).rows.size() == 1);
    }
    SUBCASE("ten thousand favourites") {
        std::string content = kHeader;
        for (int i = 0; i < 10000; ++i) content += kGameLine;
        CHECK(LoadedAndSaved(content) == content);
    }
    SUBCASE("NULs within columns") {
        const std::string line = std::string("a\0b\t0\0\tLow\t", 11) + kGame + std::string("\tp\0q\r\n", 6);
        CHECK(LoadedAndSaved(kHeader + line) == kHeader + line);
    }
}

TEST_CASE("a profile on disk is the old one or the new one wherever saving stops") {
    const std::string old = kHeader + kGameLine;
    for (int steps = 0; steps <= 3; ++steps) {
        for (const bool deleting : {false, true}) {
            CAPTURE(steps);
            CAPTURE(deleting);
            sim::reset();
            sim::putFile(kPath, old);
            sim::stopFilesAfter(steps);
            const std::vector<Favorite> rows(deleting ? 0U : 3U, kGameRow);
            const bool saved = favorites::SaveProfile(kPath, rows);
            const std::string wanted = deleting ? "(no file)" : favorites::FormatProfile(rows);
            CHECK(sim::file(kPath).value_or("(no file)") == (saved ? wanted : old));
        }
    }
}
