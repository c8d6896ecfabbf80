// A file that is there whole or not at all: it is written under another name and renamed.
#include "drawing/DxfWriter.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace drawing {

namespace {

constexpr int kMostNames = 1000;
constexpr int kMostLinks = 40;          // As many as the system itself follows.
constexpr std::size_t kLongName = 200;  // Of 255 bytes that a name may have.
constexpr mode_t kNewFile = 0666;       // Less what the user's mask takes away.
constexpr mode_t kPermissions = 07777;

std::string Cause(const char* what) { return std::string(what) + ": " + std::strerror(errno); }

// An open file that is closed once.
class OpenFile {
 public:
  OpenFile() = default;
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { Close(); }

  bool Open(const std::string& path, int flags) {
    file_ = open(path.c_str(), flags | O_WRONLY | O_CLOEXEC, kNewFile);
    return file_ >= 0;
  }
  bool Close() {
    const int file = file_;
    file_ = -1;
    return file < 0 || close(file) == 0;
  }
  bool Write(const std::string& bytes) {
    for (std::size_t done = 0; done < bytes.size();) {
      const ssize_t count = write(file_, bytes.data() + done, bytes.size() - done);
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) return false;
      done += static_cast<std::size_t>(count);
    }
    return true;
  }
  // Files that cannot be flushed, pipes for one, have nothing to lose.
  bool Flush() { return fsync(file_) == 0 || errno == EINVAL || errno == ENOTSUP; }
  bool SetPermissions(mode_t mode) { return fchmod(file_, mode) == 0; }

 private:
  int file_ = -1;
};

// Opens a new file beside `path`; `name` is its name, short where that of the file is very long.
bool OpenBeside(const std::string& path, OpenFile& file, std::string& name) {
  const std::string folder = path.substr(0, path.rfind('/') + 1);
  const bool isLong = path.size() - folder.size() > kLongName;
  const std::string beginning = (isLong ? folder + "ktrcl" : path) + ".";
  for (int i = 0; i < kMostNames; ++i) {
    name = beginning + std::to_string(getpid()) + "-" + std::to_string(i) + ".part";
    if (file.Open(name, O_CREAT | O_EXCL)) return true;
    if (errno != EEXIST) return false;
  }
  return false;
}

// Devices and pipes are no files that could be replaced.
std::string WriteInto(const std::string& path, const std::string& bytes) {
  OpenFile file;
  if (!file.Open(path, 0)) return Cause("it cannot be opened for writing");
  if (!file.Write(bytes) || !file.Close()) return Cause("it cannot be written");
  return std::string();
}

// A link stays one: what it leads to is replaced, or made where it leads to nothing yet.
std::string BehindLinks(const std::string& path) {
  std::filesystem::path behind = path;
  std::error_code problem;
  for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(behind, problem); ++i) {
    const std::filesystem::path target = std::filesystem::read_symlink(behind, problem);
    if (problem) break;
    behind = behind.parent_path() / target;
  }
  return behind.string();
}

std::string WriteAndRename(const std::string& path, const std::string& bytes,
                           const struct stat* before) {
  OpenFile file;
  std::string name;
  if (!OpenBeside(path, file, name)) return Cause("it cannot be created");
  std::string problem;
  if (before != nullptr && !file.SetPermissions(before->st_mode & kPermissions)) {
    problem = Cause("its permissions cannot be kept");
  } else if (!file.Write(bytes) || !file.Flush() || !file.Close()) {
    problem = Cause("it cannot be written");
  } else if (std::rename(name.c_str(), path.c_str()) != 0) {
    problem = Cause("it cannot be put in its place");
  }
  if (!problem.empty()) unlink(name.c_str());
  return problem;
}

}  // namespace

std::string WriteWholeFile(const std::string& path, const std::string& bytes) {
  if (path.empty()) return "it has no name";
  struct stat before = {};
  if (stat(path.c_str(), &before) != 0) {
    if (errno != ENOENT) return Cause("it cannot be created");
    return WriteAndRename(BehindLinks(path), bytes, nullptr);
  }
  if (S_ISDIR(before.st_mode)) return "it cannot be written: it is a folder";
  if (!S_ISREG(before.st_mode)) return WriteInto(path, bytes);
  return WriteAndRename(BehindLinks(path), bytes, &before);
}

}  // namespace drawing
