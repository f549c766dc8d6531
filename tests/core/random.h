// Random numbers that are the same on every host for the same seed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace corvane::core {

class Random {
  public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    int Below(int limit) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(limit)); }
    int Byte() { return Below(256); }
    bool Chance(int percent) { return Below(100) < percent; }

    template <typename Container>
    const auto& Pick(const Container& container) {
        return container[static_cast<std::size_t>(Below(static_cast<int>(container.size())))];
    }

  private:
    std::mt19937 engine_;
};

}  // namespace corvane::core
