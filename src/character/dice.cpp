#include "character/dice.h"

#include <atomic>
#include <cassert>
#include <chrono>

namespace korvane {

namespace {

int Total(RandomStream& stream, int count, int sides) {
    int total = 0;
    for (int i = 0; i < count; ++i)
        total += stream.Below(sides) + 1;
    return total;
}

std::uint64_t ClockSeed() {
    static std::atomic<std::uint64_t> call = 0;
    const auto ticks = std::chrono::system_clock::now().time_since_epoch().count();
    return RandomStream::Mix(static_cast<std::uint64_t>(ticks)) ^ RandomStream::Mix(++call);
}

}  // namespace

std::uint64_t RandomStream::Mix(std::uint64_t number) {
    number = (number ^ (number >> 30U)) * 0xBF58476D1CE4E5B9U;
    number = (number ^ (number >> 27U)) * 0x94D049BB133111EBU;
    return number ^ (number >> 31U);
}

std::uint64_t RandomStream::Next() {
    state_ += 0x9E3779B97F4A7C15U;
    return Mix(state_);
}

int RandomStream::Below(int n) {
    assert(n >= 1);
    // The integer part of n times a fraction of 32 bits.
    return static_cast<int>(((Next() >> 32U) * static_cast<std::uint64_t>(n)) >> 32U);
}

ClockDice::ClockDice() : stream_(ClockSeed()) {}

int ClockDice::Roll(int count, int sides) {
    stream_ = RandomStream(ClockSeed());
    return Total(stream_, count, sides);
}

int ClockDice::Draw(int n) {
    return stream_.Below(n);
}

SeededDice::SeededDice(std::uint64_t seed, std::uint64_t character)
    : stream_(RandomStream::Mix(seed + 1) ^ RandomStream::Mix(RandomStream::Mix(character + 1))) {}

int SeededDice::Roll(int count, int sides) {
    return Total(stream_, count, sides);
}

int SeededDice::Draw(int n) {
    return stream_.Below(n);
}

}  // namespace korvane
