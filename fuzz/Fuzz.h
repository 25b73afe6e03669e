// What the fuzz targets share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace fuzz {

inline std::string_view Text(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Ends the program, which the fuzzer reports as a finding.
inline void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace fuzz
