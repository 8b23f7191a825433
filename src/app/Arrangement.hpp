#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "writing/Layout.hpp"

namespace karvel {

/// How the user has grouped the signs of the phrase: by pasting it with its groups. The phrase itself is
/// always the plain row of its signs. The grouping is forgotten with the first change of the phrase.
class Arrangement {
  public:
    /// `layout` holds the signs of the phrase as it is now.
    void set(Layout layout)
    {
        codes_ = codesOf(layout);
        layout_ = std::move(layout);
    }

    /// `phrase` is what the phrase is now.
    void follow(std::string_view phrase)
    {
        if (phrase != codes_) {
            layout_.reset();
        }
    }

    /// The user's layout of `codes`; null when there is none.
    [[nodiscard]] const Layout* of(std::string_view codes) const
    {
        return layout_ && codes == codes_ ? &*layout_ : nullptr;
    }

  private:
    std::string codes_;
    std::optional<Layout> layout_;
};

}  // namespace karvel
