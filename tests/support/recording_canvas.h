#pragma once

#include "presentation/canvas.h"

#include <string>
#include <string_view>
#include <vector>

namespace apsis {

// A canvas for tests: it draws nothing and remembers every drawing call with its arguments, in
// order. A text measures 0.6 * size wide per byte of its longest line and 1.2 * size tall per
// line; the empty text 0 x 0.
class RecordingCanvas : public Canvas {
  public:
    enum class Op { FillRect, StrokePath, FillPath, DrawPicture, DrawText, TextInRect };

    // One call; only the members its kind uses are filled.
    struct Call {
        Op op;
        Rect rect{};   // FillRect; DrawPicture's destination; TextInRect
        Rect source{}; // DrawPicture
        Color color{}; // FillRect, StrokePath, FillPath
        Path path{};
        const Picture* picture = nullptr;
        double opacity = 0.0;
        std::string text{};
        Point at{}; // DrawText
        TextStyle style{};
    };

    explicit RecordingCanvas(Size surface = {640.0f, 480.0f}) : surface(surface) {}

    Size surface; // what size() answers
    std::vector<Call> calls;

    static Size textSize(std::string_view text, float size);
    // Where a text of the given size lands when centred on x with its bottom (or, middle, its
    // middle) at y.
    static Point centred(std::string_view text, float size, double x, double y,
                         bool middle = false);

    void clear() { calls.clear(); }
    std::vector<const Call*> ofKind(Op op) const;
    std::vector<std::string> texts() const; // the texts drawn, in order
    // The first text drawn that equals text, or with prefix that starts with it; nullptr if none.
    const Call* findText(std::string_view text, bool prefix = false) const;

    Size size() const override { return surface; }
    Size measureText(const std::string& text, const TextStyle& style) override {
        return textSize(text, style.size);
    }
    void fillRect(const Rect& r, const Color& c) override {
        calls.push_back({.op = Op::FillRect, .rect = r, .color = c});
    }
    void strokePath(const Path& path, const Color& c) override {
        calls.push_back({.op = Op::StrokePath, .color = c, .path = path});
    }
    void fillPath(const Path& path, const Color& c) override {
        calls.push_back({.op = Op::FillPath, .color = c, .path = path});
    }
    void drawPicture(const Picture* picture, const Rect& source, const Rect& dest,
                     double opacity) override {
        calls.push_back({.op = Op::DrawPicture,
                         .rect = dest,
                         .source = source,
                         .picture = picture,
                         .opacity = opacity});
    }
    void drawText(const std::string& text, Point at, const TextStyle& style) override {
        calls.push_back({.op = Op::DrawText, .text = text, .at = at, .style = style});
    }
    void drawTextInRect(const std::string& text, const Rect& r, const TextStyle& style) override {
        calls.push_back({.op = Op::TextInRect, .rect = r, .text = text, .style = style});
    }
};

} // namespace apsis
