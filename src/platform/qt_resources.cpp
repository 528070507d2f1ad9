#include "platform/qt_resources.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include <QImageReader>

namespace apsis {
namespace {

FileStamp stampOf(const struct stat& info) {
    constexpr long long kBillion = 1'000'000'000;
    return {info.st_dev, info.st_ino, info.st_size,
            info.st_mtim.tv_sec * kBillion + info.st_mtim.tv_nsec,
            info.st_ctim.tv_sec * kBillion + info.st_ctim.tv_nsec};
}

// The stamp of the file a path names, through links; none when there is no such file.
std::optional<FileStamp> lookAt(const std::filesystem::path& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0)
        return std::nullopt;
    return stampOf(info);
}

// A descriptor closed when it goes out of scope.
struct Descriptor {
    int fd;
    ~Descriptor() {
        if (fd >= 0)
            ::close(fd);
    }
};

// A picture file's size, read from its header; invalid, with why, when it is no picture, or a
// picture over the budget, or no file that may be read.
QSize sizeOf(const std::filesystem::path& path, std::string& why) {
    const std::unique_ptr<QFile> file = openFile(path, QtResources::kPictureFileLimit, why);
    if (!file)
        return {};
    const QSize size = QImageReader(file.get()).size();
    if (!size.isValid()) {
        why = "not a picture";
        return {};
    }
    if (qint64{size.width()} * size.height() > QtResources::kPixelLimit) {
        why = "larger than " + std::to_string(QtResources::kPixelLimit) + " pixels";
        return {};
    }
    return size;
}

void sayMissing(const std::filesystem::path& path, const std::string& why) {
    std::fprintf(stderr, "apsis: %s: %s; taken as missing\n", path.c_str(), why.c_str());
}

} // namespace

namespace {

// A descriptor of a regular file of at most limit bytes, and its length; -1, with why, for
// anything else.
int openRegular(const std::filesystem::path& path, qint64 limit, off_t& length, std::string& why) {
    // Opened without waiting, or a FIFO would hold the game here until something wrote to it.
    Descriptor file{::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)};
    struct stat info {};
    if (file.fd < 0 || ::fstat(file.fd, &info) != 0) {
        why = std::strerror(errno);
        return -1;
    }
    if (!S_ISREG(info.st_mode)) {
        why = "not a regular file";
        return -1;
    }
    if (info.st_size > limit) {
        why = "longer than " + std::to_string(limit) + " bytes";
        return -1;
    }
    length = info.st_size;
    return std::exchange(file.fd, -1);
}

} // namespace

std::unique_ptr<QFile> openFile(const std::filesystem::path& path, qint64 limit, std::string& why) {
    off_t length = 0;
    const int fd = openRegular(path, limit, length, why);
    if (fd < 0)
        return nullptr;
    auto file = std::make_unique<QFile>();
    if (!file->open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        why = "cannot be read";
        return nullptr;
    }
    return file;
}

std::optional<QByteArray> readFile(const std::filesystem::path& path, qint64 limit,
                                   std::string& why) {
    off_t size = 0;
    const Descriptor file{openRegular(path, limit, size, why)};
    if (file.fd < 0)
        return std::nullopt;
    // One byte more than was measured is asked for, to see a file that grew since.
    QByteArray bytes(static_cast<qsizetype>(size + 1), Qt::Uninitialized);
    qsizetype length = 0;
    while (length < bytes.size()) {
        const ssize_t got =
            ::read(file.fd, bytes.data() + length, static_cast<std::size_t>(bytes.size() - length));
        if (got == 0)
            break;
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0) {
            why = std::strerror(errno);
            return std::nullopt;
        }
        length += got;
    }
    if (length > size) {
        why = "still being written";
        return std::nullopt;
    }
    bytes.truncate(length);
    bytes.squeeze();
    return bytes;
}

std::filesystem::path QtResources::fileOf(const std::string& name, const std::string& type) const {
    return folder_ / (type.empty() ? name : name + "." + type);
}

PictureHandle QtResources::loadPicture(const std::string& name, const std::string& type) {
    // Without a folder there are no files: not the ones of whatever folder the game started in.
    if (folder_.empty())
        return {};
    const auto path = fileOf(name, type);
    const auto stamp = lookAt(path);
    const auto [known, first] = pictures_.try_emplace(path.string());
    if (!first && known->second.stamp == stamp)
        return known->second.content;
    // Only the header is read here; the pixels are decoded when drawn.
    std::string why;
    const QSize size = sizeOf(path, why);
    PictureHandle picture;
    if (size.isValid()) {
        std::vector<PictureFile> files{{path, size}};
        // The same picture at twice the size, when it is there; silently none when it is not.
        const auto finer = fileOf(name + "@2x", type);
        std::string ignored;
        if (lookAt(finer) && sizeOf(finer, ignored) == size * 2)
            files.push_back({finer, size * 2});
        picture = std::make_shared<QtPicture>(std::move(files));
    } else {
        sayMissing(path, why);
    }
    known->second = {stamp, picture};
    return picture;
}

std::optional<std::string> QtResources::loadText(const std::string& name, const std::string& type) {
    if (folder_.empty())
        return std::nullopt;
    const auto path = fileOf(name, type);
    const auto stamp = lookAt(path);
    const auto [known, first] = texts_.try_emplace(path.string());
    if (!first && known->second.stamp == stamp)
        return known->second.content;
    std::string why;
    std::optional<std::string> text;
    if (const std::optional<QByteArray> bytes = readFile(path, kTextLimit, why))
        text = bytes->toStdString();
    else
        sayMissing(path, why);
    known->second = {stamp, text};
    return text;
}

std::filesystem::path findResourceFolder(const std::filesystem::path& executableDir) {
    std::error_code error;
    for (const auto& candidate :
         {executableDir / "resources", executableDir / ".." / "share" / "apsis"}) {
        if (std::filesystem::is_directory(candidate, error))
            return candidate.lexically_normal();
    }
    return {};
}

std::filesystem::path executableFolder() {
    std::error_code error;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::current_path(error) : self.parent_path();
}

} // namespace apsis
