#pragma once

#include "presentation/assists.h"
#include "presentation/canvas.h"
#include "presentation/draw_view.h"
#include "presentation/nav_aids.h"

#include <string>
#include <vector>

// The pieces the navigation aids are drawn with: their colours, shapes, and the placing of their
// labels clear of the display and of one another.
namespace apsis::nav {

// Colours that none of the display's own marks use: the display is green, grey and blue.
inline constexpr Color kPathColor{0.35, 0.75, 1.0, 0.9};
inline constexpr Color kHighColor{1.0, 0.6, 0.2, 1.0};
inline constexpr Color kLowColor{1.0, 0.45, 0.85, 1.0};
inline constexpr Color kMotionColor{1.0, 1.0, 0.35, 1.0};
inline constexpr Color kZoneColor{0.35, 1.0, 0.35, 0.55};
inline constexpr Color kTargetColor{1.0, 0.4, 1.0, 1.0};
inline constexpr Color kGhostColor{1.0, 0.4, 1.0, 0.6};
inline constexpr Color kImpactColor{1.0, 0.25, 0.25, 1.0};
inline constexpr Color kNoseColor{1.0, 1.0, 1.0, 1.0};
inline constexpr Color kCasingColor{0.0, 0.0, 0.0, 0.8}; // round the nose, on a light picture
inline constexpr Color kSunColor{1.0, 0.8, 0.3, 1.0};
inline constexpr Color kPhaseColor{0.55, 1.0, 0.85, 1.0};
inline constexpr Color kLeaderColor{0.8, 0.9, 1.0, 0.5};
inline constexpr Color kPlanColor{0.75, 0.6, 1.0, 0.95}; // the planned burn's path and read-outs
inline constexpr Color kBurnColor{1.0, 1.0, 1.0, 1.0};   // the burn itself
// Behind each of the aids' own texts, so that it reads over a bright planet as well as on black.
inline constexpr Color kPlateColor{0.0, 0.0, 0.0, 0.75};
constexpr double kPlatePad = 2.0; // points of plate either side of a text
inline const TextStyle kAidStyle{FontFamily::Courier, 12.0f, Color{0.55, 0.85, 1.0, 1.0}};
inline const TextStyle kMarkStyle{FontFamily::Label, 11.0f, Color{0.8, 0.9, 1.0, 1.0}};

constexpr double kMargin = 4.0; // points beyond the view edges still worth stroking

// A rectangle of the view, points.
struct Box {
    double left = 0;
    double bottom = 0;
    double right = 0;
    double top = 0;

