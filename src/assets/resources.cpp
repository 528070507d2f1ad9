#include "assets/resources.h"

#include <utility>

namespace apsis {
namespace {

// The loader in force before the host installs its own: it finds nothing.
class NoResources final : public Resources {
  public:
    PictureHandle loadPicture(const std::string&, const std::string&) override { return {}; }
    std::optional<std::string> loadText(const std::string&, const std::string&) override {
        return std::nullopt;
    }
};

std::unique_ptr<Resources>& installed() {
    static std::unique_ptr<Resources> loader = std::make_unique<NoResources>();
    return loader;
}

} // namespace

Resources& resources() {
    return *installed();
}

std::unique_ptr<Resources> installResources(std::unique_ptr<Resources> loader) {
    if (!loader)
        loader = std::make_unique<NoResources>();
    return std::exchange(installed(), std::move(loader));
}

} // namespace apsis
