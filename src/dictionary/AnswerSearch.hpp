#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/RuntimeError.hpp"
#include "dictionary/Answers.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// How far a file has been read, in bytes; `total` is 0 while it is not known.
struct ReadingProgress {
    std::uint64_t done = 0;
    std::uint64_t total = 0;

    [[nodiscard]] int percent() const
    {
        return total == 0 ? 0 : static_cast<int>(done >= total ? 100 : done * 100 / total);
    }
};

/// Opens `path`; `progress` follows the reading and must outlive the source.
[[nodiscard]] std::unique_ptr<ByteSource> openFollowed(const FileSystem& files, std::string_view path,
                                                       ReadingProgress& progress);

/// A search for answers that goes on piece by piece, so that a window works while a long file is read.
class AnswerSearch {
  public:
    AnswerSearch() = default;
    virtual ~AnswerSearch() = default;
    AnswerSearch(const AnswerSearch&) = delete;
    AnswerSearch& operator=(const AnswerSearch&) = delete;

    /// Reads on until the end, or until `pause`, asked after each record, is true. False when the reading has
    /// ended. A fault of the file ends it too: the answers found before stay.
    bool read(const std::function<bool()>& pause);

    /// The same to the end.
    void readAll()
    {
        while (read([] { return false; })) {
        }
    }

    /// Those found so far, best first.
    [[nodiscard]] virtual Answers answers() const = 0;

    /// How many they are.
    [[nodiscard]] virtual std::size_t found() const = 0;

    /// Signs that the answers leave over, as codes; empty until the reading has ended.
    [[nodiscard]] virtual std::string rest() const { return {}; }

    [[nodiscard]] virtual int percent() const = 0;

    /// The fault at which the reading ended.
    [[nodiscard]] const std::optional<RuntimeError>& failure() const { return failure_; }

  protected:
    [[nodiscard]] bool ended() const { return ended_; }

  private:
    /// Reads a record; false when there is none left. Throws RuntimeError.
    virtual bool step() = 0;

    bool ended_ = false;
    std::optional<RuntimeError> failure_;
};

}  // namespace karvel
