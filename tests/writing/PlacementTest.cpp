// Where signs stand in a picture, and the picture itself.
#include "writing/Placement.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/SignRepertoire.hpp"
#include "support/TemporaryDrive.hpp"
#include "writing/Grouping.hpp"
#include "writing/ManuelDeCodage.hpp"
#include "writing/Shapes.hpp"
#include "writing/Svg.hpp"
#include "writing/UnicodeLayout.hpp"

namespace karvel {
namespace {

Layout layoutOf(std::string_view codage)
{
    std::string fault;
    return readLayout(codage, fault).value();
}

bool within(const Box& inner, double width, double height)
{
    return inner.x > -0.1 && inner.y > -0.1 && inner.x + inner.width < width + 0.1 &&
           inner.y + inner.height < height + 0.1;
}

bool apart(const Box& one, const Box& other)
{
    return one.x + one.width < other.x + 0.1 || other.x + other.width < one.x + 0.1 ||
           one.y + one.height < other.y + 0.1 || other.y + other.height < one.y + 0.1;
}

TEST(Placement, PutsEverySignIntoThePictureAndNoneOnAnother)
{
    Layout layout = layoutOf("<-N5-Y5:N35-L1->-M17*(N35:X1)-?-Z1*Z1*Z1:Z1*Z1-A1*B1:Z2");
    for (const SignInfo& sign : SignRepertoire::standard().signs()) {
        const Layout more = blocksOf(std::string(sign.code) + "o19h11");
        layout.blocks.insert(layout.blocks.end(), more.blocks.begin(), more.blocks.end());
    }
    for (const bool fromRight : {false, true}) {
        for (const bool columns : {false, true}) {
            for (const double length : {0.0, 9000.0}) {
                const Placement placed = place(layout, {fromRight, columns, length});
                std::string codes;
                for (std::size_t i = 0; i < placed.signs.size(); ++i) {
                    codes += placed.signs[i].code;
                    EXPECT_TRUE(within(placed.signs[i].box, placed.width, placed.height))
                        << placed.signs[i].code;
                    for (std::size_t j = i < 40 ? 0 : i - 40; j < i; ++j) {
                        EXPECT_TRUE(apart(placed.signs[i].box, placed.signs[j].box)) << i << ' ' << j;
                    }
                }
                EXPECT_EQ(codesOf(layout), codes);
                EXPECT_EQ(length > 0, (columns ? placed.height : placed.width) <= 9000);
            }
        }
    }
    EXPECT_EQ(0, place({}).width);
}

TEST(Placement, KeepsRelativeSizesInABlock)
{
    for (const char* const block : {"R4:X1*Q3", "I10:D46", "Z1*Z1*Z1:Z1*Z1", "A1*B1:Z2"}) {
        const Placement placed = place(layoutOf(block));
        const auto scaleOf = [](const PlacedSign& sign) {
            return sign.box.height / shapeOf(sign.code)->height;
        };
        for (const PlacedSign& sign : placed.signs) {
            EXPECT_NEAR(scaleOf(placed.signs[0]), scaleOf(sign), 1e-9) << block;
        }
        EXPECT_LE(placed.height, kBlockHeight);
    }
}

TEST(Placement, FollowsTheDirectionOfReading)
{
    const Layout layout = layoutOf("<-M17-X1:I9->");
    const auto centre = [](const Box& box, bool columns) {
        return columns ? box.y + box.height / 2 : box.x + box.width / 2;
    };
    for (const bool columns : {false, true}) {
        for (const bool fromRight : {false, true}) {
            const Placement placed = place(layout, {fromRight, columns, 0});
            ASSERT_EQ(1U, placed.rings.size());
            const bool backwards = fromRight && !columns;
            const double first = centre(placed.signs[0].box, columns);
            const double second = centre(placed.signs[1].box, columns);
            const double bar = centre(placed.rings[0].bar, columns);
            EXPECT_TRUE(backwards ? first > second && second > bar : first < second && second < bar);
            EXPECT_EQ(fromRight, placed.signs[0].mirrored);
            EXPECT_LT(placed.signs[1].box.y, placed.signs[2].box.y);
        }
    }
}

TEST(UnicodeLayout, SaysTheSameAsManuelDeCodage)
{
    const struct {
        const char* unicode;
        const char* codage;
    } cases[] = {
        {"𓄤𓆑𓐰𓂋", "F35-I9:D21"},
        {"𓊵𓐰𓏏𓐱𓊪", "R4:X1*Q3"},
        {"𓇋𓐱𓐷𓈖𓐰𓏏𓐸?𓇋?", "M17*(N35:X1)-?-M17-?"},
        {"𓍹𓐼𓇳𓏠𓐰𓈖𓆣𓐽𓍺", "<-N5-Y5:N35-L1->"},
    };
    for (const auto& [unicode, codage] : cases) {
        EXPECT_TRUE(isArranged(unicode));
        EXPECT_EQ(codage, manuelDeCodage(layoutOf(unicode)));
        EXPECT_EQ(unicode, unicodeWithJoiners(layoutOf(codage)));
    }
    EXPECT_EQ("G43*X1-M17", manuelDeCodage(layoutOf("𓅱𓐳𓏏 M17")));  // in the corner: beside
    EXPECT_FALSE(isArranged("𓄤𓆑 D21-X1"));
}

class Drawing : public ::testing::Test {
  protected:
    [[nodiscard]] Svg draw(std::string_view codage, const PlacementOptions& options = {},
                           SharedOutlines* shared = nullptr)
    {
        SignDrawings drawings(drive_.files(), directory_);
        return svgOf(place(layoutOf(codage), options), 64, "A<B", drawings, shared);
    }

