#pragma once

#include "assets/resources.h"
#include "platform/qt_picture.h"

#include <filesystem>
#include <string>
#include <sys/types.h>
#include <unordered_map>

#include <QByteArray>
#include <QFile>

namespace apsis {

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

// The bytes of a regular file of at most limit bytes. Anything else, a folder, a FIFO, a device,
// a longer file or one that cannot be read, is refused, and why is said in why.
std::optional<QByteArray> readFile(const std::filesystem::path& path, qint64 limit,
                                   std::string& why);
// The same file opened to be read as it is decoded, without holding all of its bytes at once.
std::unique_ptr<QFile> openFile(const std::filesystem::path& path, qint64 limit, std::string& why);

// Pictures (JPEG, GIF) and texts read from one folder, by base name and type. A missing,
// unreadable or undecodable file gives an empty picture or no text; so does every file when the
// folder is empty (none was found). The folder may be damaged: only regular files are opened,
// texts over kTextLimit and pictures over kPixelLimit are refused, and a refused file is missing.
//
// Each file is read once and kept while it stays the same: asking again costs one look at the
// file's stamp, and a missing or refused file is said once on the error stream, not at every ask.
// A picture "name.type" may come with "name@2x.type" beside it, the same picture at twice the
// size, drawn from where the screen shows it that finely.
class QtResources final : public Resources {
  public:
    static constexpr qint64 kTextLimit = qint64{64} * 1024;               // bytes
    static constexpr qint64 kPictureFileLimit = qint64{64} * 1024 * 1024; // bytes
    // Pictures are decoded at the size drawn, and a large one a band at a time: the limit is on
    // what a file may announce, and no picture is ever held at this size.
    static constexpr qint64 kPixelLimit = qint64{8192} * 8192; // pixels

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
