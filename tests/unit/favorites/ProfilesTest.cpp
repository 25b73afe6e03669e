// Names and places of the profiles, and the icons kept for their favourites.
#include "favorites/Profiles.h"

#include <doctest/doctest.h>

#include "favorites/IconCache.h"
#include "platform/Files.h"
#include "platform/sim/Sim.h"

namespace sim = platform::sim;
using favorites::IconCache;

namespace {

const std::string kBase = "C:\\Kestrum\\";
const std::string kCache = kBase + "Cache\\";
const std::string kGame = "C:\\Games\\Chess.exe";

bool SamePixels(const platform::PictureHandle& a, const platform::PictureHandle& b) {
    if (!platform::savePictureFile("C:\\a.bmp", a) || !platform::savePictureFile("C:\\b.bmp", b)) return false;
    return sim::file("C:\\a.bmp") == sim::file("C:\\b.bmp");
}

platform::PictureHandle IconOf(const std::string& program) {
    return platform::pictureFromIcon(platform::extractIcon(program, 16).raw(), 16);
}

}  // namespace

TEST_CASE("profiles have names, captions and a place") {
    sim::reset();
    CHECK(favorites::BaseFolder() == kBase);
    CHECK(favorites::ProfileNameFromIndex(0) == "My Favs 1");
    CHECK(favorites::ProfileNameFromIndex(4) == "My Favs 5");
    for (const int damaged : {-32768, -1}) CHECK(favorites::ProfileNameFromIndex(damaged) == "My Favs 1");
    for (const int damaged : {5, 32767}) CHECK(favorites::ProfileNameFromIndex(damaged) == "My Favs 5");

    sim::putFile(kBase + "My Favs 2", "");
    sim::putFolder(kBase + "My Favs 3");
    CHECK(favorites::ProfileCaption(kBase, 1) == "My Favs 1 (Empty)");
    CHECK(favorites::ProfileCaption(kBase, 2) == "My Favs 2");
    CHECK(favorites::ProfileCaption(kBase, 3) == "My Favs 3 (Empty)");
    CHECK(favorites::NameFromCaption("My Favs 1 (Empty)") == "My Favs 1");
    CHECK(favorites::NameFromCaption(" (Empty)My (empty) Favs (Empty)") == "My (empty) Favs");

    favorites::CreateFolders(kBase);
    sim::putFile(kCache + "Filters\\inside.bmp", "");
    CHECK(platform::fileExists("C:\\Kestrum\\Cache\\Filters\\inside.bmp"));
}

TEST_CASE("a program's icon is extracted once and shown wherever its file name stands") {
    sim::reset();
    favorites::CreateFolders(kBase);
    sim::putFile(kGame, "");
    {
        IconCache icons(kBase);
        icons.Make(kGame);
        REQUIRE(sim::file(kCache + "chess.exe.bmp"));
        CHECK(icons.Add("CHESS.exe") == 1);
        CHECK(icons.Add("none.exe") == 2);
        CHECK(icons.Add("..\\..\\x") == 3);
        CHECK(SamePixels(icons.At(1), IconOf(kGame)));

        // Whatever else the index, it is the default icon.
        const platform::IconHandle own = platform::loadIconResource(2, 16);
        const auto fallback = platform::pictureFromIcon(own.raw(), 16);
        for (const int index : {2, 3, 0, -1, 4, 32767}) {
            CAPTURE(index);
            CHECK(SamePixels(icons.At(index), fallback));
        }

        SUBCASE("an icon that is kept is not made again") {
            const auto kept = sim::file(kCache + "chess.exe.bmp");
            sim::putFile("D:\\Other\\Chess.exe", "");
            icons.Make("D:\\Other\\Chess.exe");
            CHECK(sim::file(kCache + "chess.exe.bmp") == kept);
        }
        SUBCASE("a damaged bitmap shows the default icon until it is made again") {
            for (const auto& damaged : {std::string("junk"), sim::file(kCache + "chess.exe.bmp")->substr(0, 200)}) {
                sim::putFile(kCache + "chess.exe.bmp", damaged);
                icons.Release();
                icons.Add("Chess.exe");
                CHECK(SamePixels(icons.At(1), fallback));
                icons.Make(kGame);
                CHECK(SamePixels(icons.At(1), IconOf(kGame)));
            }
        }
        SUBCASE("a disk that is full leaves the default icon") {
            sim::putFile("C:\\Games\\Go.exe", "");
            sim::setDiskSpace(10);
            icons.Make("C:\\Games\\Go.exe");
            sim::setDiskSpace(std::nullopt);
            CHECK(SamePixels(icons.At(icons.Add("Go.exe")), fallback));
        }
    }
    CHECK(sim::openHandles() == 0);
}

TEST_CASE("a long strip never holds many pictures") {
    sim::reset();
    favorites::CreateFolders(kBase);
    sim::putFile(kGame, "");
    IconCache icons(kBase);
    icons.Make(kGame);
    const auto bitmap = *sim::file(kCache + "chess.exe.bmp");
    for (int i = 0; i < 600; ++i) {
        const std::string name = "p" + std::to_string(i) + ".exe";
        sim::putFile(kCache + name + ".bmp", bitmap);
        CHECK(platform::pictureSize(icons.At(icons.Add(name))) == platform::Size{16, 16});
    }
    CHECK(sim::openHandles("picture") < 300);
    CHECK(SamePixels(icons.At(1), IconOf(kGame)));
}

TEST_CASE("cleaning up deletes the icons that no profile names") {
    sim::reset();
    favorites::CreateFolders(kBase);
    for (const char* name : {"chess.exe.bmp", "GO.EXE.bmp", "gone.exe.bmp", "notes.txt", "Filters\\f.exe.bmp"}) {
        sim::putFile(kCache + name, "");
    }
    const auto exists = [](const char* name) { return platform::fileExists(kCache + name); };
    sim::putFile(kBase + "My Favs 1", "gone.exe\r\n\r\nChess.exe\t0\tLow\tC:\\Chess.exe\t\r\n");
    sim::putFile(kBase + "My Favs 5", "[header]\r\ngo.exe\t0\tLow\tC:\\go.exe\t");
    sim::putFile(kBase + "My Favs 6", "gone.exe\tno profile");

    SUBCASE("while every profile can be read") {
        IconCache(kBase).CleanUp();
        CHECK_FALSE(exists("gone.exe.bmp"));
    }
    SUBCASE("not while one cannot") {
        sim::setUnreadable(kBase + "My Favs 5", true);
        IconCache(kBase).CleanUp();
        CHECK(exists("gone.exe.bmp"));
    }
    for (const char* kept : {"chess.exe.bmp", "GO.EXE.bmp", "notes.txt", "Filters\\f.exe.bmp"}) {
        CAPTURE(kept);
        CHECK(exists(kept));
    }
}
