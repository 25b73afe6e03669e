// The last hundred readings of the load of the whole machine.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace graphs {

class LoadHistory {
public:
    static constexpr std::size_t kSamples = 100;

    // Held within 0..100. True when what there is to be seen is no longer what it was.
    bool Add(int percent) {
        const auto before = places_;
        places_.back() = static_cast<std::uint16_t>(std::clamp(percent, 0, 100));
        std::copy(places_.begin() + 1, places_.end(), places_.begin());
        return places_ != before;
    }
    void Clear() { places_ = {}; }
    // Percent; the last one is the newest.
    std::span<const std::uint16_t, kSamples> Samples() const { return std::span(places_).first<kSamples>(); }

private:
    std::array<std::uint16_t, kSamples + 1> places_{};  // the last one takes the reading that moves in
};

}  // namespace graphs
