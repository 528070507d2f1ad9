#pragma once

#include "assets/rect.h"
#include "assets/resources.h"

#include <optional>
#include <string>
#include <vector>

namespace apsis {

// An RGBA colour, each part 0 to 1.
struct Color {
    double r = 0.0;
    double g = 0.0;
    double b = 0.0;
    double a = 1.0;

    bool operator==(const Color&) const = default;
};

// The colours the game names: the primaries, and greys at a third, a half and two thirds.
namespace colors {
inline constexpr Color black{0.0, 0.0, 0.0, 1.0};
inline constexpr Color white{1.0, 1.0, 1.0, 1.0};
inline constexpr Color red{1.0, 0.0, 0.0, 1.0};
inline constexpr Color green{0.0, 1.0, 0.0, 1.0};
inline constexpr Color blue{0.0, 0.0, 1.0, 1.0};
inline constexpr Color yellow{1.0, 1.0, 0.0, 1.0};
inline constexpr Color darkGray{1.0 / 3.0, 1.0 / 3.0, 1.0 / 3.0, 1.0};
inline constexpr Color gray{0.5, 0.5, 0.5, 1.0};
inline constexpr Color lightGray{2.0 / 3.0, 2.0 / 3.0, 2.0 / 3.0, 1.0};
} // namespace colors

// A point of the view: origin at the bottom-left, y upwards.
struct Point {
    float x = 0.0f;
    float y = 0.0f;

    bool operator==(const Point&) const = default;
};

// A measured size, points.
struct Size {
    float width = 0.0f;
    float height = 0.0f;

    bool operator==(const Size&) const = default;
};

// The font families the game asks for. Label is the platform's default sans-serif for body names.
enum class FontFamily { Courier, Times, Copperplate, Label };

// How a text looks: one point of size is one view unit.
struct TextStyle {
    FontFamily family = FontFamily::Label;
    float size = 12.0f; // points
    Color color = colors::black;
    std::optional<Color> background{}; // fills the text's measured box behind it

    bool operator==(const TextStyle&) const = default;
};

// A path of moves, lines, ovals and rectangles, stroked 1 point wide or filled (a fill closes each
// open outline).
struct Path {
    enum class Kind { MoveTo, LineTo, Oval, Rectangle };
    struct Element {
        Kind kind;
        Rect rect; // MoveTo and LineTo use x and y only

        bool operator==(const Element&) const = default;
    };
    std::vector<Element> elements;

    void moveTo(Point p) { elements.push_back({Kind::MoveTo, {p.x, p.y, 0.0f, 0.0f}}); }
    void lineTo(Point p) { elements.push_back({Kind::LineTo, {p.x, p.y, 0.0f, 0.0f}}); }
    void addOval(const Rect& r) { elements.push_back({Kind::Oval, r}); }
    void addRect(const Rect& r) { elements.push_back({Kind::Rectangle, r}); }
};

// The drawing primitives the game draws with, in view points with the origin at the bottom-left
// and y upwards. A text's point is the bottom-left of its measured box; a text of several lines is
// a left-aligned block whose first line is on top.
class Canvas {
  public:
    virtual ~Canvas() = default;

    virtual Size size() const = 0; // the surface, points
    virtual void fillRect(const Rect& r, const Color& c) = 0;
    virtual void strokePath(const Path& path, const Color& c) = 0; // 1 point wide
    virtual void fillPath(const Path& path, const Color& c) = 0;
    // The source rectangle of a picture (its own points, y upwards) scaled into dest, drawn over
    // what is there at the given opacity. A missing picture (nullptr) draws nothing.
    virtual void drawPicture(const Picture* picture, const Rect& source, const Rect& dest,
                             double opacity) = 0;
    virtual Size measureText(const std::string& text, const TextStyle& style) = 0;
    virtual void drawText(const std::string& text, Point at, const TextStyle& style) = 0;
    // Lines laid out from the top of the rectangle down, left-aligned.
    virtual void drawTextInRect(const std::string& text, const Rect& r, const TextStyle& style) = 0;
};

// The canvas of the redraw in progress, or nullptr outside a redraw.
Canvas* currentCanvas();

// Makes a canvas current for the span of one redraw, and the previous one current again after.
class CanvasFocus {
  public:
    explicit CanvasFocus(Canvas& canvas);
    ~CanvasFocus();
    CanvasFocus(const CanvasFocus&) = delete;
    CanvasFocus& operator=(const CanvasFocus&) = delete;

  private:
    Canvas* previous_;
};

} // namespace apsis
