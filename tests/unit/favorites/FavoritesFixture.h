// A favourites list in a window, on a simulated machine of its own.
#pragma once

#include <doctest/doctest.h>

#include <string>
#include <vector>

#include "favorites/FavoritesList.h"
#include "favorites/Profiles.h"
#include "platform/sim/Sim.h"

namespace favoritestest {

namespace sim = platform::sim;
using favorites::Favorite;
using Names = std::vector<std::string>;

inline const std::string kBase = "C:\\Kestrum\\";
inline const std::string kHeader = "[Kestrum 2 - Morvell Software 2010]\r\n";

// What is in a profile's file.
inline std::string Saved(const std::string& name) {
    return sim::file(kBase + name).value_or("(no file)");
}

inline Names NamesOf(const std::vector<Favorite>& favorites) {
    Names names;
    for (const Favorite& favorite : favorites) names.push_back(favorite.name);
    return names;
}

// The programs given exist as files.
struct FavoritesBench {
    explicit FavoritesBench(const Names& programs) {
        platform::WindowSpec spec;
        spec.kind = platform::WindowKind::Main;
        spec.bounds = {0, 0, 500, 300};
        REQUIRE(window.create(spec));
        REQUIRE(list.Create(window, "UcList12", {0, 0, 480, 250}));
        controls::UcListProperties properties;
        properties.headerProperties = favorites::kFavoritesHeader;
        properties.columnCount = favorites::kFavoritesColumnCount;
        properties.columnMaxSeen = favorites::kFavoritesColumnMaxSeen;
        list.ReadProperties(properties);
        window.show(platform::ShowCommand::Show);
        favorites::CreateFolders(kBase);
        for (const std::string& path : programs) sim::putFile(path, "");
    }

    struct Fresh {
        Fresh() { sim::reset(); }
    } fresh;
    platform::Window window;
    controls::UcList1 list;
    Names balloons;
    favorites::FavoritesList favs{
        list, kBase, [this](const std::string& text, const std::string& title, platform::BalloonIcon icon) {
            balloons.push_back(title + "|" + text + "|" + (icon == platform::BalloonIcon::Info ? "info" : "other"));
        }};
};

}  // namespace favoritestest
