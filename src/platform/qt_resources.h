#pragma once

#include "assets/resources.h"

#include <filesystem>
#include <string>
#include <sys/types.h>
#include <unordered_map>

#include <QImage>
#include <QSize>

namespace apsis {

// A picture held by Qt. Its size is known from the start; its pixels may wait in the file until
// the first draw asks for them, so that a sheet only ever drawn as a symbol costs no memory.
class QtPicture final : public Picture {
  public:
    // A picture already decoded.
    explicit QtPicture(QImage image);
    // A picture of the given size, read from file and decoded when first drawn.
    QtPicture(QSize size, std::filesystem::path file);
    float width() const override { return static_cast<float>(size_.width()); }
    float height() const override { return static_cast<float>(size_.height()); }
    // The pixels, decoded at the first call: premultiplied when the picture has transparency,
    // packed RGB when it has none. Null when the file no longer decodes to the size it announced.
    const QImage& image() const;

  private:
    QSize size_;
    mutable std::filesystem::path file_; // empty once read
    mutable QImage image_;
};

// What tells a file from its former self without reading it: where it lies, how long it is and
// when it was last written to.
struct FileStamp {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    long long modified = 0; // nanoseconds
    long long changed = 0;  // nanoseconds, of the file's status
    bool operator==(const FileStamp&) const = default;
};

// Pictures (JPEG, GIF) and texts read from one folder, by base name and type. A missing,
// unreadable or undecodable file gives an empty picture or no text; so does every file when the
// folder is empty (none was found). The folder may be damaged: only regular files are opened,
// texts over kTextLimit and pictures over kPixelLimit are refused, and a refused file is missing.
//
// Each file is read once and kept while it stays the same: asking again costs one look at the
// file's stamp, and a missing or refused file is said once on the error stream, not at every ask.
class QtResources final : public Resources {
  public:
    static constexpr qint64 kTextLimit = qint64{64} * 1024;               // bytes
    static constexpr qint64 kPictureFileLimit = qint64{64} * 1024 * 1024; // bytes
    static constexpr qint64 kPixelLimit = qint64{4096} * 4096;            // pixels

    explicit QtResources(std::filesystem::path folder) : folder_(std::move(folder)) {}
    PictureHandle loadPicture(const std::string& name, const std::string& type) override;
    std::optional<std::string> loadText(const std::string& name, const std::string& type) override;

  private:
    // What was read from one file, and the file's stamp then; no stamp when it was missing.
    template <typename Content>
    struct Known {
        std::optional<FileStamp> stamp;
        Content content;
    };

    std::filesystem::path fileOf(const std::string& name, const std::string& type) const;
    std::filesystem::path folder_;
    std::unordered_map<std::string, Known<PictureHandle>> pictures_;
    std::unordered_map<std::string, Known<std::optional<std::string>>> texts_;
};

// The game's resource folder for an executable in executableDir: "resources" beside it in the
// build tree, else "../share/apsis" after installation. Empty when neither exists.
std::filesystem::path findResourceFolder(const std::filesystem::path& executableDir);

// The folder of the running executable.
std::filesystem::path executableFolder();

} // namespace apsis
