#include "compose/SignImages.hpp"

#include "text/CodePage.hpp"

namespace karvel {

void SignImages::restore(const FileSystem& files)
{
    const auto source = files.open(kGlyphDirectoryPath);
    FieldReader fields(*source);
    directory_ = decode(fields.field());
}

}  // namespace karvel
