#include "platform/qt_resources.h"

#include <system_error>

#include <QFile>
#include <QImageReader>

namespace apsis {

std::filesystem::path QtResources::fileOf(const std::string& name, const std::string& type) const {
    return folder_ / (type.empty() ? name : name + "." + type);
}

PictureHandle QtResources::loadPicture(const std::string& name, const std::string& type) {
    // Without a folder there are no files: not the ones of whatever folder the game started in.
    if (folder_.empty())
        return {};
    const auto path = fileOf(name, type);
    QImageReader reader(QString::fromStdString(path.string()));
    QImage image = reader.read();
    if (image.isNull())
        return {};
    // Premultiplied alpha is what QPainter draws fastest; an opaque picture stays opaque.
    image = image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                          : QImage::Format_RGB888);
    return std::make_shared<QtPicture>(std::move(image));
}

std::optional<std::string> QtResources::loadText(const std::string& name, const std::string& type) {
    if (folder_.empty())
        return std::nullopt;
    QFile file(QString::fromStdString(fileOf(name, type).string()));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
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
