#include "endurance/Looks.h"

#include <algorithm>
#include <set>

namespace endurance {

bool Looks::AllDiffer() const {
    std::set<std::vector<bool>> different;
    for (const auto& [name, shape] : shapes_) different.insert(shape);
    return different.size() == shapes_.size();
}

// Where something is written, right of the icon and inside the frame of the row that has the focus.
std::vector<bool> Looks::Shape(const desktop::List& list, int slot) {
    constexpr int kRightOfIcon = 22, kFrame = 2;
    desktop::Rect area = list.Row(slot);
    area = {area.left + kRightOfIcon, area.top + kFrame, area.right, area.bottom - kFrame};
    const desktop::Picture picture(list.Window(), area);
    const std::uint32_t background = picture.Background();
    std::vector<bool> shape;
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) shape.push_back(picture.At(x, y) != background);
    }
    return shape;
}

}  // namespace endurance
