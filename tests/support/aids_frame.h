#pragma once

#include "presentation/nav_aids.h"
#include "presentation/nav_parts.h"
#include "support/draw_harness.h"

#include <string>
#include <vector>

namespace apsis {

// What the tests of the aids' drawing share: a flight frame at 1280 by 800 points with the aids
// drawn over it, and the boxes of its calls.
using RC = RecordingCanvas;
using nav::Box;

inline const double kW = 1280;
inline const double kH = 800;

// A flight frame with the aids drawn over it: the display's calls first, the aids' after.
struct AidsFrame {
    DrawHarness h;
    NavAids aids;
    std::size_t firstAidCall = 0;

    explicit AidsFrame(Size view = {static_cast<float>(kW), static_cast<float>(kH)}) : h(view) {}

    // The offset from the followed body, in the middle of the view, of a point of the view.
    Offset at(double x, double y) const {
        const DrawView& v = h.view;
        return {(x / v.viewWidth - 0.5) * v.viewScale, (y / v.viewHeight - 0.5) * v.viewScaleH};
    }
    void draw() {
        h.view.drawPlay(h.game);
        firstAidCall = h.canvas.calls.size();
        drawNavAids(h.view, aids);
    }
    std::vector<const RC::Call*> calls(bool ofAids) const {
        std::vector<const RC::Call*> out;
        for (std::size_t i = ofAids ? firstAidCall : 0;
             i < (ofAids ? h.canvas.calls.size() : firstAidCall); ++i)
            out.push_back(&h.canvas.calls[i]);
        return out;
    }
    // The display writes none of the aids' texts.
    bool hasAidText(const std::string& text, bool prefix = false) const {
        return h.canvas.findText(text, prefix) != nullptr;
    }
};

inline Box boxOf(const RC::Call& c) {
    if (c.op == RC::Op::FillRect)
        return {c.rect.x, c.rect.y, c.rect.x + c.rect.width, c.rect.y + c.rect.height};
    // A text's box without the leading between lines: rows 12 points apart in 12-point type,
    // as the display writes them, touch but do not overlap.
    const Size s = RC::textSize(c.text, c.style.size);
    return {c.at.x, c.at.y, c.at.x + s.width, c.at.y + c.style.size};
}

} // namespace apsis
