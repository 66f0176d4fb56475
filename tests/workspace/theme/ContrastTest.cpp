#include "workspace/theme/desktop/Contrast.h"

#include <gtest/gtest.h>

#include <array>

namespace ospra {

namespace {

// Published examples of WCAG's formula, and one mix that is easy to work out by hand.
TEST(Contrast, isThatOfTheGuidelines)
{
    EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21.0, 0.001);
    EXPECT_NEAR(contrastRatio(Qt::white, Qt::black), 21.0, 0.001);
    EXPECT_NEAR(contrastRatio(QColor("#777777"), Qt::white), 4.478, 0.001);
    EXPECT_NEAR(contrastRatio(QColor("#FF0000"), Qt::white), 3.998, 0.001);
    EXPECT_EQ(blended(QColor(255, 255, 255, 51), QColor(100, 0, 50)), QColor(131, 51, 91));
    EXPECT_NEAR(contrastRatio(QColor(255, 255, 255, 0), QColor("#336699")), 1.0, 0.001);
}

// Whatever accent a desktop has, text of it holds on every ground and on its own tint, and white holds on its fill.
TEST(Contrast, everyAccentBecomesReadable)
{
    constexpr double tint = 0.2;
    const std::array darkGrounds{QColor("#15171B"), QColor("#1E2126"), QColor("#272B31")};
    const std::array lightGrounds{QColor("#FFFFFF"), QColor("#F2F3F6")};
    const auto expectReadable = [](const QColor& accent, const QColor& ground) {
        QColor tinted = accent;
        tinted.setAlphaF(static_cast<float>(tint));
        EXPECT_GE(contrastRatio(accent, ground), 4.5);
        EXPECT_GE(contrastRatio(accent, blended(tinted, ground)), 4.5);
    };
    for (int hue = 0; hue < 360; hue += 15) {
        for (const int value : {0, 60, 130, 200, 255}) {
            const QColor accent = QColor::fromHsv(hue, 200, value);
            SCOPED_TRACE(accent.name().toStdString());
            for (const QColor& ground : darkGrounds)
                expectReadable(readableAccent(accent, darkGrounds, tint), ground);
            for (const QColor& ground : lightGrounds)
                expectReadable(readableAccent(accent, lightGrounds, tint), ground);
            EXPECT_GE(contrastRatio(Qt::white, accentUnderWhite(accent)), 4.5);
        }
    }
}

TEST(Contrast, leavesAReadableAccentAlone)
{
    const std::array grounds{QColor("#FFFFFF")};
    EXPECT_EQ(readableAccent(QColor("#1A5CC4"), grounds, 0.12).name(), "#1a5cc4");
    EXPECT_EQ(accentUnderWhite(QColor("#1F66D6")).name(), "#1f66d6");
}

} // namespace

} // namespace ospra
