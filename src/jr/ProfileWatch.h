// The favourites of one profile, kept as its file is while the program runs. The file is only ever read.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "favorites/Favorite.h"
#include "platform/Files.h"

namespace jr {

class ProfileWatch {
public:
    // From now on it is this file; no rows until the next Refresh.
    void Follow(const std::string& path);
    // Reads the file anew when it is not what it was: no rows when it is gone, the last ones while it cannot be
    // read. True when the rows were replaced. fileStamp, readFile.
    bool Refresh();
    // In file order, also those whose program does not exist (yet): it may come, and costs nothing until then.
    const std::vector<favorites::Favorite>& Rows() const { return rows_; }

private:
    std::string path_;
    std::vector<favorites::Favorite> rows_;
    std::optional<platform::FileStamp> stamp_;
    bool read_ = false;  // the rows are those of the file with that stamp
};

}  // namespace jr
