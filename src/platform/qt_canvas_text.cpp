#include "platform/qt_canvas.h"
#include "platform/qt_convert.h"

#include <cmath>

namespace apsis {

Size QtCanvas::measureText(const std::string& text, const TextStyle& style) {
    return faces_.measure(text, style);
}

void QtCanvas::drawText(const std::string& text, Point at, const TextStyle& style) {
    if (!std::isfinite(at.x) || !std::isfinite(at.y))
        return;
    const Face& face = faces_.face(style.family, style.size);
    const QStringList lines = linesOf(text);
    const QSizeF box = face.boxOf(lines);
    // The point is the bottom-left corner of the box; the painter wants its top.
    const double left = static_cast<double>(at.x);
    const double top = static_cast<double>(size_.height) - static_cast<double>(at.y) - box.height();
    if (!reaches(QRectF(left, top, box.width(), box.height()), kTextReach))
        return;
    if (style.background && style.background->a > 0.0)
        painter_.fillRect(QRectF(left, top, box.width(), box.height()),
                          toQColor(*style.background));
    drawLines(lines, left, top, face, style);
}

void QtCanvas::drawTextInRect(const std::string& text, const Rect& r, const TextStyle& style) {
    if (!finite(r))
        return;
    const QRectF area = toQt(r);
    if (!reaches(area, kTextReach))
        return;
    const Face& face = faces_.face(style.family, style.size);
    QStringList lines = linesOf(text);
    // Lines run down from the top of the rectangle; those that would end below it are left out.
    // Half a point of grace lets a rectangle measured for the text, then narrowed to single
    // precision, hold all of it.
    qsizetype fitting = 0;
    while (fitting < lines.size() &&
           static_cast<double>(fitting) * face.lineSpacing + face.lineHeight <= area.height() + 0.5)
        ++fitting;
    lines = lines.mid(0, fitting);
    if (lines.isEmpty())
        return;
    const QSizeF box = face.boxOf(lines);
    if (style.background && style.background->a > 0.0)
        painter_.fillRect(QRectF(area.left(), area.top(), box.width(), box.height()),
                          toQColor(*style.background));
    drawLines(lines, area.left(), area.top(), face, style);
}

void QtCanvas::drawLines(const QStringList& lines, double left, double top, const Face& face,
                         const TextStyle& style) {
    if (!(style.color.a > 0.0))
        return;
    painter_.setFont(face.font);
    painter_.setPen(toQColor(style.color));
    double baseline = top + face.ascent;
    for (const QString& line : lines) {
        if (!line.isEmpty())
            painter_.drawText(QPointF(left, baseline), line);
        baseline += face.lineSpacing;
    }
}

} // namespace apsis