    void installOutlines()
    {
        const FileSystem host{Drives()};
        drive_.write(kOutlinesPath, host.readAll(KARVEL_SOURCE_DIR "/data/tree/scrittura/segni.dat"));
    }

    static bool has(const Svg& svg, std::string_view text)
    {
        return svg.text.find(text) != std::string::npos;
    }

    testing::TemporaryDrive drive_;
    std::string directory_ = "c:\\PROGRAMMI\\Karvel\\gr";
};

TEST_F(Drawing, TakesOutlinesOrImagesOrADashedBox)
{
    const Svg nothing = draw("X1-?");
    EXPECT_TRUE(has(nothing, "stroke-dasharray") && has(nothing, "<title>A&lt;B</title>"));
    drive_.write("C:\\programmi\\Karvel\\GR\\o19.gif", "GIF89a?");
    const Svg image = draw("X1-X1");
    EXPECT_TRUE(has(image, "href=\"data:image/gif;base64,R0lGODlhPw==\"")) << image.text;
    EXPECT_EQ(std::vector<std::string>{"o19"}, image.asImages);
    EXPECT_TRUE(has(draw("X1", {true, false, 0}), "transform=\"scale(-1 1)\""));
    installOutlines();
    const Svg outline = draw("X1");
    EXPECT_TRUE(has(outline, "<path d=\"M") && !has(outline, "<image"));
    EXPECT_TRUE(outline.asImages.empty());
    SharedOutlines shared;
    for (const bool rightToLeft : {false, true}) {
        const Svg used = draw("X1-X1", {.rightToLeft = rightToLeft}, &shared);
        EXPECT_TRUE(has(used, "href=\"#segno-o19\"/>") && !has(used, "<path"));
        EXPECT_EQ(has(used, "<use transform=\"scale(-1 1)\" x=\"-"), rightToLeft);
    }
    EXPECT_EQ(shared.symbols.rfind("<symbol id=\"segno-o19\""), 0);  // once
    directory_ = "C:\\miei";
    drive_.write("C:\\miei\\o19.gif", "GIF89a?");
    EXPECT_FALSE(has(draw("X1"), "<image"));  // it is the installed one
    drive_.write("C:\\miei\\o19.gif", "GIF89a!");
    EXPECT_TRUE(has(draw("X1"), "base64,R0lGODlhIQ=="));
}

TEST_F(Drawing, HasAnOutlineOfTheRightSizeForEverySign)
{
    installOutlines();
    const Outlines outlines = Outlines::installed(drive_.files());
    for (const SignInfo& sign : SignRepertoire::standard().signs()) {
        const auto steps = outlines.of(sign.code);
        ASSERT_TRUE(steps) << sign.code;
        int width = 0;
        int height = 0;
        for (const OutlineStep& step : *steps) {
            width = std::max(width, step.x);
            height = std::max(height, step.y);
        }
        EXPECT_NEAR(shapeOf(sign.code)->width, width, 8) << sign.code;
        EXPECT_NEAR(shapeOf(sign.code)->height, height, 8) << sign.code;
    }
    EXPECT_FALSE(outlines.of("p47"));
}

TEST_F(Drawing, TakesNothingFromADamagedFile)
{
    installOutlines();
    const std::string file = drive_.files().readAll(kOutlinesPath);
    for (const std::size_t length : {0UL, 7UL, 9UL, 500UL, 5196UL, 5300UL}) {
        EXPECT_FALSE(Outlines(file.substr(0, length)).of("a01")) << length;
    }
    for (const char byte : {'\0', 'M', 'Q', '\x7F', '\xFF'}) {
        std::string damaged = file;
        std::fill(damaged.begin() + 5200, damaged.end(), byte);
        EXPECT_FALSE(Outlines(damaged).of("b07")) << static_cast<int>(byte);
        std::fill(damaged.begin() + 10, damaged.end(), byte);
        EXPECT_FALSE(Outlines(damaged).of("b07")) << static_cast<int>(byte);
    }
}

}  // namespace
}  // namespace karvel
