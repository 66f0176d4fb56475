#pragma once

#include "core/OspraModel.h"

namespace ospra {

/// Puts another model, or none, in the place of the one that an object shows, and ends what it heard of the old one.
/// @return false if the model stays the same and nothing is left to do
inline bool replaceSource(OspraModel*& kept, OspraModel* source, QObject* follower)
{
    if (kept == source)
        return false;
    if (kept)
        kept->disconnect(follower);
    kept = source;
    return true;
}

} // namespace ospra
