#include "support/recording_canvas.h"

#include <algorithm>

namespace apsis {
namespace {

// Characters of a UTF-8 text: every byte that does not continue a sequence.
std::size_t characters(std::string_view line) {
    return static_cast<std::size_t>(std::count_if(line.begin(), line.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u;
    }));
}

bool isText(const RecordingCanvas::Call& call) {
    return call.op == RecordingCanvas::Op::DrawText ||
           call.op == RecordingCanvas::Op::DrawTextInRect;
}

} // namespace

Size RecordingCanvas::textSize(std::string_view text, float size) {
    if (text.empty())
        return {0.0f, 0.0f};
    std::size_t lines = 0;
    std::size_t longest = 0;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find('\n', start);
        const std::string_view line = text.substr(start, end - start);
        longest = std::max(longest, characters(line));
        ++lines;
        if (end == std::string_view::npos)
            break;
        start = end + 1;
    }
    return {static_cast<float>(0.6 * static_cast<double>(size) * static_cast<double>(longest)),
            static_cast<float>(1.2 * static_cast<double>(size) * static_cast<double>(lines))};
}

std::vector<const RecordingCanvas::Call*> RecordingCanvas::ofKind(Op op) const {
    std::vector<const Call*> found;
    for (const Call& call : calls)
        if (call.op == op)
            found.push_back(&call);
    return found;
}

std::vector<const RecordingCanvas::Call*> RecordingCanvas::drawing() const {
    std::vector<const Call*> found;
    for (const Call& call : calls)
        if (call.op != Op::MeasureText)
            found.push_back(&call);
    return found;
}

std::vector<std::string> RecordingCanvas::texts() const {
    std::vector<std::string> found;
    for (const Call& call : calls)
        if (isText(call))
            found.push_back(call.text);
    return found;
}

const RecordingCanvas::Call* RecordingCanvas::findText(std::string_view text) const {
    for (const Call& call : calls)
        if (isText(call) && call.text == text)
            return &call;
    return nullptr;
}

const RecordingCanvas::Call* RecordingCanvas::findTextStartingWith(std::string_view prefix) const {
    for (const Call& call : calls)
        if (isText(call) && std::string_view(call.text).substr(0, prefix.size()) == prefix)
            return &call;
    return nullptr;
}

std::vector<Rect> RecordingCanvas::filledRects(const Color& c) const {
    std::vector<Rect> found;
    for (const Call& call : calls)
        if (call.op == Op::FillRect && call.color == c)
            found.push_back(call.rect);
    return found;
}

std::vector<const RecordingCanvas::Call*> RecordingCanvas::pictures() const {
    return ofKind(Op::DrawPicture);
}

std::size_t RecordingCanvas::count(Op op) const {
    return static_cast<std::size_t>(
        std::count_if(calls.begin(), calls.end(), [op](const Call& c) { return c.op == op; }));
}

void RecordingCanvas::fillRect(const Rect& r, const Color& c) {
    Call call{Op::FillRect};
    call.rect = r;
    call.color = c;
    calls.push_back(std::move(call));
}

void RecordingCanvas::strokePath(const Path& path, const Color& c) {
    Call call{Op::StrokePath};
    call.path = path;
    call.color = c;
    calls.push_back(std::move(call));
}

void RecordingCanvas::fillPath(const Path& path, const Color& c) {
    Call call{Op::FillPath};
    call.path = path;
    call.color = c;
    calls.push_back(std::move(call));
}

void RecordingCanvas::drawPicture(const Picture* picture, const Rect& source, const Rect& dest,
                                  double opacity) {
    Call call{Op::DrawPicture};
    call.picture = picture;
    call.source = source;
    call.rect = dest;
    call.opacity = opacity;
    calls.push_back(std::move(call));
}

Size RecordingCanvas::measureText(const std::string& text, const TextStyle& style) {
    Call call{Op::MeasureText};
    call.text = text;
    call.style = style;
    calls.push_back(std::move(call));
    if (const auto given = textSizes.find(text); given != textSizes.end())
        return given->second;
    return textSize(text, style.size);
}

void RecordingCanvas::drawText(const std::string& text, Point at, const TextStyle& style) {
    Call call{Op::DrawText};
    call.text = text;
    call.at = at;
    call.style = style;
    calls.push_back(std::move(call));
}

void RecordingCanvas::drawTextInRect(const std::string& text, const Rect& r,
                                     const TextStyle& style) {
    Call call{Op::DrawTextInRect};
    call.text = text;
    call.rect = r;
    call.style = style;
    calls.push_back(std::move(call));
}

} // namespace apsis
