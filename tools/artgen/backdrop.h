#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QString>

namespace apsis::artgen {

// The screens are drawn for a window of this size; the game scales them to any other. The menu's
// bands are then 768 x 100 pixels.
inline constexpr int kScreenWidth = 1280;
inline constexpr int kScreenHeight = 800;

// The night sky behind every screen: a faint nebula and stars of many brightnesses. The same sky
// for every screen, so that a menu band laid over the menu matches it. It has scale pixels to a
// pixel of the window's size, and that device pixel ratio: a painter over it draws in the window's
// pixels.
QImage drawSky(int scale);

// The display face of the game's name and headings, and the face of its running text; sizes in
// pixels.
QFont displayFont(int pixelSize);
QFont textFont(int pixelSize, bool bold = false);

// The game's name with the orbit that loops round it, centred on centre; the capitals stand
// capHeight pixels tall.
void drawTitle(QPainter& painter, QPointF centre, double capHeight);

// A line of text whose box is centred on centre.
void drawCentred(QPainter& painter, const QString& text, QPointF centre, const QFont& font,
                 const QColor& colour);

} // namespace apsis::artgen
