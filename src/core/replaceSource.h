#pragma once

#include <QObject>

namespace ospra {

/// Puts another source of signals, or none, in the place of the one that an object follows, and ends what it heard of
/// the old one.
/// @param kept a pointer or a `QPointer`
/// @return false if the source stays the same and nothing is left to do
template <typename Kept, typename Source>
bool replaceSource(Kept& kept, Source* source, const QObject* follower)
{
    if (kept == source)
        return false;
    if (kept)
        kept->disconnect(follower);
    kept = source;
    return true;
}

} // namespace ospra
