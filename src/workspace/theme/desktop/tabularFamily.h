#pragma once

#include <QByteArray>
#include <QString>

namespace ospra {

/// The name under which text of this family has digits that are all equally wide.
///
/// Many typefaces have such digits by default, and then this is the family itself. Some have them as an OpenType
/// feature
/// (`tnum`) that this version of Qt cannot be asked for; of these, a copy in which the feature is always on is made
/// known to this process under a name of its own, once for each family. Where neither is possible (no such feature, a
/// variable font) it is the family itself too.
/// @param family as the desktop names it; the main thread only
[[nodiscard]] QString tabularFamily(const QString& family);

/// The table `GSUB` of a font with its feature for digits of equal width renamed to one that every text shaper applies
/// unasked; empty if the font has no such feature, or if the table is damaged.
/// Layout: OpenType, chapters "GSUB" and "Common table formats".
[[nodiscard]] QByteArray withTabularDigits(QByteArray substitutions);

} // namespace ospra
