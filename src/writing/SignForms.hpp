#pragma once

#include <string_view>

namespace karvel {

/// The classes of the sign list by form, as far as grouping asks for them.
enum class SignForm {
    Tall,    ///< fills the height of a block: reed, god's flag, man, bird
    Medium,  ///< leaves room for one flat sign: legs, swallow, boat, oxhead
    Flat,    ///< low and broad: water, mouth, arm
    Small,   ///< low and narrow: loaf, stool, pot, sun
};

/// What a sign depicts, where scribes treat it otherwise than its form says.
enum class SignRole { None, Bird, Person, Animal, Stroke, Plural, Numeral };

struct SignTraits {
    std::string_view gardiner;  ///< empty for what is no sign
    SignForm form = SignForm::Tall;
    SignRole role = SignRole::None;
    int width = 1000;  ///< thousandths of a block's side, as hand-set type has it
    int height = 1000;
};

/// The traits of the sign with this code. What is no sign fills a block.
[[nodiscard]] const SignTraits& traitsOf(std::string_view code);

}  // namespace karvel
