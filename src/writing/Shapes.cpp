#include "writing/Shapes.hpp"

#include <algorithm>
#include <charconv>
#include <unordered_map>

#include "base/SignCode.hpp"

namespace karvel {

extern const std::string_view kSignShapes;  // made at build time from the sources of the data

namespace {

std::unordered_map<std::string_view, SignShape> readShapes(std::string_view table)
{
    std::unordered_map<std::string_view, SignShape> shapes;
    while (!table.empty()) {
        const std::string_view line = table.substr(0, table.find('\n'));
        table.remove_prefix(std::min(line.size() + 1, table.size()));
        const std::string_view code = line.substr(0, kCodeLength);
        if (!isSignCode(code) || line.size() <= kCodeLength) {
            continue;  // the header
        }
        SignShape shape;
        const char* const end = line.data() + line.size();
        const auto width = std::from_chars(line.data() + kCodeLength + 1, end, shape.width);
        std::from_chars(std::min(width.ptr + 1, end), end, shape.height);
        shapes.emplace(code, shape);
    }
    return shapes;
}

}  // namespace

std::optional<SignShape> shapeOf(std::string_view code)
{
    static const auto shapes = readShapes(kSignShapes);
    const auto found = shapes.find(code);
    return found == shapes.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace karvel
