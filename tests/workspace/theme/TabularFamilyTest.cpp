#include "workspace/theme/desktop/tabularFamily.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStringList>

#include <gtest/gtest.h>

namespace ospra {

namespace {

qreal widthOf(const QString& text, const QString& family, QFont::Weight weight)
{
    QFont font(family);
    font.setPixelSize(100);
    font.setWeight(weight);
    return QFontMetricsF(font).horizontalAdvance(text);
}

// Two features of a table as fonts have it: header, then count, tags and offsets.
QByteArray substitutions(const QByteArray& secondTag)
{
    QByteArray table = QByteArray::fromHex("00010000000a000a001a");
    table += QByteArray::fromHex("0002") + "kern" + QByteArray::fromHex("000e") + secondTag +
             QByteArray::fromHex("0012") + QByteArray(12, '\0');
    return table;
}

TEST(TabularFamily, givesDigitsOfOneWidthAndLeavesTheRest)
{
    for (const QString& family : QFontDatabase::families()) {
        if (!QFontDatabase::isScalable(family) || QFontDatabase::isPrivateFamily(family))
            continue;
        SCOPED_TRACE(family.toStdString());
        const QString tabular = tabularFamily(family);
        EXPECT_EQ(tabularFamily(family), tabular);
        if (tabular == family)
            continue;
        for (const QFont::Weight weight : {QFont::Normal, QFont::Medium, QFont::DemiBold}) {
            const qreal width = widthOf("8888888888", tabular, weight);
            for (const char* digits : {"1111111111", "7777777777", "0123456789"})
                EXPECT_NEAR(widthOf(digits, tabular, weight), width, 1.0) << digits;
            EXPECT_NEAR(widthOf("Total Distance km/h", tabular, weight), widthOf("Total Distance km/h", family, weight),
                        1.0);
        }
    }
}

// The typeface of the pictures is one of those whose digits differ until they are asked for.
TEST(TabularFamily, helpsATypefaceThatHasTheFeature)
{
    if (!QFontDatabase::hasFamily("Inter"))
        GTEST_SKIP() << "needs the font Inter";
    EXPECT_GT(widthOf("8888", "Inter", QFont::Normal), widthOf("1111", "Inter", QFont::Normal) + 20.0);
    EXPECT_EQ(tabularFamily("Inter"), "Inter Tabular");
}

TEST(TabularFamily, findsTheFeature)
{
    EXPECT_EQ(withTabularDigits(substitutions("tnum")), substitutions("rclt"));
    EXPECT_TRUE(withTabularDigits(substitutions("onum")).isEmpty());
}

TEST(TabularFamily, takesNoDamagedTable)
{
    const QByteArray whole = substitutions("tnum");
    for (qsizetype size = 0; size < 24; ++size) // up to the end of the last record
        EXPECT_TRUE(withTabularDigits(whole.first(size)).isEmpty()) << size;
    QByteArray beyond = whole;
    beyond.replace(6, 2, QByteArray::fromHex("ffff"));
    EXPECT_TRUE(withTabularDigits(beyond).isEmpty());
    QByteArray many = whole;
    many.replace(10, 2, QByteArray::fromHex("ffff"));
    EXPECT_TRUE(withTabularDigits(many).isEmpty());
}

} // namespace

} // namespace ospra
