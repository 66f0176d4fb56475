#include "workspace/theme/renderIcon.h"

#include <gtest/gtest.h>

namespace ospra {

namespace {

TEST(RenderIcon, drawsInTheColourAsked)
{
    const QImage icon = renderIcon("warning", 48, QColor(200, 100, 40));
    ASSERT_EQ(icon.size(), QSize(48, 48));
    int painted = 0;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            const QColor pixel = icon.pixelColor(x, y);
            if (pixel.alpha() < 255)
                continue;
            ++painted;
            EXPECT_EQ(pixel.rgb(), qRgb(200, 100, 40));
        }
    }
    EXPECT_GT(painted, 100);
    EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0);
}

// Strokes that cross must not show through each other.
TEST(RenderIcon, thinsTheIconAsAWhole)
{
    const QImage icon = renderIcon("calendar", 96, QColor(0, 0, 0, 97));
    int most = 0;
    for (int y = 0; y < icon.height(); ++y)
        for (int x = 0; x < icon.width(); ++x)
            most = std::max(most, icon.pixelColor(x, y).alpha());
    EXPECT_EQ(most, 97);
}

TEST(RenderIcon, keepsTheProgramsIconInItsColours)
{
    EXPECT_EQ(renderIcon("ospra", 32, Qt::red), renderIcon("ospra", 32, Qt::green));
    EXPECT_NE(renderIcon("check", 32, Qt::red), renderIcon("check", 32, Qt::green));
}

TEST(RenderIcon, givesAnEmptyPictureForAnUnknownName)
{
    for (const char* name : {"", "nothing", "../icons/check"}) {
        SCOPED_TRACE(name);
        const QImage icon = renderIcon(name, 8, Qt::red);
        QImage empty(8, 8, QImage::Format_ARGB32_Premultiplied);
        empty.fill(Qt::transparent);
        EXPECT_EQ(icon, empty);
    }
}

} // namespace

} // namespace ospra
