#include "platform/qt_resources.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include <QImage>

namespace apsis {
namespace {

class QtResourcesTest : public ::testing::Test {
  protected:
    void SetUp() override {
        folder = std::filesystem::temp_directory_path() /
                 ("apsis-resources-" +
                  std::to_string(::testing::UnitTest::GetInstance()->random_seed()));
        std::filesystem::create_directories(folder);
    }
    void TearDown() override { std::filesystem::remove_all(folder); }
    void write(const std::string& file, const std::string& bytes) {
        std::ofstream(folder / file, std::ios::binary) << bytes;
    }
    std::filesystem::path folder;
};

TEST_F(QtResourcesTest, ReadsByNameAndTypeAndMissingOrBrokenFilesAreNothing) {
    write("levels.txt", "One\nTwo");
    write("empty.txt", "");
    write("broken.jpg", std::string("\xff\xd8\xff\xe0 truncated", 15));
    QImage picture(16, 8, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(QString::fromStdString((folder / "red.jpg").string()), "JPG"));

    QtResources loader(folder);
    EXPECT_EQ(loader.loadText("levels", "txt"), "One\nTwo");
    const PictureHandle red = loader.loadPicture("red", "jpg");
    ASSERT_TRUE(red);
    EXPECT_EQ(red->width(), 16.0f);
    EXPECT_EQ(red->height(), 8.0f);
    EXPECT_EQ(loader.loadText("missing", "txt"), std::nullopt);
    EXPECT_EQ(loader.loadText("empty", "txt"), std::string());
    EXPECT_FALSE(loader.loadPicture("missing", "jpg"));
    EXPECT_FALSE(loader.loadPicture("broken", "jpg"));
    EXPECT_FALSE(QtResources(folder / "nowhere").loadPicture("red", "jpg"));

    // Without a folder nothing is read, not even from the working directory.
    const auto working = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    const auto text = QtResources{std::filesystem::path()}.loadText("levels", "txt");
    std::filesystem::current_path(working);
    EXPECT_EQ(text, std::nullopt);
}

TEST_F(QtResourcesTest, FindsTheBuildTreeFolderBeforeTheInstalledOne) {
    EXPECT_EQ(findResourceFolder(folder), std::filesystem::path());
    std::filesystem::create_directories(folder / "share" / "apsis");
    std::filesystem::create_directories(folder / "bin");
    EXPECT_EQ(findResourceFolder(folder / "bin"), (folder / "share" / "apsis").lexically_normal());
    std::filesystem::create_directories(folder / "bin" / "resources");
    EXPECT_EQ(findResourceFolder(folder / "bin"),
              (folder / "bin" / "resources").lexically_normal());
}

} // namespace
} // namespace apsis
