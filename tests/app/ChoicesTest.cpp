#include "app/Choices.hpp"

#include <gtest/gtest.h>

#include "support/TemporaryDrive.hpp"

namespace karvel {
namespace {

TEST(Choices, StayFromOneStartToTheNext)
{
    const testing::TemporaryDrive drive;
    drive.writeSettings();
    Choices first(drive.files());
    EXPECT_EQ(first.get("finestra.Voci"), "");
    first.set("finestra.Voci", "1 2 300 400");
    first.set("copia.legami", "1");
    Choices second(drive.files());
    EXPECT_EQ(second.get("finestra.Voci"), "1 2 300 400");
    second.set("copia.legami", "");
    EXPECT_EQ(Choices(drive.files()).get("copia.legami"), "");
    EXPECT_EQ(Choices(drive.files()).get("finestra.Voci"), "1 2 300 400");
}

TEST(Choices, LiveWithAFileThatIsNoneOfTheirs)
{
    const testing::TemporaryDrive drive;
    const std::string damaged[] = {std::string("\0\xFF=\n\n=\nnulla", 11) + "\na=b=c\r\nfine",
                                   std::string(70'000, 'a')};
    const std::string kept[] = {"b=c", ""};
    for (std::size_t i = 0; i < 2; ++i) {
        drive.write(kChoicesPath, damaged[i]);
        EXPECT_EQ(Choices(drive.files()).get("a"), kept[i]);
    }
    // A directory in the place of the file: nothing can be read or written.
    drive.files().remove(kChoicesPath);
    drive.write(std::string(kChoicesPath) + "\\x", "");
    Choices choices(drive.files());
    choices.set("a", "1");
    EXPECT_EQ(choices.get("a"), "1");
}

}  // namespace
}  // namespace karvel
