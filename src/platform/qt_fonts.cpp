#include "platform/qt_fonts.h"

#include <algorithm>
#include <cmath>
#include <deque>

#include <QFontInfo>
#include <QPaintDevice>

namespace apsis {
namespace {

// Sizes outside this range are no text the game shows; they are held to it so that a broken
// size can never ask FreeType for a glyph the size of a house.
constexpr float kSmallestSize = 1.0f;
constexpr float kLargestSize = 512.0f;
// Widths kept per face before the oldest are let go: the changing read-outs (elapsed time, speed)
// bring a new text every frame.
constexpr std::size_t kKeptWidths = 512;

// The desktop's faces for the game's families. Courier, Times and Helvetica are found through
// fontconfig, which answers them with the metric twins of the URW base fonts; the URW names come
// second for a system whose fontconfig knows no such alias. The engraved capitals of the titles
// have no free twin: Quattrocento's wide classical capitals, with small capitals for the lower
// case, stand in for them.
QFont baseFont(FontFamily family) {
    QFont font;
    switch (family) {
    case FontFamily::Courier:
        font.setFamilies({"Courier", "Nimbus Mono PS"});
        font.setStyleHint(QFont::TypeWriter);
        font.setFixedPitch(true);
        break;
    case FontFamily::Times:
        font.setFamilies({"Times", "Nimbus Roman"});
        font.setStyleHint(QFont::Serif);
        break;
    case FontFamily::Copperplate:
        font.setFamilies({"Quattrocento", "Nimbus Roman"});
        font.setStyleHint(QFont::Serif);
        font.setCapitalization(QFont::SmallCaps);
        break;
    case FontFamily::Label:
        font.setFamilies({"Helvetica", "Nimbus Sans"});
        font.setStyleHint(QFont::SansSerif);
        break;
    }
    return font;
}

} // namespace

QFont fontFor(FontFamily family, float size) {
    QFont font = baseFont(family);
    if (!std::isfinite(size))
        size = 12.0f;
    size = std::clamp(size, kSmallestSize, kLargestSize);
    // A pixel of Qt is a point of the game. Qt's point sizes assume 72 points to an inch of a
    // 96-dpi screen, which would make every text a third too large. FreeType draws whole pixel
    // sizes only, so a fractional size is rounded here, where measuring and drawing both see it.
    font.setPixelSize(static_cast<int>(std::lround(size)));
    return font;
}

Face::Face(const QFont& f, const QPaintDevice* device)
    : font(f), metrics(f, device), ascent(metrics.ascent()),
      lineHeight(metrics.ascent() + metrics.descent()),
      lineSpacing(std::max(metrics.lineSpacing(), 1.0)), fixedPitch_(QFontInfo(f).fixedPitch()) {
    advances_.fill(-1.0);
}

QSizeF Face::boxOf(const QStringList& lines) const {
    if (lines.isEmpty() || (lines.size() == 1 && lines.front().isEmpty()))
        return {0.0, 0.0};
    double width = 0.0;
    for (const QString& line : lines)
        width = std::max(width, widthOf(line));
    return {width, static_cast<double>(lines.size() - 1) * lineSpacing + lineHeight};
}

double Face::sumOfAdvances(const QString& line) const {
    if (!fixedPitch_)
        return -1.0;
    double width = 0.0;
    for (const QChar c : line) {
        const auto code = c.unicode();
        if (code < u' ' || code > u'~')
            return -1.0;
        double& advance = advances_[code - u' '];
        if (advance < 0.0)
            advance = metrics.horizontalAdvance(c);
        width += advance;
    }
    return width;
}

double Face::widthOf(const QString& line) const {
    // The read-outs of the display are set in a face of one pitch and change every frame. Such a
    // face neither kerns nor joins letters, so a line of it is as wide as its letters' advances
    // together, to the bit: each advance is a whole number of 64ths of a point.
    if (const double sum = sumOfAdvances(line); sum >= 0.0)
        return sum;
    if (const auto found = widths_.find(line); found != widths_.end())
        return found->second;
    if (widths_.size() >= kKeptWidths)
        widths_.clear();
    const double width = metrics.horizontalAdvance(line);
    widths_.emplace(line, width);
    return width;
}

QStringList linesOf(const std::string& text) {
    QStringList lines = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
                            .split(QLatin1Char('\n'));
    // A text written on another system may end its lines with a carriage return as well.
    for (QString& line : lines) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    }
    return lines;
}

const Face& FaceCache::face(FontFamily family, float size) {
    struct Entry {
        FontFamily family;
        float size;
        int dpiX;
        int dpiY;
        Face face;
    };
    // One thread draws; a deque keeps the faces handed out where they are. Never destroyed:
    // fonts must not outlive the application object at exit.
    static auto& faces = *new std::deque<Entry>;
    const int dpiX = device_ != nullptr ? device_->logicalDpiX() : 0;
    const int dpiY = device_ != nullptr ? device_->logicalDpiY() : 0;
    for (const Entry& entry : faces) {
        if (entry.family == family && entry.size == size && entry.dpiX == dpiX &&
            entry.dpiY == dpiY)
            return entry.face;
    }
    faces.push_back({family, size, dpiX, dpiY, Face(fontFor(family, size), device_)});
    return faces.back().face;
}

Size FaceCache::measure(const std::string& text, const TextStyle& style) {
    const QSizeF box = face(style.family, style.size).boxOf(linesOf(text));
    return {static_cast<float>(box.width()), static_cast<float>(box.height())};
}

} // namespace apsis
