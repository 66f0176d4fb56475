#include "tilemap/item/attributionText.h"

#include <QStringList>

namespace ospra {
namespace {

QString styled(const MapSource& source)
{
    const QString text = QString::fromStdString(source.attribution).toHtmlEscaped();
    const QString link = QString::fromStdString(source.attributionLink).toHtmlEscaped();
    return link.isEmpty() || text.isEmpty() ? text : QStringLiteral("<a href=\"%1\">%2</a>").arg(link, text);
}

} // namespace

QString attributionText(std::span<const MapSource> sources)
{
    QStringList texts;
    for (const MapSource& source : sources) {
        const QString text = styled(source);
        if (!text.isEmpty() && !texts.contains(text))
            texts.append(text);
    }
    return texts.join(QStringLiteral(" · "));
}

} // namespace ospra
