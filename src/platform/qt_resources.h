#pragma once

#include "assets/resources.h"

#include <filesystem>

#include <QImage>

namespace apsis {

// A decoded picture held by Qt.
class QtPicture final : public Picture {
  public:
    explicit QtPicture(QImage image) : image_(std::move(image)) {}
    float width() const override { return static_cast<float>(image_.width()); }
    float height() const override { return static_cast<float>(image_.height()); }
    const QImage& image() const { return image_; }

  private:
    QImage image_;
};

// Pictures (JPEG, GIF) and texts read from one folder, by base name and type. A missing,
// unreadable or undecodable file gives an empty picture or no text; so does every file when the
// folder is empty (none was found).
class QtResources final : public Resources {
  public:
    explicit QtResources(std::filesystem::path folder) : folder_(std::move(folder)) {}
    PictureHandle loadPicture(const std::string& name, const std::string& type) override;
    std::optional<std::string> loadText(const std::string& name, const std::string& type) override;
    const std::filesystem::path& folder() const { return folder_; }

  private:
    std::filesystem::path fileOf(const std::string& name, const std::string& type) const;
    std::filesystem::path folder_;
};

// The game's resource folder for an executable in executableDir: "resources" beside it in the
// build tree, else "../share/apsis" after installation. Empty when neither exists.
std::filesystem::path findResourceFolder(const std::filesystem::path& executableDir);

// The folder of the running executable.
std::filesystem::path executableFolder();

} // namespace apsis
