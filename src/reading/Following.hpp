#pragma once

#include <cstdint>
#include <vector>

#include "reading/FlatMap.hpp"
#include "reading/Lexicon.hpp"
#include "reading/Model.hpp"

namespace karvel {

/// How likely a word is after two others: counts of three words, of two, of the part of speech before and the
/// word, and of two parts of speech, each filled up with the next where it knows too little.
class Following {
  public:
    /// `lexicon` is finished and has the words of `model` and perhaps more.
    Following(const ReadingModel& model, const Lexicon& lexicon);

    /// What was counted after the same words.
    struct Context {
        float total = 0;
        float different = 0;  ///< number of different words
    };
    /// Two words and what is known of what follows them.
    struct Before {
        std::uint32_t before2 = 0;
        std::uint32_t before = 0;
        Context triples;
    };
    [[nodiscard]] Before after(std::uint32_t before2, std::uint32_t before) const;

    /// The probability of `word` there; above 0 for every word but 0.
    [[nodiscard]] float probability(const Before& there, std::uint32_t word) const;

  private:
    static void count(float& followed, Context& context, float times);

    std::vector<std::uint32_t> kinds_;  ///< by word
    std::vector<float> ofKind_;         ///< P(word | its kind), by word
    std::vector<float> plain_;          ///< P(word), by word
    std::vector<float> kindAfter_;      ///< P(kind | kind before)
    FlatMap<float> triples_;
    FlatMap<Context> tripleContexts_;
    FlatMap<float> pairs_;
    std::vector<Context> pairContexts_;  ///< by word
    FlatMap<float> kindPairs_;           ///< (kind before, word)
    std::vector<Context> kindContexts_;  ///< by kind
};

}  // namespace karvel
