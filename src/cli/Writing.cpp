#include "cli/Command.hpp"
#include "cli/Output.hpp"
#include "writing/Grouping.hpp"
#include "writing/ManuelDeCodage.hpp"

namespace karvel::cli {

Exit printBlocks(const Arguments& given)
{
    Arguments arguments = given;
    const bool gardiner = takeSwitch(arguments, "--gardiner");
    const bool ring = takeSwitch(arguments, "--cartiglio");
    expectWords(arguments, 1, 1);
    Layout layout = blocksOf(codesFrom(arguments[0], gardiner));
    if (ring) {
        layout = ringed(std::move(layout));
    }
    Output output;
    output.line(manuelDeCodage(layout));
    return Exit::Done;
}

}  // namespace karvel::cli
