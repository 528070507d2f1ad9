#pragma once

namespace apsis {

// A rectangle of points: the bottom-left corner and the size, y upwards. Single precision, like
// every coordinate that is handed to drawing.
struct Rect {
    float x = 0.0f;      // left edge, points
    float y = 0.0f;      // bottom edge, points
    float width = 0.0f;  // points
    float height = 0.0f; // points

    bool operator==(const Rect&) const = default;
};

} // namespace apsis
