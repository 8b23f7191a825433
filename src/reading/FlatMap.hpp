#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace karvel {

/// A hash map from 64-bit keys that are not 0 to small values. It is one array, so a look-up mostly costs one
/// access to memory; a passage of a thousand signs makes a million of them.
template <typename Value>
class FlatMap {
  public:
    FlatMap() : cells_(16) {}

    void reserve(std::size_t count)
    {
        if (count * 2 > cells_.size()) {
            grow(std::bit_ceil(count * 2));
        }
    }

    /// The value of `key`, made when there is none.
    Value& operator[](std::uint64_t key)
    {
        reserve(used_ + 1);
        Cell& cell = cells_[place(key)];
        if (cell.key == 0) {
            cell.key = key;
            ++used_;
        }
        return cell.value;
    }

    /// The value of `key`, or `otherwise` when there is none.
    [[nodiscard]] Value get(std::uint64_t key, Value otherwise = {}) const
    {
        const Cell& cell = cells_[place(key)];
        return cell.key == 0 ? otherwise : cell.value;
    }

  private:
    struct Cell {
        std::uint64_t key = 0;
        Value value{};
    };

    [[nodiscard]] std::size_t place(std::uint64_t key) const
    {
        const std::size_t mask = cells_.size() - 1;
        std::size_t at = (key * 0x9E3779B97F4A7C15U) >> 24U & mask;
        while (cells_[at].key != 0 && cells_[at].key != key) {
            at = (at + 1) & mask;
        }
        return at;
    }

    void grow(std::size_t size)
    {
        std::vector<Cell> old(size);
        old.swap(cells_);
        for (const Cell& cell : old) {
            if (cell.key != 0) {
                cells_[place(cell.key)] = cell;
            }
        }
    }

    std::vector<Cell> cells_;  ///< their number is a power of two; at least half of them are empty
    std::size_t used_ = 0;
};

}  // namespace karvel
