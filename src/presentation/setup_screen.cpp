#include "presentation/canvas.h"
#include "presentation/draw_view.h"
#include "presentation/drawing.h"

#include <optional>
#include <string>
#include <vector>

namespace apsis {
namespace {

const TextStyle kTitleStyle{FontFamily::Copperplate, 36.0f, colors::blue};
const TextStyle kHeadingStyle{FontFamily::Copperplate, 24.0f, colors::blue};
const TextStyle kOptionStyle{FontFamily::Courier, 16.0f, colors::gray};
const TextStyle kSelectedStyle{FontFamily::Courier, 18.0f, colors::green, colors::black};

// The list runs down at a fixed pitch whatever the font's own line height, so that the highlight
// always lands on its line.
constexpr double kLinePitch = 20.0;

struct Difficulty {
    const char* name;
    double centreOffset; // from the middle of the view, points
};
constexpr Difficulty kDifficulties[3] = {{"Easy", -80.0}, {"Medium", 0.0}, {"Hard", 80.0}};

// The pieces of a text between line feeds; a final line feed leaves an empty last piece.
std::vector<std::string> splitLines(const std::string& text) {
    std::vector<std::string> lines;
    std::string::size_type start = 0;
    while (true) {
        const auto end = text.find('\n', start);
        lines.push_back(text.substr(start, end - start));
        if (end == std::string::npos)
            return lines;
        start = end + 1;
    }
}

} // namespace

void DrawView::drawChoice(int level, int difficulty) {
    Canvas* canvas = currentCanvas();
    if (canvas == nullptr)
        return;
    drawMenu(4);
    const double cx = viewWidth / 2;
    const double cy = viewHeight / 2;

    fillBevelledPanel(*canvas, cx - 190, cy - 150, 380, 380);
    drawCentredText(*canvas, "New Game", kTitleStyle, cx, cy + 175);
    canvas->drawText("Difficulty < >", toPoint(cx - 175, cy + 130), kHeadingStyle);
    canvas->drawText("Level  ^ v", toPoint(cx - 175, cy + 70), kHeadingStyle);
    const std::string prompt = "Spacebar to begin";
    const Size promptSize = canvas->measureText(prompt, kHeadingStyle);
    canvas->drawText(prompt, toPoint(cx + 175 - static_cast<double>(promptSize.width), cy - 135),
                     kHeadingStyle);

    for (int i = 0; i < 3; ++i) {
        const TextStyle& style = difficulty == i + 1 ? kSelectedStyle : kOptionStyle;
        drawCentredText(*canvas, kDifficulties[i].name, style, cx + kDifficulties[i].centreOffset,
                        cy + 105);
    }

    const std::optional<std::string> text = resources().loadText("levels", "txt");
    if (!text)
        return;
    const std::vector<std::string> lines = splitLines(*text);
    const auto n = static_cast<int>(lines.size());
    for (int i = 0; i < n; ++i)
        if (!lines[static_cast<std::size_t>(i)].empty())
            canvas->drawText(lines[static_cast<std::size_t>(i)],
                             toPoint(cx - 110, cy - 95 + (n - 1 - i) * kLinePitch), kOptionStyle);
    // The chosen level again, larger and green on black, one point left of and two below its line.
    if (level > 0 && n >= level && !lines[static_cast<std::size_t>(level - 1)].empty())
        canvas->drawText(lines[static_cast<std::size_t>(level - 1)],
                         toPoint(cx - 111, cy - 95 + (n - level) * kLinePitch - 2), kSelectedStyle);
}

} // namespace apsis
