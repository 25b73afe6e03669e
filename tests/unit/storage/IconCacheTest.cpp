// Icons kept in a folder, one bitmap a program.
#include "storage/IconCache.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "platform/Files.h"
#include "platform/sim/Sim.h"
#include "storage/BitmapFile.h"
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
    IconCache icons{kBase, storage::kCacheFolder, 2};
};

}  // namespace

TEST_CASE_FIXTURE(Disk, "a program's icon is extracted once and shown wherever its file name stands") {
    CHECK(icons.Add("CHESS.exe") == 1);
    CHECK(icons.Add("none.exe") == 2);
    // Never one from another folder.
    sim::putFile(kBase + "stray.bmp", *sim::file(kGameIcon));
    CHECK(icons.Add("..\\stray") == 3);
    CHECK(SamePixels(icons.At(icons.Add("..\\x/C:chess.exe")), IconOf(kGame)));
    CHECK(SamePixels(icons.At(1), IconOf(kGame)));
    // Whatever else the index, it is the default icon.
    const auto fallback = platform::pictureFromIcon(platform::loadIconResource(2, 16).raw(), 16);
    for (const int index : {2, 3, 0, -1, 5, 32767}) CHECK(SamePixels(icons.At(index), fallback));
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

TEST_CASE_FIXTURE(Disk, "an icon that is not kept is made when it is shown, of a program that has one") {
    const auto extracted = [] {
        const auto log = sim::log();
        return std::count_if(log.begin(), log.end(), [](const auto& e) { return e.starts_with("extractIcon"); });
    };
    sim::putFile("C:\\Games\\Go.exe", "");
    sim::putFile("C:\\Games\\bare.txt", "");
    sim::putFile(kCache + "theirs.bmp", "something else");
    const auto fallback = platform::pictureFromIcon(platform::loadIconResource(2, 16).raw(), 16);
    const auto show = [&](const std::string& kept) {
        icons.Release();
        sim::clearLog();
        CHECK(SamePixels(icons.At(icons.Add("My Go", "C:\\Games\\Go.exe")), IconOf("C:\\Games\\Go.exe")));
        CHECK(SamePixels(icons.At(icons.Add("bare.txt", "C:\\Games\\bare.txt")), fallback));
        CHECK(SamePixels(icons.At(icons.Add("Theirs", kGame)), fallback));
        CHECK(sim::file(kCache + "my go.bmp").has_value() == (kept == "kept"));
        return extracted() - 1;  // one of them by this test
    };
    SUBCASE("once, and kept") {
        CHECK(show("kept") == 2);
        CHECK(show("kept") == 0);
        CHECK(sim::file(kCache + "theirs.bmp") == "something else");
    }
    SUBCASE("also where it cannot be kept") {
        sim::setReadOnlyFolder(kCache, true);
        CHECK(show("not kept") == 2);
        CHECK(show("not kept") == 1);
    }
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

TEST_CASE_FIXTURE(Disk, "cleaning up deletes icons that nobody needs, and nobody else's pictures") {
    const std::string icon = *sim::file(kGameIcon);
    const auto picture = [](int width, int height) {
        return storage::EncodeBitmap({width, height}, std::vector<std::uint32_t>(256, 7));
    };
    std::string opaque = picture(16, 16);
    opaque[28] = 24;  // bits a pixel
    const std::pair<const char*, std::string> kept[] = {
        {"chess.exe.bmp", icon},
        {"GO.EXE.bmp", icon},
        {"notes.txt", icon},
        {"Filters\\f.exe.bmp", icon},
        {"holiday.bmp", picture(32, 8)},
        {"painted.bmp", opaque},
        {"damaged.bmp", icon.substr(1)},
    };
    for (const auto& [name, content] : kept) sim::putFile(kCache + name, content);
    const auto cleanUp = [](const IconCache& cache) {
        cache.CleanUp([](const std::string& key) { return key == "chess.exe" || key == "go.exe"; });
    };
    sim::putFile(kCache + "gone.exe.bmp", icon);
    SUBCASE("of the folder itself") {
        cleanUp(icons);
        CHECK_FALSE(sim::file(kCache + "gone.exe.bmp"));
    }
    SUBCASE("but not through a link, below it neither") {
        sim::setLink(kCache);
        cleanUp(icons);
        cleanUp({kBase, storage::kFilterFolder, 2});
        CHECK(sim::file(kCache + "gone.exe.bmp"));
    }
    for (const auto& [name, content] : kept) CHECK(platform::fileExists(kCache + name));
}
