// A number by which the system knows an open file.
#pragma once

#include <unistd.h>
#include <utility>

namespace korvane {

// A descriptor that is closed with this.
class Descriptor {
  public:
    // Takes the number over; a negative one is none.
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    int number() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }
    // Whether the system closed it without a complaint, which errno tells else.
    bool Close() { return number_ < 0 || close(std::exchange(number_, -1)) == 0; }

  private:
    int number_;
};

}  // namespace korvane
