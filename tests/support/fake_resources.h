#pragma once

#include "assets/resources.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace apsis {

// A picture that is only a size.
struct FakePicture final : Picture {
    FakePicture(float width, float height) : w(width), h(height) {}
    float width() const override { return w; }
    float height() const override { return h; }
    float w, h;
};

// Pictures and texts held in memory, keyed by "name.type". Remembers what was asked for.
class FakeResources final : public Resources {
  public:
    std::map<std::string, PictureHandle> pictures;
    std::map<std::string, std::string> textFiles;
    std::vector<std::string> requests; // every "name.type" asked for, in order

    PictureHandle loadPicture(const std::string& name, const std::string& type) override {
        requests.push_back(name + "." + type);
        const auto found = pictures.find(name + "." + type);
        return found == pictures.end() ? PictureHandle{} : found->second;
    }
    std::optional<std::string> loadText(const std::string& name, const std::string& type) override {
        requests.push_back(name + "." + type);
        const auto found = textFiles.find(name + "." + type);
        return found == textFiles.end() ? std::nullopt : std::optional(found->second);
    }

    // Adds a picture of the given size under "name.type" and returns it.
    const Picture* addPicture(const std::string& file, float width, float height) {
        auto picture = std::make_shared<FakePicture>(width, height);
        pictures[file] = picture;
        return picture.get();
    }

    // Every body's sheet and every screen's picture, so that drawing takes the picture paths.
    void addEveryPicture() {
        for (const char* file :
             {"sun.jpg", "venus.jpg", "earth.jpg", "moon.jpg", "mars.jpg", "jupiter.jpg",
              "asteroid.jpg", "ship.gif", "satellite.gif", "station.gif"})
            addPicture(file, 512, 512);
        for (const char* screen : {"splash", "menu", "menuAbout", "menuInstructions",
                                   "menuPractice", "menuNew", "about", "instructions"})
            addPicture(std::string(screen) + ".jpg", 640, 480);
    }
};

// Installs a FakeResources for the life of a test and puts the previous loader back after.
class ScopedFakeResources {
  public:
    ScopedFakeResources() {
        auto fake = std::make_unique<FakeResources>();
        fake_ = fake.get();
        previous_ = installResources(std::move(fake));
    }
    ~ScopedFakeResources() { installResources(std::move(previous_)); }
    ScopedFakeResources(const ScopedFakeResources&) = delete;
    ScopedFakeResources& operator=(const ScopedFakeResources&) = delete;

    FakeResources& operator*() { return *fake_; }
    FakeResources* operator->() { return fake_; }

  private:
    FakeResources* fake_;
    std::unique_ptr<Resources> previous_;
};

} // namespace apsis
