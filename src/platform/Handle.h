// The one owner of operating system objects: move-only, closes itself.
#pragma once

#include <cstdint>
#include <utility>

namespace platform {

// Owns one object of the operating system. Tag::close(raw) releases it; 0 is "none".
template <class Tag>
class Handle {
public:
    Handle() = default;
    explicit Handle(std::uintptr_t raw) : raw_(raw) {}
    ~Handle() { reset(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    Handle(Handle&& other) noexcept : raw_(other.release()) {}
    Handle& operator=(Handle&& other) noexcept {
        if (this != &other) reset(other.release());
        return *this;
    }

    explicit operator bool() const { return raw_ != 0; }
    std::uintptr_t raw() const { return raw_; }
    std::uintptr_t release() { return std::exchange(raw_, 0); }
    void reset(std::uintptr_t raw = 0) {
        const std::uintptr_t old = std::exchange(raw_, raw);
        if (old != 0) Tag::close(old);
    }

private:
    std::uintptr_t raw_ = 0;
};

}  // namespace platform
