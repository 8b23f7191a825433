#include "writing/Layout.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace karvel {

namespace {

void addCodes(const std::vector<Group>& groups, std::string& codes)
{
    for (const Group& group : groups) {
        codes += group.code;
        addCodes(group.parts, codes);
    }
}

}  // namespace

Group Group::sign(std::string_view code)
{
    return {Kind::Sign, std::string(code), {}};
}

Group Group::of(Kind kind, std::vector<Group> parts)
{
    if (parts.size() == 1 && kind != Kind::Ring) {
        return std::move(parts.front());
    }
    Group group{kind, {}, {}};
    for (Group& part : parts) {
        if (part.kind == kind) {
            std::ranges::move(part.parts, std::back_inserter(group.parts));
        } else {
            group.parts.push_back(std::move(part));
        }
    }
    return group;
}

std::string codesOf(const Layout& layout)
{
    std::string codes;
    addCodes(layout.blocks, codes);
    return codes;
}

Layout ringed(Layout layout)
{
    const auto isRing = [](const Group& block) { return block.kind == Group::Kind::Ring; };
    if (layout.blocks.empty() || std::ranges::any_of(layout.blocks, isRing)) {
        return layout;
    }
    Layout whole;
    whole.blocks.push_back(Group::of(Group::Kind::Ring, std::move(layout.blocks)));
    return whole;
}

}  // namespace karvel
