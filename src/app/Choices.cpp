#include "app/Choices.hpp"

#include <algorithm>

namespace karvel {

namespace {

constexpr std::size_t kLargest = 64 * 1024;  // bytes; a larger file is not the program's own

}  // namespace

void Choices::load()
{
    if (loaded_) {
        return;
    }
    loaded_ = true;
    std::string text;
    try {
        text = files_.readAll(kChoicesPath, kLargest);
    } catch (const RuntimeError&) {
        return;
    }
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        std::string_view line(text.data() + at, end - at);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        if (const std::size_t equals = line.find('='); equals != std::string_view::npos) {
            texts_.insert_or_assign(std::string(line.substr(0, equals)), line.substr(equals + 1));
        }
        at = end + 1;
    }
}

std::string Choices::get(std::string_view name)
{
    load();
    const auto found = texts_.find(name);
    return found == texts_.end() ? std::string() : found->second;
}

void Choices::set(const std::string& name, const std::string& text)
{
    if (get(name) == text) {
        return;
    }
    texts_[name] = text;
    std::string lines;
    for (const auto& [known, value] : texts_) {
        lines += known + "=" + value + "\r\n";
    }
    try {
        files_.replace(kChoicesPath, lines, Durability::Process);
    } catch (const RuntimeError&) {
        // The text stays in memory.
    }
}

}  // namespace karvel