    bool overlaps(const Box& o) const {
        return left < o.right && o.left < right && bottom < o.top && o.bottom < top;
    }
    bool contains(ViewPoint p) const {
        return p.x >= left && p.x <= right && p.y >= bottom && p.y <= top;
    }
};

inline Box boxAround(ViewPoint p, double reach) {
    return {p.x - reach, p.y - reach, p.x + reach, p.y + reach};
}

// How far the craft's own marks stand from its centre, points: just beyond the craft as drawn,
// which at a close zoom is a picture hundreds of points wide.
struct CraftReach {
    double clear;  // kept clear of every other mark and label
    double hull;   // where the nose line starts: the hull's tip when drawn as a picture
    double motion; // the rings of its direction of motion
    double nose;   // the tip of the nose line
    double sun;    // the Sun's mark
};
CraftReach craftReach(const DrawView& view);

ViewPoint place(const DrawView& view, Offset at);
bool isInView(const DrawView& view, ViewPoint p);
// The point reach points from p in the direction angle (view and world share their axes).
ViewPoint along(ViewPoint p, double angle, double reach);
double distance(ViewPoint a, ViewPoint b);

// Shapes, stroked or filled on the canvas; the long ones cut to the view.
void drawPath(Canvas& canvas, const DrawView& view, const std::vector<Offset>& points,
              const Color& color = kPathColor);
void drawLine(Canvas& canvas, const DrawView& view, ViewPoint from, ViewPoint to,
              const Color& color);
void drawCircle(Canvas& canvas, const DrawView& view, ViewPoint c, double r, const Color& color);
void drawArc(Canvas& canvas, ViewPoint c, double r, double from, double span, const Color& color);
void drawCross(Canvas& canvas, ViewPoint p, double r, const Color& color);
// The plate under one of a column of lines 12 points apart, the text's box at (x, y): 12 points
// high from the bottom of the box, which holds descenders and capitals and meets the next line's
// plate without overlapping it; the top line's reaches the top of its box.
void drawLinePlate(Canvas& canvas, double x, double y, Size text, bool isTopLine);
void drawRing(Canvas& canvas, ViewPoint p, double r, const Color& color);
void drawDashedRing(Canvas& canvas, ViewPoint p, double r, const Color& color);
void drawDiamond(Canvas& canvas, ViewPoint p, double r, const Color& color);
// A triangle with its tip at tip, pointing along angle.
void drawArrowHead(Canvas& canvas, ViewPoint tip, double angle, double length, double halfWidth,
                   const Color& color, bool isFilled);

// A label waiting for its place: a text for the mark at `at` that reaches `reach` points.
struct Label {
    std::string text;
    ViewPoint at;
    double reach = 5;
};

// Puts labels where they cover none of the places it holds: the display's read-outs, the craft,
// the marks and the labels already placed. A label stands beside its mark where it can, else
// further out on a leader line; only a view with no room at all leaves it out. A backed placer
// sets each label on a plate a little wider than its text.
class LabelPlacer {
  public:
    LabelPlacer(Canvas& canvas, const DrawView& view, bool isBacked = false);

    // A solid box (a text, the craft) is crossed by no leader line; a mark's box only when no
    // other way out is left.
    void hold(const Box& box, bool isSolid = false) { held_.push_back({box, isSolid}); }
    // The display's read-outs: the columns at the top, the scale bar, the fuel gauge, the flag.
    void holdDisplay();
    bool isFree(const Box& box) const;
    // Places and draws the label; its box is then held. False when it found no room.
    bool put(const Label& label);

  private:
    bool isClear(const Box& box, ViewPoint mark, ViewPoint from, ViewPoint to,
                 bool mayCrossMarks) const;

    struct Held {
        Box box;
        bool isSolid;
    };
    Canvas& canvas_;
    const DrawView& view_;
    bool isBacked_;
    std::vector<Held> held_;
};

// Parts of the aids, each drawing its marks, holding their places and asking for its labels.
void drawHeading(Canvas& canvas, const NavAids& aids, ViewPoint craft, const CraftReach& reach,
                 LabelPlacer& placer);
void drawMotion(Canvas& canvas, const NavAids& aids, ViewPoint craft, const CraftReach& reach,
                LabelPlacer& placer);
void drawSun(Canvas& canvas, const DrawView& view, const NavAids& aids, ViewPoint craft,
             const CraftReach& reach, LabelPlacer& placer, std::vector<Label>& labels);
void drawTargetArrow(Canvas& canvas, const DrawView& view, const NavAids& aids, LabelPlacer& placer,
                     std::vector<Label>& labels);
void drawCraftArrow(Canvas& canvas, const DrawView& view, const NavAids& aids, LabelPlacer& placer,
                    std::vector<Label>& labels);
void drawPhase(Canvas& canvas, const DrawView& view, const NavAids& aids, LabelPlacer& placer,
               std::vector<Label>& labels);
// The planned burn (presentation/assists.cpp).
void drawPlanParts(Canvas& canvas, const DrawView& view, const AssistAids& assists,
                   LabelPlacer& placer, std::vector<Label>& labels);

// " in " and a time ahead; nothing for a time not known (below zero).
std::string inHowLong(double time);
// A name in the middle of a sentence: "The Moon" reads "the Moon", the craft "you".
std::string inSentence(const char* name);
// The gap at a closest approach; where the two touch, "contact" rather than a gap below zero.
std::string gapText(const NavApproach& approach);

} // namespace apsis::nav
