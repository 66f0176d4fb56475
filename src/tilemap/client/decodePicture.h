#pragma once

#include <QByteArray>
#include <QImage>

namespace ospra {

/// Reads a tile's picture: a whole JPEG, PNG or WebP of at most 1024 pixels a side, known by its content and not by
/// what it is said to be.
/// @return opaque pictures as RGB32 and others as premultiplied ARGB32, which textures take as they are; null where
///     the bytes are anything else, or cut off
[[nodiscard]] QImage decodePicture(const QByteArray& bytes);

} // namespace ospra
