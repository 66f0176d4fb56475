#include "tilemap/client/decodePicture.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

namespace ospra {

namespace {

constexpr int greatestSide = 1024;  // pixels
constexpr qsizetype endSearch = 64; // bytes at the end among which the end marker must be; some writers pad

bool endsWith(const QByteArray& bytes, const QByteArray& marker)
{
    return bytes.last(std::min(endSearch, bytes.size())).contains(marker);
}

/// The length that a RIFF file says it has, without its first eight bytes.
bool hasWholeRiff(const QByteArray& bytes)
{
    return bytes.size() >= 12 && qFromLittleEndian<quint32>(bytes.constData() + 4) <= bytes.size() - 8;
}

/// The name of the format for the reader; empty where it is none of ours or its end is missing. The decoders
/// themselves fill up what a cut-off picture lacks, and call it read.
QByteArray wholeFormat(const QByteArray& bytes)
{
    if (bytes.startsWith("\xFF\xD8\xFF"))
        return endsWith(bytes, "\xFF\xD9") ? "jpeg" : "";
    if (bytes.startsWith("\x89PNG\r\n\x1A\n"))
        return endsWith(bytes, "IEND") ? "png" : "";
    if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP")
        return hasWholeRiff(bytes) ? "webp" : "";
    return {};
}

} // namespace

QImage decodePicture(const QByteArray& bytes)
{
    const QByteArray format = wholeFormat(bytes);
    if (format.isEmpty())
        return {};
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > greatestSide || size.height() > greatestSide)
        return {};
    QImage picture = reader.read();
    if (picture.size() != size)
        return {};
    picture.convertTo(picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    return picture;
}

} // namespace ospra
