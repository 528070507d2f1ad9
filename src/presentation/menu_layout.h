#pragma once

#include <array>

// Where the main menu's entries lie on the menu picture. The picture generator draws the menu and
// its highlighted bands from this, and the menu screen lays a band exactly where it was drawn.
namespace apsis::menu {

// The highlighted pictures of the four entries, from the top.
inline constexpr std::array<const char*, 4> kBandNames = {"menuAbout", "menuInstructions",
                                                          "menuPractice", "menuNew"};

// Band k (1 to 4, from the top) spans the middle three fifths of the width (from the first fifth)
// and one eighth of the height, the (k + 1)-th eighth counted from the top.
inline constexpr int kLeftFifths = 1;
inline constexpr int kWidthFifths = 3;
constexpr int topEighths(int k) {
    return k + 1;
}
// The same band's lower edge, in eighths of the height counted from the bottom.
constexpr int bottomEighths(int k) {
    return 8 - topEighths(k) - 1;
}

} // namespace apsis::menu
