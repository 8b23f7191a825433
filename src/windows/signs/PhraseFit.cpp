#include "windows/signs/PhraseFit.hpp"

#include <algorithm>
#include <cmath>

#include "base/SignCode.hpp"

namespace karvel {

std::string signsThatFit(const std::string& codes, Shown part, qreal width, qreal blockHeight,
                         const PhraseLook& look, Desktop& desktop)
{
    std::string shown = codes;
    for (;;) {
        const qreal wanted = phraseSize(shown, blockHeight, look, desktop).width();
        const std::size_t signs = shown.size() / kCodeLength;
        if (wanted <= width || signs <= 1) {
            return shown;
        }
        const auto share = static_cast<std::size_t>(
            std::max(1.0, std::floor(static_cast<qreal>(signs) * std::max(0.0, width) / wanted)));
        const std::size_t length = std::min(share, signs - 1) * kCodeLength;
        shown = part == Shown::Beginning ? shown.substr(0, length) : shown.substr(shown.size() - length);
    }
}

}  // namespace karvel
