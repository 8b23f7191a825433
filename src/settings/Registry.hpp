#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace karvel {

/// The three calls to the system's registry that the program makes; a test answers them from a table.
class Registry {
  public:
    enum class Root { LocalMachine };
    enum class Type : std::uint32_t { String = 1, Number = 4 };  ///< others exist

    using Key = std::uintptr_t;

    /// What a query tells: the type, and how many bytes the value has, a terminating NUL included.
    struct Found {
        std::uint32_t type = 0;
        std::size_t length = 0;
    };

    virtual ~Registry() = default;

    /// Opens the key `name`, UTF-8, with full access rights; nothing when it is missing or not allowed.
    [[nodiscard]] virtual std::optional<Key> open(Root root, const std::string& name) = 0;

    /// Reads the value into `buffer`; nothing when it is missing or does not fit.
    [[nodiscard]] virtual std::optional<Found> query(Key key, const std::string& value,
                                                     std::span<char> buffer) = 0;

    virtual void close(Key key) = 0;
};

/// The programs of the host.
class Programs {
  public:
    virtual ~Programs() = default;

    /// True when a file is at the host's path `path`, UTF-8.
    [[nodiscard]] virtual bool exists(const std::string& path) = 0;

    /// Starts the program at `path` as a process of its own, in a normal window that gets the focus.
    /// Throws RuntimeError 53 when it cannot be started.
    virtual void start(const std::string& path) = 0;
};

/// Those of this computer. Without a registry every key is missing.
[[nodiscard]] std::unique_ptr<Registry> systemRegistry();
[[nodiscard]] std::unique_ptr<Programs> systemPrograms();

}  // namespace karvel
