// Remembers what a list shows on the screen, so that a list which is cleared and filled again invalidates only the
// cells that really differ: the process list is rebuilt twice a second and must not flicker or burn time.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "controls/UcListView.h"

namespace controls {

class UcListShown {
public:
    // Calls `invalidate` for every area whose look differs from the last time; everything at first.
    void Update(const UcListView& view, const std::function<void(const platform::Rect&)>& invalidate);
    // The window paints `dirty` from this state. What differs from the last Update is shown again by the next one.
    void Painted(const UcListView& view, const platform::Rect& dirty);
    // Forgets everything: the next Update invalidates the whole list.
    void Forget() { frame_ = 0; }

private:
    using Key = std::uint64_t;
    struct Row {
        Key state = 0;  // what concerns the whole row; 0 is "unknown"
        std::vector<Key> cells;
    };
    static void Describe(const UcListView& view, int slot, Row& row);

    Key frame_ = 0;  // geometry, colours, column formats: when it differs everything does
    Key header_ = 0;
    Key vertical_ = 0;
    Key horizontal_ = 0;
    Key corner_ = 0;
    std::vector<Row> rows_;
    Row scratch_;
};

}  // namespace controls
