#pragma once

#include "support/TemporaryDrive.hpp"

namespace karvel::testing {

/// The signs' images on `drive`, handed on from test to test while they are as they ship: to lay hundreds of
/// files out takes longer than most tests, above all on Windows. Nothing is lent to the first test, nor after
/// one that changed them; the installer copies them then.
class LentImages {
  public:
    /// `drive` must outlive this.
    explicit LentImages(const TemporaryDrive& drive);
    ~LentImages();
    LentImages(const LentImages&) = delete;
    LentImages& operator=(const LentImages&) = delete;

  private:
    const TemporaryDrive& drive_;
};

}  // namespace karvel::testing
