#pragma once

#include <cstdint>
#include <random>

namespace karvel::testing {

/// The same throws for the same seed on every machine: the standard's distributions promise that to nobody.
class Dice {
  public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}

    /// 0 to `sides` - 1; 0 when there are none.
    int below(int sides)
    {
        return sides <= 0 ? 0 : static_cast<int>(engine_() % static_cast<std::uint64_t>(sides));
    }
    bool oneIn(int sides) { return below(sides) == 0; }

    /// One of a list that is not empty.
    template <typename List>
    decltype(auto) pick(const List& list)
    {
        return list[static_cast<decltype(std::size(list))>(below(static_cast<int>(std::size(list))))];
    }

  private:
    std::mt19937_64 engine_;
};

}  // namespace karvel::testing
