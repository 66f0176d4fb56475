#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QList>
#include <QString>

class QPainter;
class QPointF;

namespace ospra {

/// A line of text whose glyphs are found once, to be painted wherever and as often as needed.
class LaidOutText {
public:
    /// Lays the text out, unless it is the one that was laid out last.
    /// @param widest where the text is cut, with an ellipsis, if it is wider
    /// @return whether there is anything new to paint
    bool set(const QString& text, const QFont& font, qreal widest);

    [[nodiscard]] bool isEmpty() const { return m_text.isEmpty(); }
    /// In logical pixels, not rounded.
    [[nodiscard]] qreal width() const { return m_width; }

    /// Paints it in the painter's pen.
    /// @param origin of the baseline
    void paint(QPainter& painter, QPointF origin) const;

private:
    QString m_text;
    QFont m_font;
    qreal m_widest = 0.0;
    qreal m_width = 0.0;
    qreal m_ascent = 0.0; // from which the glyphs' places count
    QList<QGlyphRun> m_glyphs;
};

} // namespace ospra
