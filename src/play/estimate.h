// What a sample says of a number, and how surely.
#pragma once

#include <cstdint>
#include <optional>

namespace korvane::play {

// A number that was estimated: with 95 of 100 such estimates the truth is no further off than the margin.
struct Estimate {
    double value = 0;
    double margin = 0;  // 0: each of the sample was the same
};

// Fewer say nothing.
inline constexpr std::uint64_t kFewest = 20;

// Sums up a sample as it grows.
class Sample {
  public:
    void Add(double value) {
        ++count_;
        sum_ += value;
        squares_ += value * value;
        onlyEnds_ = onlyEnds_ && (value == 0 || value == 1);
        first_ = count_ == 1 ? value : first_;
        varies_ = varies_ || value != first_;
    }
    std::uint64_t count() const { return count_; }
    bool varies() const { return varies_; }
    double mean() const { return count_ == 0 ? 0 : sum_ / static_cast<double>(count_); }
    // Of the mean.
    double StandardError() const;
    // Of numbers, or of chances that are known in each life: where all are alike there is no margin. Nothing for a
    // sample that is too small.
    std::optional<Estimate> Number() const;
    // Of things that came to pass or not, or of their shares: that something never happened leaves a chance that it
    // may.
    std::optional<Estimate> Share() const;

  private:
    std::uint64_t count_ = 0;
    double sum_ = 0;
    double squares_ = 0;
    double first_ = 0;
    bool varies_ = false;
    bool onlyEnds_ = true;
};

}  // namespace korvane::play
