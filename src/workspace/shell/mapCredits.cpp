#include "workspace/shell/mapCredits.h"

namespace ospra {

QStringList mapCredits(std::span<const MapSource> sources)
{
    QStringList credits;
    for (const MapSource& source : sources) {
        const QString credit = QString::fromStdString(source.attribution);
        if (!credit.isEmpty() && !credits.contains(credit))
            credits.append(credit);
    }
    return credits;
}

} // namespace ospra
