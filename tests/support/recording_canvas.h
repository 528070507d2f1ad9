#pragma once

#include "presentation/canvas.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace apsis {

// A canvas for tests: it draws nothing, remembers every call with its arguments in order, and
// measures texts by a fixed rule, so a test can assert the exact rectangles, points and strings a
// screen draws.
//
// The rule: a text is 0.6 * size wide per character of its longest line and 1.2 * size tall per
// line; the empty text measures 0 x 0.
class RecordingCanvas : public Canvas {
  public:
    enum class Op {
        FillRect,
        StrokePath,
        FillPath,
        DrawPicture,
        MeasureText,
        DrawText,
        DrawTextInRect
    };

    // One call. Only the members its kind uses are filled.
    struct Call {
        Op op;
        Rect rect{};                      // FillRect; DrawPicture's destination; DrawTextInRect
        Rect source{};                    // DrawPicture
        Color color{};                    // FillRect, StrokePath, FillPath
        Path path{};                      // StrokePath, FillPath
        const Picture* picture = nullptr; // DrawPicture
        double opacity = 0.0;             // DrawPicture
        std::string text{};               // MeasureText, DrawText, DrawTextInRect
        Point at{};                       // DrawText
        TextStyle style{};                // MeasureText, DrawText, DrawTextInRect
    };

    explicit RecordingCanvas(Size surface = {640.0f, 480.0f}) : surface(surface) {}

    Size surface; // what size() answers; set it before initSizes
    std::vector<Call> calls;
    // Sizes that particular texts measure instead of the rule's, whatever the style.
    std::map<std::string, Size, std::less<>> textSizes;

    // The measuring rule, for tests that want to compute an expected position.
    static Size textSize(std::string_view text, float size);

    // Forgets every call recorded so far.
    void clear() { calls.clear(); }

    // Every call of one kind, in order.
    std::vector<const Call*> ofKind(Op op) const;
    // Every call that draws something, in order: measurements left out.
    std::vector<const Call*> drawing() const;
    // The texts drawn (at a point or into a rectangle), in order.
    std::vector<std::string> texts() const;
    // The first text drawn that equals text, or that starts with prefix; nullptr when none.
    const Call* findText(std::string_view text) const;
    const Call* findTextStartingWith(std::string_view prefix) const;
    // The rectangles filled with colour c, in order.
    std::vector<Rect> filledRects(const Color& c) const;
    // The pictures drawn, in order.
    std::vector<const Call*> pictures() const;
    // How many calls of a kind were made.
    std::size_t count(Op op) const;

    Size size() const override { return surface; }
    void fillRect(const Rect& r, const Color& c) override;
    void strokePath(const Path& path, const Color& c) override;
    void fillPath(const Path& path, const Color& c) override;
    void drawPicture(const Picture* picture, const Rect& source, const Rect& dest,
                     double opacity) override;
    Size measureText(const std::string& text, const TextStyle& style) override;
    void drawText(const std::string& text, Point at, const TextStyle& style) override;
    void drawTextInRect(const std::string& text, const Rect& r, const TextStyle& style) override;
};

} // namespace apsis
