#include "platform/qt_resources.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QImage>
#include <QTemporaryDir>

namespace apsis {
namespace {

class QtResourcesTest : public ::testing::Test {
  protected:
    // A folder of each test's own: tests run side by side in processes of their own.
    void SetUp() override { ASSERT_TRUE(scratch.isValid()); }
    void write(const std::string& file, const std::string& bytes) {
        std::ofstream(folder / file, std::ios::binary) << bytes;
    }
    QTemporaryDir scratch;
    std::filesystem::path folder = scratch.path().toStdString();
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

TEST_F(QtResourcesTest, FilesThatAreNoFilesOrTooLargeAreMissingAndNeverHoldTheGameUp) {
    ASSERT_EQ(::mkfifo((folder / "fifo.txt").c_str(), 0600), 0);
    ASSERT_EQ(::mkfifo((folder / "fifo.jpg").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", folder / "endless.txt");
    write("long.txt", std::string(QtResources::kTextLimit + 1, 'x'));
    write("full.txt", std::string(QtResources::kTextLimit, 'x'));
    // A picture one pixel over the budget, small as a file.
    QImage huge(8193, 8192, QImage::Format_Mono);
    huge.fill(0);
    ASSERT_TRUE(huge.save(QString::fromStdString((folder / "huge.jpg").string()), "PNG"));

    QtResources loader(folder);
    for (const char* name : {"fifo", "endless", "long"})
        EXPECT_EQ(loader.loadText(name, "txt"), std::nullopt) << name;
    EXPECT_EQ(loader.loadText("full", "txt")->size(), QtResources::kTextLimit);
    for (const char* name : {"fifo", "huge"})
        EXPECT_FALSE(loader.loadPicture(name, "jpg")) << name;
}

TEST_F(QtResourcesTest, AFileIsReadOnceWhileItStaysTheSameAndSaidMissingOnce) {
    QtResources loader(folder);
    testing::internal::CaptureStderr();
    for (int i = 0; i < 1000; ++i)
        ASSERT_FALSE(loader.loadPicture("earth", "jpg"));
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;

    // Tried again at the next use: once there, it is there.
    QImage picture(16, 8, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const QString file = QString::fromStdString((folder / "earth.jpg").string());
    ASSERT_TRUE(picture.save(file, "JPG"));
    const PictureHandle earth = loader.loadPicture("earth", "jpg");
    ASSERT_TRUE(earth);
    EXPECT_EQ(loader.loadPicture("earth", "jpg"), earth);

    // A file written anew is a new picture.
    ASSERT_TRUE(picture.scaled(32, 8).save(file, "JPG"));
    const PictureHandle wider = loader.loadPicture("earth", "jpg");
    EXPECT_EQ(wider ? wider->width() : 0.0f, 32.0f);
}

// A picture cut short, as a download can be, shows the part that was read.
TEST_F(QtResourcesTest, APictureCutShortShowsThePartThatWasRead) {
    const std::filesystem::path whole = APSIS_TEST_RESOURCE_DIR;
    std::filesystem::copy_file(whole / "menu.jpg", folder / "menu.jpg");
    std::filesystem::resize_file(folder / "menu.jpg",
                                 std::filesystem::file_size(whole / "menu.jpg") / 2);
    const auto menu = [](const std::filesystem::path& from) {
        const PictureHandle picture = QtResources(from).loadPicture("menu", "jpg");
        return picture ? dynamic_cast<const QtPicture&>(*picture).image() : QImage();
    };
    const QImage full = menu(whole), cut = menu(folder);
    ASSERT_FALSE(full.isNull() || cut.isNull());
    EXPECT_TRUE(cut.copy(0, 0, cut.width(), cut.height() / 10) ==
                full.copy(0, 0, full.width(), full.height() / 10));
    EXPECT_FALSE(cut == full);
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
