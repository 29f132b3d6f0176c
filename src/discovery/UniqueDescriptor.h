#pragma once

#include <utility>

#include <unistd.h>

namespace netrove {

/// A file descriptor that is closed with its owner; -1 for none.
class UniqueDescriptor {
public:
    UniqueDescriptor() = default;
    explicit UniqueDescriptor(int number) : number_(number) {}
    UniqueDescriptor(UniqueDescriptor&& other) noexcept
        : number_(std::exchange(other.number_, -1)) {}
    UniqueDescriptor& operator=(UniqueDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~UniqueDescriptor() {
        if (number_ >= 0)
            close(number_);
    }

    [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
    [[nodiscard]] int Number() const { return number_; }

private:
    int number_ = -1;
};

} // namespace netrove
