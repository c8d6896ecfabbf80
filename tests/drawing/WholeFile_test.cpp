#include "drawing/DxfWriter.h"
#include "support/Program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <string>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using drawing::WriteWholeFile;

std::ptrdiff_t FilesIn(const support::TemporaryFolder& folder) {
  const std::filesystem::directory_iterator files(folder.File("."));
  return std::distance(begin(files), end(files));
}

// While it lives, no file of this process grows beyond the limit.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit before_{};
  void (*handler_)(int) = nullptr;
};

TEST(WriteWholeFile, WritesAllBytes) {
  const support::TemporaryFolder folder;
  const std::string bytes = std::string("a\0b\r\n", 5) + std::string(1 << 20, 'x');
  EXPECT_EQ(WriteWholeFile(folder.File("a.dxf"), bytes), "");
  EXPECT_EQ(support::ReadWhole(folder.File("a.dxf")), bytes);
  EXPECT_EQ(WriteWholeFile(folder.File("empty"), ""), "");
  EXPECT_EQ(support::ReadWhole(folder.File("empty")), "");
  EXPECT_EQ(FilesIn(folder), 2);
}

TEST(WriteWholeFile, ReplacesAFileAndKeepsItsPermissions) {
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("a.dxf", "something longer than before");
  ASSERT_EQ(chmod(path.c_str(), 0640), 0);
  EXPECT_EQ(WriteWholeFile(path, "short"), "");
  EXPECT_EQ(support::ReadWhole(path), "short");
  struct stat now = {};
  ASSERT_EQ(stat(path.c_str(), &now), 0);
  EXPECT_EQ(now.st_mode & 07777, 0640U);
  EXPECT_EQ(FilesIn(folder), 1);
}

TEST(WriteWholeFile, WritesBehindALink) {
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("a.dxf", "before");
  const std::string link = folder.File("link.dxf");
  ASSERT_EQ(symlink("a.dxf", link.c_str()), 0);
  EXPECT_EQ(WriteWholeFile(link, "after"), "");
  EXPECT_EQ(support::ReadWhole(path), "after");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
}

TEST(WriteWholeFile, WritesBehindALinkThatLeadsToNothingYet) {
  const support::TemporaryFolder folder;
  const std::string link = folder.File("link.dxf");
  ASSERT_EQ(symlink("second.dxf", link.c_str()), 0);
  ASSERT_EQ(symlink(folder.File("a.dxf").c_str(), folder.File("second.dxf").c_str()), 0);
  EXPECT_EQ(WriteWholeFile(link, "after"), "");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_FALSE(std::filesystem::is_symlink(folder.File("a.dxf")));
  EXPECT_EQ(support::ReadWhole(folder.File("a.dxf")), "after");
  ASSERT_EQ(symlink("ring.dxf", folder.File("ring.dxf").c_str()), 0);
  EXPECT_NE(WriteWholeFile(folder.File("ring.dxf"), "x"), "");
}

TEST(WriteWholeFile, TakesTheLongestNames) {
  const support::TemporaryFolder folder;
  const std::string path = folder.File(std::string(251, 'x') + ".dxf");
  EXPECT_EQ(WriteWholeFile(path, "long"), "");
  EXPECT_EQ(support::ReadWhole(path), "long");
  EXPECT_EQ(FilesIn(folder), 1);
}

TEST(WriteWholeFile, RefusesAFolder) {
  const support::TemporaryFolder folder;
  const std::string path = folder.File("sub");
  ASSERT_TRUE(std::filesystem::create_directory(path));
  EXPECT_EQ(WriteWholeFile(path, "x"), "it cannot be written: it is a folder");
  EXPECT_EQ(FilesIn(folder), 1);
}

TEST(WriteWholeFile, NamesAMissingFolder) {
  const support::TemporaryFolder folder;
  EXPECT_EQ(WriteWholeFile(folder.File("none/a.dxf"), "x"),
            "it cannot be created: No such file or directory");
  EXPECT_EQ(WriteWholeFile("", "x"), "it has no name");
  EXPECT_EQ(FilesIn(folder), 0);
}

TEST(WriteWholeFile, NamesAPathThroughAFile) {
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("a.dxf", "before");
  EXPECT_EQ(WriteWholeFile(path + "/b.dxf", "x"), "it cannot be created: Not a directory");
  EXPECT_EQ(support::ReadWhole(path), "before");
}

TEST(WriteWholeFile, TellsOfAFullDisk) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "there is no /dev/full";
  EXPECT_EQ(WriteWholeFile("/dev/full", "x"), "it cannot be written: No space left on device");
  // Still the device, not a file in its place.
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST(WriteWholeFile, LeavesTheFileBeforeAndNoOtherWhereItFailsHalfWay) {
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("a.dxf", "before");
  {
    const FileSizeLimit limit(1000);
    EXPECT_EQ(WriteWholeFile(path, std::string(5000, 'x')), "it cannot be written: File too large");
    EXPECT_EQ(WriteWholeFile(folder.File("new"), std::string(5000, 'x')),
              "it cannot be written: File too large");
  }
  EXPECT_EQ(support::ReadWhole(path), "before");
  EXPECT_EQ(FilesIn(folder), 1);
}

}  // namespace
