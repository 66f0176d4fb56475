#include "workspace/LaidOutText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPointF>
#include <QTextLayout>

namespace ospra {

bool LaidOutText::set(const QString& text, const QFont& font, qreal widest)
{
    if (text == m_text && widest == m_widest && font == m_font)
        return false;
    m_text = text;
    m_font = font;
    m_widest = widest;
    const auto layOut = [&](const QString& shown) {
        QTextLayout layout(shown, font);
        layout.beginLayout();
        QTextLine line = layout.createLine();
        if (line.isValid())
            line.setNumColumns(static_cast<int>(shown.size()));
        layout.endLayout();
        m_width = line.isValid() ? line.naturalTextWidth() : 0.0;
        m_ascent = line.isValid() ? line.ascent() : 0.0;
        m_glyphs = layout.glyphRuns();
    };
    layOut(text);
    if (m_width > widest) {
        layOut(QFontMetricsF(font).elidedText(text, Qt::ElideRight, widest));
        m_width = widest;
    }
    return true;
}

void LaidOutText::paint(QPainter& painter, QPointF origin) const
{
    for (const QGlyphRun& run : m_glyphs)
        painter.drawGlyphRun(origin - QPointF(0.0, m_ascent), run);
}

} // namespace ospra
