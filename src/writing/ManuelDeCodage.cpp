#include "writing/ManuelDeCodage.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/SignCode.hpp"
#include "base/SignRepertoire.hpp"

namespace karvel {

namespace {

using Kind = Group::Kind;

void print(const Group& group, Kind around, std::string& text);

void printParts(const Group& group, std::string_view between, std::string& text)
{
    for (const Group& part : group.parts) {
        text += &part == group.parts.data() ? "" : between;
        print(part, group.kind, text);
    }
}

void print(const Group& group, Kind around, std::string& text)
{
    const bool brackets = around == Kind::Beside && group.kind == Kind::Above;
    text += brackets ? "(" : "";
    switch (group.kind) {
        case Kind::Sign: {
            const SignInfo* const sign = SignRepertoire::standard().byCode(group.code);
            text += sign != nullptr ? sign->gardiner : "?";
            break;
        }
        case Kind::Above:
            printParts(group, ":", text);
            break;
        case Kind::Beside:
            printParts(group, "*", text);
            break;
        case Kind::Ring:
            text += "<-";
            printParts(group, "-", text);
            text += "->";
            break;
    }
    text += brackets ? ")" : "";
}

/// Reads one level after the other: blocks, stacks, rows, signs.
class Reader {
  public:
    explicit Reader(std::string_view text) : text_(text) {}

    std::vector<Group> blocks(bool inRing)
    {
        std::vector<Group> blocks;
        while (fault.empty()) {
            skip("- ");
            if (text_.empty() || text_.front() == '>') {
                break;
            }
            if (text_.starts_with("<-")) {
                blocks.push_back(ring(inRing));
            } else {
                blocks.push_back(stack(0));
            }
        }
        if (fault.empty() && !inRing && !text_.empty()) {
            fault = "\"->\" senza \"<-\"";
        }
        return blocks;
    }

    std::string fault;

  private:
    static constexpr int kDeepest = 16;  // no block needs more brackets inside each other

    void skip(std::string_view characters)
    {
        text_.remove_prefix(std::min(text_.find_first_not_of(characters), text_.size()));
    }

    bool take(char character)
    {
        if (text_.empty() || text_.front() != character) {
            return false;
        }
        text_.remove_prefix(1);
        return true;
    }

    Group ring(bool inRing)
    {
        if (inRing) {
            fault = "un cartiglio dentro un altro";
            return {};
        }
        text_.remove_prefix(2);
        std::vector<Group> inside = blocks(true);
        if (!fault.empty()) {
            return {};
        }
        if (!take('>')) {
            fault = "\"<-\" senza \"->\"";
        } else if (inside.empty()) {
            fault = "un cartiglio vuoto";
        }
        return Group::of(Kind::Ring, std::move(inside));
    }

    Group stack(int depth)
    {
        std::vector<Group> rows;
        do {
            rows.push_back(row(depth));
        } while (fault.empty() && take(':'));
        return Group::of(Kind::Above, std::move(rows));
    }

    Group row(int depth)
    {
        std::vector<Group> parts;
        do {
            parts.push_back(piece(depth));
        } while (fault.empty() && take('*'));
        return Group::of(Kind::Beside, std::move(parts));
    }

    Group piece(int depth)
    {
        if (!take('(')) {
            return sign();
        }
        if (depth == kDeepest) {
            fault = "troppe parentesi una dentro l'altra";
            return {};
        }
        // Within brackets "-" sets groups side by side, as "*" does: there are no blocks inside a block.
        std::vector<Group> inside;
        do {
            inside.push_back(stack(depth + 1));
        } while (fault.empty() && take('-'));
        if (fault.empty() && !take(')')) {
            fault = "parentesi non chiusa";
        }
        return Group::of(Kind::Beside, std::move(inside));
    }

    Group sign()
    {
        const std::string_view word = text_.substr(0, text_.find_first_of("-:*()<> "));
        text_.remove_prefix(word.size());
        if (word == "?" || word == kMissingSign) {
            return Group::sign(kMissingSign);
        }
        const SignRepertoire& repertoire = SignRepertoire::standard();
        const SignInfo* known = repertoire.byCode(word);
        if (known == nullptr) {
            known = repertoire.byGardiner(word);
        }
        if (known == nullptr) {
            fault = word.empty() ? "manca un segno" : "segno sconosciuto: \"" + std::string(word) + "\"";
            return {};
        }
        return Group::sign(known->code);
    }

    std::string_view text_;
};

}  // namespace

std::string manuelDeCodage(const Layout& layout)
{
    std::string text;
    for (const Group& block : layout.blocks) {
        text += text.empty() ? "" : "-";
        print(block, Kind::Ring, text);
    }
    return text;
}

std::optional<Layout> readManuelDeCodage(std::string_view text, std::string& fault)
{
    Reader reader(text);
    Layout layout{reader.blocks(false)};
    if (reader.fault.empty() && layout.blocks.empty()) {
        reader.fault = "nessun segno";
    }
    fault = reader.fault;
    return fault.empty() ? std::optional(std::move(layout)) : std::nullopt;
}

}  // namespace karvel
