// Icons kept in a folder, one bitmap a program.
#include "storage/IconCache.h"

#include <doctest/doctest.h>

#include "platform/Files.h"
#include "platform/sim/Sim.h"
#include "storage/Folders.h"

namespace sim = platform::sim;
using storage::IconCache;

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

TEST_CASE("a program's icon is extracted once and shown wherever its file name stands") {
    sim::reset();
    storage::CreateFolders(kBase);
    sim::putFile(kGame, "");
    {
        IconCache icons(kCache, 2);
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
    storage::CreateFolders(kBase);
    sim::putFile(kGame, "");
    IconCache icons(kCache, 2);
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

TEST_CASE("cleaning up deletes the bitmaps nobody needs, and nothing else") {
    sim::reset();
    storage::CreateFolders(kBase);
    for (const char* name : {"chess.exe.bmp", "GO.EXE.bmp", "gone.exe.bmp", "notes.txt", "Filters\\f.exe.bmp"}) {
        sim::putFile(kCache + name, "");
    }
    IconCache(kCache, 2).CleanUp([](const std::string& name) { return name == "chess.exe" || name == "go.exe"; });
    CHECK_FALSE(sim::file(kCache + "gone.exe.bmp"));
    for (const char* kept : {"chess.exe.bmp", "GO.EXE.bmp", "notes.txt", "Filters\\f.exe.bmp"}) {
        CAPTURE(kept);
        CHECK(platform::fileExists(kCache + kept));
    }
}
