#include "favorites/ProfileFile.h"

#include "FavoritesFixture.h"
#include "platform/CodePage.h"

using namespace favoritestest;

namespace {

const std::string kPath = kBase + "My Favs 1";
const std::string kGame = "C:\\Games\\Chess.exe";
const std::string kGameLine = "Chess.exe\t01\tAbove\t" + kGame + "\t/fast now\r\n";
const Favorite kGameRow{"Chess.exe", "01", "Above", kGame, "/fast now"};

// A machine where that program exists.
struct Disk {
    Disk() {
        sim::reset();
        sim::putFile(kGame, "");
    }
    static favorites::LoadedProfile Load(const std::string& content) {
        sim::putFile(kPath, content);
        return favorites::LoadProfile(kPath);
    }
};

}  // namespace

TEST_CASE_FIXTURE(Disk, "a profile is written byte for byte, and comes back the same") {
    sim::putFile("D:\\a\\B.scr", "");
    const std::vector<Favorite> rows = {kGameRow, {"B.scr", "", "Default", "D:\\a\\B.scr", ""}};
    REQUIRE(favorites::SaveProfile(kPath, rows));
    CHECK(sim::file(kPath) == kHeader + kGameLine + "B.scr\t\tDefault\tD:\\a\\B.scr\t\r\n");
    CHECK(favorites::LoadProfile(kPath).rows == rows);

    // An empty one has no file.
    CHECK(favorites::SaveProfile(kPath, Load(kHeader).rows));
    CHECK_FALSE(sim::file(kPath));
    CHECK(favorites::SaveProfile(kPath, {}));
    const auto none = favorites::LoadProfile(kPath);
    CHECK(none.rows.empty());
    CHECK(none.missing == 0);
    CHECK_FALSE(none.unreadable);
}

TEST_CASE_FIXTURE(Disk, "lines are taken as they come, and each is written back with its five columns") {
    sim::putFile("C:\\x", "");
    struct Case {
        const char* what;
        std::string content;
        std::string saved;  // behind the header
    };
    const std::string invalid = "B\xFF\xFE.exe\t01\tHigh\tC:\\B\xFF\xFE.exe\t-x \xC3\r\n";
    const std::string bytes = "\x01\x80\t99\t?\t" + kGame + "\t\xFF\r\n";
    const std::string nuls = std::string("a\0b\t0\0\tLow\tC:\\x\tp\0q\r\n", 21);
    const Case cases[] = {
        {"the first line is skipped unchecked", kGameLine + kGameLine, kGameLine},
        {"no line end at the end", kHeader + kGameLine.substr(0, kGameLine.size() - 2), kGameLine},
        {"lone line feeds", "h\nChess.exe\t01\tAbove\t" + kGame + "\t/fast now\n", kGameLine},
        {"7 characters are ignored, 8 are not", "h\n\t\t\tC:\\x\r\n\t\t\tC:\\x\t\r\n", "\t\t\tC:\\x\t\r\n"},
        {"no parameter", "h\nC\t0\tLow\t" + kGame + "\r\n", "C\t0\tLow\t" + kGame + "\t\r\n"},
        {"more columns", "h\nC\t0\tLow\t" + kGame + "\tp\t7\tmore\r\n", "C\t0\tLow\t" + kGame + "\tp\r\n"},
        {"the first of two lines with one path, whatever its case and the blanks around it",
         "h\nC\t0\tLow\t  C:\\GAMES\\chess.exe \t\n" + kGameLine, "C\t0\tLow\tC:\\GAMES\\chess.exe\t\r\n"},
        {"any bytes around a path", kHeader + bytes + nuls, bytes + nuls},
        {"a path in another code page", kHeader + invalid + kGameLine, invalid + kGameLine},
    };
    for (const Case& each : cases) {
        CAPTURE(each.what);
        CHECK(favorites::SaveProfile(kPath, Load(each.content).rows));
        CHECK(sim::file(kPath) == kHeader + each.saved);
        CHECK(favorites::LoadProfile(kPath).missing == 0);
    }
}

TEST_CASE_FIXTURE(Disk, "favourites whose program is gone are counted, and named as far as a balloon goes") {
    const auto few = Load(kHeader + "Gone.exe\t0\tLow\tC:\\Gone.exe\t\r\n" + kGameLine +
                          "no columns at all\r\nx\t1\tHigh\tplain\t");
    CHECK(few.rows == std::vector<Favorite>{kGameRow});
    CHECK(few.missing == 3);
    CHECK(favorites::MissingText(few.missing, few.missingNames) ==
          "3 favorites not found and removed from current profile!\r\nGone.exe, , plain");

    std::string lines;
    for (int i = 0; i < 200; ++i) lines += "N\t0\tLow\tC:\\Pr\xC3\xB6gram" + std::to_string(i) + ".exe\t\r\n";
    const auto many = Load(kHeader + lines);
    CHECK(many.missing == 200);
    CHECK(many.missingNames.size() < 1000);
    const std::string text = favorites::MissingText(many.missing, many.missingNames);
    CHECK(text.size() <= 255);
    CHECK(text.size() > 200);
    CHECK(text.ends_with(".exe, ..."));

    // It ends after a whole character where not even one name fits.
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

TEST_CASE_FIXTURE(Disk, "damage does not reach the lines beside it") {
    std::string noise;
    std::uint32_t seed = 12345;
    for (int i = 0; i < 20000; ++i) {
        seed = seed * 1664525 + 1013904223;
        noise += static_cast<char>(seed >> 24);
    }
    const std::string nuls(5000, '\0');
    const std::string longLine(1 << 16, 'x');
    std::vector<Favorite> rows;
    for (const char* path : {"C:\\1.exe", "C:\\2.exe", "C:\\3.exe"}) {
        sim::putFile(path, "");
        rows.push_back({"x", "0", "Low", path, ""});
    }
    const auto loaded = Load(longLine + nuls + "\r\n" + favorites::FormatLine(rows[0]) + noise + "\r\n" + nuls +
                             "\r\n" + favorites::FormatLine(rows[1]) + longLine + "\r\na\tb\tc\t" + longLine +
                             "\td\r\n" + favorites::FormatLine(rows[2]));
    for (const Favorite& row : rows) CHECK(std::count(loaded.rows.begin(), loaded.rows.end(), row) == 1);
}
