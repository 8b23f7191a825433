#include "settings/DirectoryListing.hpp"

#include "base/RuntimeError.hpp"

namespace karvel {

std::vector<std::string> directoryChain(const std::string& path)
{
    std::vector<std::string> chain;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = path.find('\\', at);
        // The backslash belongs to the name of a root alone.
        const bool root = chain.empty() && end != std::string::npos;
        if (end != at) {
            chain.push_back(path.substr(0, root ? end + 1 : end));
        }
        at = end == std::string::npos ? path.size() : end + 1;
    }
    return chain;
}

std::string pathBelow(const std::string& directory, const std::string& name)
{
    return directory + (directory.ends_with('\\') ? "" : "\\") + name;
}

DirectoryListing listDirectory(const Drives& drives, const std::string& path)
{
    const std::vector<std::string> chain = directoryChain(path);
    for (auto directory = chain.rbegin(); directory != chain.rend(); ++directory) {
        try {
            return {.path = *directory,
                    .subdirectories = drives.subdirectories(*directory),
                    .readable = true,
                    .asWanted = directory == chain.rbegin()};
        } catch (const RuntimeError&) {
            continue;  // the next one above
        }
    }
    return {.path = path, .subdirectories = {}};
}

}  // namespace karvel
