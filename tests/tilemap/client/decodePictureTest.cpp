#include "tilemap/client/decodePicture.h"

#include "tests/support/AerialPicture.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace ospra {
namespace {

QByteArray encoded(const QImage& picture, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format);
    return bytes;
}

QImage plain(int width, int height)
{
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    return picture;
}

TEST(DecodePicture, takesTilesOfAnyUsualSizeOnly)
{
    EXPECT_EQ(decodePicture(encoded(plain(1024, 1024), "JPEG")).size(), QSize(1024, 1024));
    EXPECT_TRUE(decodePicture(encoded(plain(1025, 4), "JPEG")).isNull());
    EXPECT_TRUE(decodePicture(encoded(plain(4, 1025), "PNG")).isNull());
}

TEST(DecodePicture, takesNothingThatIsCutOff)
{
    const QImage ground = paintAerial({12, 2100, 1400}, {}, 64);
    for (const char* format : {"JPEG", "PNG"}) {
        const QByteArray whole = encoded(ground, format);
        EXPECT_FALSE(decodePicture(whole).isNull());
        EXPECT_FALSE(decodePicture(whole + QByteArray(8, '\0')).isNull()); // some writers pad
        for (qsizetype size = 0; size < whole.size() - 8; size += 7)
            EXPECT_TRUE(decodePicture(whole.first(size)).isNull()) << format << size;
    }
}

TEST(DecodePicture, takesNoOtherFormat)
{
    for (const QByteArray& bytes :
         {encoded(plain(8, 8), "BMP"), QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"),
          QByteArray("GIF89a\x01"), QByteArray("\x89PNG\r\n\x1A\nrubbish IEND"),
          QByteArray("\xFF\xD8\xFF rubbish \xFF\xD9"), QByteArray("RIFF\x10\0\0\0WEBPrubbishrubbish", 26)})
        EXPECT_TRUE(decodePicture(bytes).isNull()) << bytes.left(8).toHex().toStdString();
}

} // namespace
} // namespace ospra
