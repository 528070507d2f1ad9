#pragma once

#include "assets/rect.h"
#include "assets/resources.h"

#include <memory>

namespace apsis {

// The slot a picture is loaded into. Copies of an Image share one slot, so a picture loaded
// through any copy is seen by all of them and decoded once.
struct PictureSlot {
    PictureHandle picture; // empty until loaded, and again if loading failed
};

// A sprite sheet: a picture from the resource folder cut into spritesWide x spritesWide equal
// frames. Frame 0 is the top-left one; frames run row by row. The picture is loaded on first use.
struct Image {
    int spritesWide;                  // frames along each side of the sheet
    std::shared_ptr<PictureSlot> img; // the loaded picture, shared with copies
    const char* name;                 // resource file name with its type, "earth.jpg"; not owned

    Image(const char* name, int spritesWide);

    // Loads the picture if it is not loaded yet; a failed load is tried again at the next use.
    void loadImage();
    // Points this Image at another picture: lets the old one go and loads the new one at once.
    void loadImage(const char* name, int spritesWide);

    const Picture* getImage(); // nullptr when the picture is missing
    float getWidth();          // of the whole sheet, points; 0 when missing
    float getHeight();         // of the whole sheet, points; 0 when missing
    // Where frame lies in the sheet, y upwards. A frame number outside 0 to n*n - 1 lies outside
    // the sheet; a spritesWide below 1 counts as 1.
    Rect getRect(int frame);
};

} // namespace apsis
