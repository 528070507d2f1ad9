#include "support/recording_canvas.h"

#include <algorithm>

namespace apsis {

Size RecordingCanvas::textSize(std::string_view text, float size) {
    std::size_t lines = 0;
    std::size_t longest = 0;
    for (std::size_t start = 0; !text.empty() && start <= text.size(); ++lines) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        longest = std::max(longest, end - start);
        start = end + 1;
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

} // namespace apsis
