// Choices made by a fuzzer's input, byte by byte. When the bytes are used up every choice is the first one.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fuzz {

class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}

    bool Empty() const { return next_ == end_; }
    int Byte() { return Empty() ? 0 : *next_++; }
    // 0..end - 1, of one byte.
    int Below(int end) { return Byte() % end; }
    // As many of the next bytes as there are, at most `most`.
    std::string_view Text(int most) {
        const std::size_t size = std::min(static_cast<std::size_t>(most), static_cast<std::size_t>(end_ - next_));
        const std::string_view text(reinterpret_cast<const char*>(next_), size);
        next_ += size;
        return text;
    }

private:
    const std::uint8_t* next_;
    const std::uint8_t* end_;
};

// What happens in one step, always of as many bytes, so that a changed one leaves the other steps as they were.
struct Step {
    int kind = 0;
    int a = 0, b = 0, c = 0;

    bool Bit(int number) const { return (c >> number & 1) != 0; }
};

inline Step NextStep(Bytes& bytes) {
    Step step;
    step.kind = bytes.Byte();
    step.a = bytes.Byte();
    step.b = bytes.Byte();
    step.c = bytes.Byte();
    return step;
}

template <class T, std::size_t N>
const T& Pick(const T (&choices)[N], int number) {
    return choices[static_cast<std::size_t>(number) % N];
}

}  // namespace fuzz
