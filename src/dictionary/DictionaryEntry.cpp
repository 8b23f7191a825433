#include "dictionary/DictionaryEntry.hpp"

#include "text/CodePage.hpp"

namespace karvel {

DictionaryEntry RawRecord::decoded() const
{
    return {decode(signs), decode(translation), decode(transliteration), decode(note)};
}

}  // namespace karvel
