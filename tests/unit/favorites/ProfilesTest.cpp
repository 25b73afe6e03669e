// Names and places of the profiles, and the names in them.
#include "favorites/Profiles.h"

#include "FavoritesFixture.h"
#include "platform/Files.h"

using namespace favoritestest;

TEST_CASE("profiles have names, captions and a place") {
    sim::reset();
    CHECK(favorites::BaseFolder() == kBase);
    for (const int lowest : {0, -1, -32768}) CHECK(favorites::ProfileNameFromIndex(lowest) == "My Favs 1");
    for (const int highest : {4, 5, 32767}) CHECK(favorites::ProfileNameFromIndex(highest) == "My Favs 5");
    sim::putFile(kBase + "My Favs 2", "");
    sim::putFolder(kBase + "My Favs 3");
    CHECK(favorites::ProfileCaption(kBase, 2) == "My Favs 2");
    CHECK(favorites::ProfileCaption(kBase, 3) == "My Favs 3 (Empty)");

    favorites::CreateFolders(kBase);
    sim::putFile(kBase + "Cache\\Filters\\inside.bmp", "");
    CHECK(platform::fileExists("C:\\Kestrum\\Cache\\Filters\\inside.bmp"));
}

TEST_CASE("the icons that profiles need are known while every profile can be read") {
    sim::reset();
    sim::putFile(kBase + "My Favs 1", "gone.exe\r\n\r\n..\\x/Chess.exe\t0\tLow\tC:\\Chess.exe\t\r\n");
    sim::putFile(kBase + "My Favs 5", "[header]\r\ngo.exe\t0\tLow\tC:\\go.exe\t");
    sim::putFile(kBase + "My Favs 6", "gone.exe\tno profile");
    std::set<std::string, std::less<>> found;
    CHECK(favorites::IconKeysInProfiles(kBase, found));
    CHECK(found == std::set<std::string, std::less<>>{"chess.exe", "go.exe"});
    sim::setUnreadable(kBase + "My Favs 5", true);
    CHECK_FALSE(favorites::IconKeysInProfiles(kBase, found));
}
