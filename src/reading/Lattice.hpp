#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <utility>
#include <vector>

#include "reading/Following.hpp"
#include "reading/Lexicon.hpp"

namespace karvel {

/// A range of signs that is one word by hand.
struct FixedRange {
    std::size_t begin = 0;
    std::size_t length = 0;
    std::uint32_t word = 0;  ///< 0: whichever fits best
};

/// A word on a range of signs; word 0 stands for signs that are no known word.
struct Reading {
    std::size_t begin = 0;
    std::size_t length = 0;
    std::uint32_t word = 0;
    float probability = 0;
};

/// All likely ways to read a passage, as a graph: a node is a position with the last two words, an arc is a
/// word. The sums over all paths (forward and backward) give the probability of each word on each range. Time
/// and memory grow linearly with the signs, because a position keeps its few best nodes.
class Lattice {
  public:
    /// `fixed` is in order, inside `signs`, without overlaps.
    Lattice(const Lexicon& lexicon, const Following& following, SignsView signs,
            std::span<const FixedRange> fixed);

    /// Words that cover all signs, in order: the most that can be expected to be right.
    [[nodiscard]] std::vector<Reading> best() const;

    /// Every word thought of on this range, the likeliest first.
    [[nodiscard]] std::vector<Reading> on(std::size_t begin, std::size_t length) const;

  private:
    struct Node {
        std::uint32_t before = 0;
        std::uint32_t word = 0;
        float forward = 0;   ///< logarithm of the sum over all paths to here
        float backward = 0;  ///< and from here to the end
        Following::Before known;
    };
    struct Arc {
        std::uint32_t before = 0;
        std::uint32_t word = 0;
        std::uint32_t start = 0;  ///< position
        std::uint32_t from = 0;   ///< node there
        std::uint32_t to = 0;     ///< node at the arc's end
        float score = 0;
    };
    struct Position {
        std::vector<Node> nodes;
        std::vector<Arc> arcs;  ///< that end here
        float best = 0;         ///< greatest `forward` of an arc that ends here
        /// Probabilities by start and word.
        std::map<std::pair<std::uint32_t, std::uint32_t>, float> readings;
    };

    void extend(std::uint32_t start, std::size_t length, std::span<const Lexicon::Candidate> candidates);
    void settle(Position& position);
    void readFrom(std::uint32_t start, SignsView signs, std::span<const FixedRange> fixed);
    void goBack();

    const Lexicon& lexicon_;
    const Following& following_;
    std::vector<Position> positions_;
};

}  // namespace karvel
