#if defined(_WIN32)

#include "base/WindowsHeader.hpp"
// After the system's header, which it needs:
#include <shellapi.h>

#include <filesystem>
#include <system_error>

#include "base/RuntimeError.hpp"
#include "files/Drives.hpp"
#include "settings/Registry.hpp"
#include "text/CodePage.hpp"

namespace karvel {

namespace {

class WindowsRegistry : public Registry {
  public:
    std::optional<Key> open(Root /*root*/, const std::string& name) override
    {
        HKEY key = nullptr;
        const LONG result =
            ::RegOpenKeyExA(HKEY_LOCAL_MACHINE, encode(name).c_str(), 0, KEY_ALL_ACCESS, &key);
        return result == ERROR_SUCCESS ? std::optional(reinterpret_cast<Key>(key)) : std::nullopt;
    }

    std::optional<Found> query(Key key, const std::string& value, std::span<char> buffer) override
    {
        DWORD type = 0;
        auto length = static_cast<DWORD>(buffer.size());
        const LONG result = ::RegQueryValueExA(reinterpret_cast<HKEY>(key), encode(value).c_str(), nullptr,
                                               &type, reinterpret_cast<BYTE*>(buffer.data()), &length);
        return result == ERROR_SUCCESS ? std::optional(Found{type, length}) : std::nullopt;
    }

    void close(Key key) override { ::RegCloseKey(reinterpret_cast<HKEY>(key)); }
};

/// A path as the registry may hold it: ended by a NUL, with names of the environment between percent signs.
std::wstring expanded(const std::string& path)
{
    const std::wstring written = hostPath(path.substr(0, path.find('\0'))).wstring();
    constexpr std::size_t kLongestPath = 32768;  // characters, as the system limits it
    std::wstring whole(kLongestPath, L'\0');
    const DWORD length =
        ::ExpandEnvironmentStringsW(written.c_str(), whole.data(), static_cast<DWORD>(whole.size()));
    if (length == 0 || length > whole.size()) {
        return written;
    }
    whole.resize(length - 1);
    return whole;
}

class WindowsPrograms : public Programs {
  public:
    bool exists(const std::string& path) override
    {
        std::error_code error;
        return std::filesystem::is_regular_file(expanded(path), error);
    }

    void start(const std::string& path) override
    {
        const std::wstring program = expanded(path);
        SHELLEXECUTEINFOW order{};
        order.cbSize = sizeof order;
        order.fMask = SEE_MASK_FLAG_NO_UI;  // the failure is reported in Italian, by the caller
        order.lpFile = program.c_str();
        order.nShow = SW_SHOWNORMAL;
        if (::ShellExecuteExW(&order) == 0) {
            throw RuntimeError(ErrorNumber::FileNotFound);
        }
    }
};

}  // namespace

std::unique_ptr<Registry> systemRegistry()
{
    return std::make_unique<WindowsRegistry>();
}

std::unique_ptr<Programs> systemPrograms()
{
    return std::make_unique<WindowsPrograms>();
}

}  // namespace karvel

#endif
