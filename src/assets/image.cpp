#include "assets/image.h"

#include <string>

namespace apsis {

Image::Image(const char* name, int spritesWide)
    : spritesWide(spritesWide), img(std::make_shared<PictureSlot>()), name(name) {}

void Image::loadImage() {
    if (img->picture || name == nullptr)
        return;
    // Only the base name and the first type part count: "a.b.c" is "a" of type "b".
    const std::string full(name);
    const auto dot = full.find('.');
    const std::string base = full.substr(0, dot);
    std::string type;
    if (dot != std::string::npos)
        type = full.substr(dot + 1, full.find('.', dot + 1) - dot - 1);
    img->picture = resources().loadPicture(base, type);
}

void Image::loadImage(const char* newName, int newSpritesWide) {
    // A fresh slot: copies made before keep the old picture, as they shared it, and only this
    // Image moves on to the new one.
    img = std::make_shared<PictureSlot>();
    name = newName;
    spritesWide = newSpritesWide;
    loadImage();
}

const Picture* Image::getImage() {
    loadImage();
    return img->picture.get();
}

float Image::getWidth() {
    const Picture* picture = getImage();
    return picture ? picture->width() : 0.0f;
}

float Image::getHeight() {
    const Picture* picture = getImage();
    return picture ? picture->height() : 0.0f;
}

Rect Image::getRect(int frame) {
    // A sheet said to have no frames along its side is taken as one whole frame.
    const int n = spritesWide < 1 ? 1 : spritesWide;
    const int column = frame % n;
    const int row = frame / n;
    const float w = getWidth() / static_cast<float>(n);
    const float h = getHeight() / static_cast<float>(n);
    return {static_cast<float>(column) * w, static_cast<float>(n - row - 1) * h, w, h};
}

} // namespace apsis
