#pragma once

#include <memory>
#include <optional>
#include <string>

namespace apsis {

// A decoded picture. Only the platform layer knows what lies behind it; the game asks its size
// and hands it back to the canvas to draw.
class Picture {
  public:
    virtual ~Picture() = default;
    virtual float width() const = 0;  // points
    virtual float height() const = 0; // points
};

// Shared, so that the copies of a body draw the same decoded picture. Empty when nothing loaded.
using PictureHandle = std::shared_ptr<const Picture>;

// Where pictures and texts come from: the game's resource folder, or whatever a test installs.
// A missing or unreadable file is an empty handle or no text, never an exception.
class Resources {
  public:
    virtual ~Resources() = default;
    // A picture by base name and type ("earth", "jpg").
    virtual PictureHandle loadPicture(const std::string& name, const std::string& type) = 0;
    // A whole text file by base name and type ("levels", "txt").
    virtual std::optional<std::string> loadText(const std::string& name,
                                                const std::string& type) = 0;
};

// The process-wide loader. Until one is installed, every picture and text is missing.
Resources& resources();

// Installs a loader for the rest of the process (or until the next install) and returns the one
// it replaces.
std::unique_ptr<Resources> installResources(std::unique_ptr<Resources> loader);

} // namespace apsis
