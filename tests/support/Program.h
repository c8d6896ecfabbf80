// Runs the program under test as a person would, and catches what it says.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace support {

/// What one run gave back.
struct ProgramRun {
  int status = -1;     ///< Exit status; -1 when the program did not end by itself.
  std::string output;  ///< Standard output.
  std::string errors;  ///< Standard error.
};

/// A folder of its own, removed with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "ktrcl-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::abort();
    path_ = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string File(const std::string& name) const { return (path_ / name).string(); }
  std::string Write(const std::string& name, const std::string& text) const {
    std::ofstream(File(name), std::ios::binary) << text;
    return File(name);
  }

 private:
  std::filesystem::path path_;
};

inline std::string ReadWhole(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Runs `program` with arguments that the shell reads.
inline ProgramRun RunProgram(const std::string& program, const std::string& arguments) {
  const TemporaryFolder folder;
  const std::string command = "\"" + program + "\" " + arguments + " >\"" + folder.File("out") +
                              "\" 2>\"" + folder.File("err") + "\" </dev/null";
  const int result = std::system(command.c_str());
  ProgramRun run;
  if (WIFEXITED(result)) run.status = WEXITSTATUS(result);
  run.output = ReadWhole(folder.File("out"));
  run.errors = ReadWhole(folder.File("err"));
  return run;
}

}  // namespace support
