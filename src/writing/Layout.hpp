#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace karvel {

/// A piece of a layout: a sign, or pieces that stand together.
struct Group {
    enum class Kind {
        Sign,    ///< `code` names it
        Above,   ///< each part above the next
        Beside,  ///< each part before the next
        Ring,    ///< a cartouche around the blocks that are its parts
    };

    Kind kind = Kind::Sign;
    std::string code;  ///< the sign code, or what stands for a sign that the repertoire lacks
    std::vector<Group> parts;

    [[nodiscard]] static Group sign(std::string_view code);
    /// A group of `parts`, those of the same kind dissolved in it; the part itself where there is but one and
    /// `kind` is no ring.
    [[nodiscard]] static Group of(Kind kind, std::vector<Group> parts);

    bool operator==(const Group&) const = default;
};

/// How a phrase is written: its blocks in the order in which they are read.
struct Layout {
    std::vector<Group> blocks;

    bool operator==(const Layout&) const = default;
};

/// The codes of the layout's signs in the order in which they are read, joined.
[[nodiscard]] std::string codesOf(const Layout& layout);

/// The layout with one ring around all its blocks; what is empty or holds a ring stays as it is.
[[nodiscard]] Layout ringed(Layout layout);

}  // namespace karvel
