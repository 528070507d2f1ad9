#include "support/recording_canvas.h"

#include <algorithm>

namespace apsis {

Size RecordingCanvas::textSize(std::string_view text, float size) {
    if (text.empty())
        return {0.0f, 0.0f};
    std::size_t lines = 1;
    std::size_t longest = 0;
    std::size_t line = 0;
    for (const char c : text) {
        if (c == '\n') {
            ++lines;
            line = 0;
        } else if ((static_cast<unsigned char>(c) & 0xC0u) != 0x80u) { // a UTF-8 character
            longest = std::max(longest, ++line);
        }
    }
    const auto points = static_cast<double>(size);
    return {static_cast<float>(0.6 * points * static_cast<double>(longest)),
            static_cast<float>(1.2 * points * static_cast<double>(lines))};
}

Point RecordingCanvas::centred(std::string_view text, float size, double x, double y, bool middle) {
    const Size s = textSize(text, size);
    return {static_cast<float>(x - static_cast<double>(s.width) / 2),
            static_cast<float>(middle ? y - static_cast<double>(s.height) / 2 : y)};
}

std::vector<const RecordingCanvas::Call*> RecordingCanvas::ofKind(Op op) const {
    std::vector<const Call*> found;
    for (const Call& call : calls)
        if (call.op == op)
            found.push_back(&call);
    return found;
}

std::vector<std::string> RecordingCanvas::texts() const {
    std::vector<std::string> found;
    for (const Call& call : calls)
        if (call.op == Op::DrawText || call.op == Op::TextInRect)
            found.push_back(call.text);
    return found;
}

const RecordingCanvas::Call* RecordingCanvas::findText(std::string_view text, bool prefix) const {
    for (const Call& call : calls)
        if ((call.op == Op::DrawText || call.op == Op::TextInRect) &&
            (prefix ? call.text.starts_with(text) : call.text == text))
            return &call;
    return nullptr;
}

std::vector<Rect> RecordingCanvas::filledRects(const Color& c) const {
    std::vector<Rect> found;
    for (const Call* call : ofKind(Op::FillRect))
        if (call->color == c)
            found.push_back(call->rect);
    return found;
}

} // namespace apsis
