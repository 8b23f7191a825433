#include "reading/Lattice.hpp"

#include <algorithm>
#include <cmath>

#include "reading/FlatMap.hpp"

namespace karvel {

namespace {

constexpr float kNever = -1e30F;
constexpr std::size_t kNodes = 8;  ///< the most that are kept at a position
constexpr float kNodeGap = 6.5F;   ///< a node that is worse than the best of its position by more is dropped
constexpr float kArcGap = 8.0F;    ///< the same for an arc
constexpr float kFollowingWeight =
    0.65F;                           ///< weight of the order of words; the weight of their spelling is 1
constexpr float kEachWord = -0.7F;   ///< for every word: fewer and longer ones
constexpr float kNoWord = -14.0F;    ///< for a sign that is no word
constexpr float kAnyWord = -10.0F;   ///< for a word chosen by hand for signs that never write it
constexpr float kRangeShare = 0.3F;  ///< worth of the right range with a wrong word
constexpr float kWordCost = 0.05F;

/// log(exp(a) + exp(b))
float sum(float a, float b)
{
    const float more = std::max(a, b);
    const float less = std::min(a, b);
    return less <= kNever ? more : more + std::log1p(std::exp(less - more));
}

}  // namespace

Lattice::Lattice(const Lexicon& lexicon, const Following& following, SignsView signs,
                 std::span<const FixedRange> fixed)
    : lexicon_(lexicon), following_(following), positions_(signs.size() + 1)
{
    for (Position& position : positions_) {
        position.best = kNever;
    }
    positions_[0].nodes.push_back({0, 0, 0, kNever, following_.after(0, 0)});
    for (std::uint32_t start = 0; start < signs.size(); ++start) {
        settle(positions_[start]);
        while (!fixed.empty() && fixed.front().begin + fixed.front().length <= start) {
            fixed = fixed.subspan(1);
        }
        readFrom(start, signs, fixed);
    }
    settle(positions_.back());
    goBack();
}

void Lattice::readFrom(std::uint32_t start, SignsView signs, std::span<const FixedRange> fixed)
{
    if (positions_[start].nodes.empty()) {
        return;
    }
    const Lexicon::Candidate unknown{0, kNoWord};
    std::vector<Lexicon::Candidate> found;
    if (!fixed.empty() && fixed.front().begin == start) {
        const FixedRange& range = fixed.front();
        lexicon_.candidates(signs.substr(start, range.length), found);
        found.push_back(unknown);
        if (range.word != 0) {
            found.assign(1, {range.word, kAnyWord});
        }
        extend(start, range.length, found);
        return;
    }
    const std::size_t end = fixed.empty() ? signs.size() : fixed.front().begin;
    const std::size_t longest = std::min(end - start, lexicon_.longest());
    for (std::size_t length = 1; length <= longest; ++length) {
        found.clear();
        lexicon_.candidates(signs.substr(start, length), found);
        if (length == 1) {
            found.push_back(unknown);
        }
        extend(start, length, found);
    }
}

void Lattice::extend(std::uint32_t start, std::size_t length, std::span<const Lexicon::Candidate> candidates)
{
    const Position& here = positions_[start];
    Position& there = positions_[start + length];
    for (const auto& [word, written] : candidates) {
        if (here.nodes.front().forward + written < there.best - kArcGap) {
            continue;
        }
        for (std::uint32_t from = 0; from < here.nodes.size(); ++from) {
            const Node& node = here.nodes[from];
            float score = written + kEachWord;
            if (word != 0) {
                score += kFollowingWeight * std::log(following_.probability(node.known, word));
            }
            const float forward = node.forward + score;
            if (forward > there.best - kArcGap) {
                there.arcs.push_back({node.word, word, start, from, 0, score});
                there.best = std::max(there.best, forward);
            }
        }
    }
}

/// Joins the arcs that end here into nodes and keeps the best of them.
void Lattice::settle(Position& position)
{
    if (position.arcs.empty()) {
        return;
    }
    std::vector<Node> nodes;
    FlatMap<std::uint32_t> numbers;  // number of the node plus one
    for (Arc& arc : position.arcs) {
        std::uint32_t& number = numbers[(std::uint64_t{arc.before} << 32U | arc.word) + 1];
        if (number == 0) {
            nodes.push_back({arc.before, arc.word, kNever, kNever, {}});
            number = static_cast<std::uint32_t>(nodes.size());
        }
        arc.to = number - 1;
        Node& node = nodes[arc.to];
        node.forward = sum(node.forward, positions_[arc.start].nodes[arc.from].forward + arc.score);
    }
    std::vector<std::uint32_t> order(nodes.size());
    for (std::uint32_t i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    std::ranges::sort(order, std::greater(), [&](std::uint32_t i) { return nodes[i].forward; });
    std::vector<std::uint32_t> place(nodes.size(), kNodes);
    for (std::uint32_t i = 0; i < order.size() && i < kNodes; ++i) {
        if (nodes[order[i]].forward < nodes[order[0]].forward - kNodeGap) {
            break;
        }
        place[order[i]] = i;
        position.nodes.push_back(nodes[order[i]]);
        Node& node = position.nodes.back();
        node.known = following_.after(node.before, node.word);
    }
    std::erase_if(position.arcs, [&](const Arc& arc) { return place[arc.to] == kNodes; });
    for (Arc& arc : position.arcs) {
        arc.to = place[arc.to];
    }
}

void Lattice::goBack()
{
    float all = kNever;
    for (Node& node : positions_.back().nodes) {
        node.backward = 0;
        all = sum(all, node.forward);
    }
    for (std::size_t end = positions_.size() - 1; end > 0; --end) {
        Position& position = positions_[end];
        for (const Arc& arc : position.arcs) {
            Node& from = positions_[arc.start].nodes[arc.from];
            const float onward = arc.score + position.nodes[arc.to].backward;
            from.backward = sum(from.backward, onward);
            if (const float probability = std::exp(from.forward + onward - all); probability > 0) {
                position.readings[{arc.start, arc.word}] += probability;
            }
        }
    }
}

std::vector<Reading> Lattice::best() const
{
    struct Choice {
        float worth = kNever;
        Reading reading;
    };
    std::vector<Choice> choices(positions_.size());
    choices[0].worth = 0;
    for (std::size_t end = 1; end < positions_.size(); ++end) {
        std::map<std::uint32_t, float> ranges;
        for (const auto& [at, probability] : positions_[end].readings) {
            ranges[at.first] += probability;
        }
        for (const auto& [at, probability] : positions_[end].readings) {
            const float worth =
                choices[at.first].worth + probability + kRangeShare * ranges[at.first] - kWordCost;
            if (worth > choices[end].worth) {
                choices[end] = {worth, {at.first, end - at.first, at.second, probability}};
            }
        }
    }
    std::vector<Reading> words;
    for (std::size_t end = positions_.size() - 1; end > 0; end = words.back().begin) {
        words.push_back(choices[end].reading);
    }
    std::ranges::reverse(words);
    return words;
}

std::vector<Reading> Lattice::on(std::size_t begin, std::size_t length) const
{
    std::vector<Reading> words;
    for (const auto& [at, probability] : positions_[begin + length].readings) {
        if (at.first == begin) {
            words.push_back({begin, length, at.second, probability});
        }
    }
    std::ranges::stable_sort(words, std::greater(), &Reading::probability);
    return words;
}

}  // namespace karvel
