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
const std::string kGameIcon = kCache + "chess.exe.bmp";

bool SamePixels(const platform::PictureHandle& a, const platform::PictureHandle& b) {
    return a && platform::picturePixels(a) == platform::picturePixels(b);
}

platform::PictureHandle IconOf(const std::string& program) {
    return platform::pictureFromIcon(platform::extractIcon(program, 16).raw(), 16);
}

struct Disk {
    Disk() {
        storage::CreateFolders(kBase);
        sim::putFile(kGame, "");
        icons.Make(kGame);
    }
    struct Fresh {
        Fresh() { sim::reset(); }
        ~Fresh() { CHECK(sim::openHandles() == 0); }
    } fresh;
    IconCache icons{kCache, 2};
};

}  // namespace

TEST_CASE_FIXTURE(Disk, "a program's icon is extracted once and shown wherever its file name stands") {
    CHECK(icons.Add("CHESS.exe") == 1);
    CHECK(icons.Add("none.exe") == 2);
    CHECK(icons.Add("..\\..\\x") == 3);
    CHECK(SamePixels(icons.At(1), IconOf(kGame)));
    // Whatever else the index, it is the default icon.
    const auto fallback = platform::pictureFromIcon(platform::loadIconResource(2, 16).raw(), 16);
    for (const int index : {2, 3, 0, -1, 4, 32767}) CHECK(SamePixels(icons.At(index), fallback));
    // What is kept is not made again, unless it is damaged.
    const std::string kept = *sim::file(kGameIcon);
    sim::putFile("D:\\Other\\Chess.exe", "");
    icons.Make("D:\\Other\\Chess.exe");
    CHECK(sim::file(kGameIcon) == kept);
    for (const std::string& damaged : {std::string("junk"), kept.substr(0, 200)}) {
        sim::putFile(kGameIcon, damaged);
        icons.Release();
        icons.Add("Chess.exe");
        CHECK(SamePixels(icons.At(1), fallback));
        icons.Make(kGame);
        CHECK(SamePixels(icons.At(1), IconOf(kGame)));
    }
    sim::putFile("C:\\Games\\Go.exe", "");
    sim::setDiskSpace(10);
    icons.Make("C:\\Games\\Go.exe");
    sim::setDiskSpace(std::nullopt);
    CHECK(SamePixels(icons.At(icons.Add("Go.exe")), fallback));
}

TEST_CASE_FIXTURE(Disk, "a long strip never holds many pictures") {
    const std::string bitmap = *sim::file(kGameIcon);
    for (int i = 0; i < 600; ++i) {
        const std::string name = "p" + std::to_string(i) + ".exe";
        sim::putFile(kCache + name + ".bmp", bitmap);
        CHECK(platform::pictureSize(icons.At(icons.Add(name))) == platform::Size{16, 16});
    }
    CHECK(sim::openHandles("picture") < 300);
    CHECK(SamePixels(icons.At(1), IconOf(kGame)));
}

TEST_CASE_FIXTURE(Disk, "cleaning up deletes the bitmaps nobody needs, and nothing else") {
    const char* const needed[] = {"chess.exe.bmp", "GO.EXE.bmp", "notes.txt", "Filters\\f.exe.bmp"};
    for (const char* name : needed) sim::putFile(kCache + name, "");
    sim::putFile(kCache + "gone.exe.bmp", "");
    icons.CleanUp([](const std::string& name) { return name == "chess.exe" || name == "go.exe"; });
    CHECK_FALSE(sim::file(kCache + "gone.exe.bmp"));
    for (const char* name : needed) CHECK(platform::fileExists(kCache + name));
}
