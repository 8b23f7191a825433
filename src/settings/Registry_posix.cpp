#if !defined(_WIN32)

#include "base/RuntimeError.hpp"
#include "settings/Registry.hpp"

namespace karvel {

namespace {

class NoRegistry : public Registry {
  public:
    std::optional<Key> open(Root /*root*/, const std::string& /*name*/) override { return std::nullopt; }
    std::optional<Found> query(Key /*key*/, const std::string& /*value*/, std::span<char> /*buffer*/) override
    {
        return std::nullopt;
    }
    void close(Key /*key*/) override {}
};

class NoPrograms : public Programs {
  public:
    bool exists(const std::string& /*path*/) override { return false; }
    void start(const std::string& /*path*/) override { throw RuntimeError(ErrorNumber::FileNotFound); }
};

}  // namespace

std::unique_ptr<Registry> systemRegistry()
{
    return std::make_unique<NoRegistry>();
}

std::unique_ptr<Programs> systemPrograms()
{
    return std::make_unique<NoPrograms>();
}

}  // namespace karvel

#endif
