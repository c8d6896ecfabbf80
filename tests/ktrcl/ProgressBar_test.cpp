#include "ktrcl/ProgressBar.h"
#include "support/Program.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include <fcntl.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using ktrcl::ProgressBar;

// A bar on a text, by a clock that stands until it is set.
struct Shown {
  std::ostringstream text;
  double seconds = 100.0;

  ProgressBar Bar(std::size_t pieces, const std::string& label) {
    return ProgressBar(pieces, label, text, [this] { return seconds; });
  }
  std::string Taken() {
    std::string taken = text.str();
    text.str("");
    return taken;
  }
};

const char* const kErased = "\r\x1b[K";

TEST(ProgressBar, ShowsNothingWithinASecond) {
  Shown shown;
  {
    ProgressBar bar = shown.Bar(2, "heal");
    bar.Advance("a.dxf");
    shown.seconds += 0.999;
    bar.Refresh();
    bar.Advance("b.dxf");
    bar.Clear();
  }
  EXPECT_EQ(shown.Taken(), "");
}

TEST(ProgressBar, ShowsPiecesThatAreDoneAfterASecond) {
  Shown shown;
  ProgressBar bar = shown.Bar(4, "heal");
  bar.Advance("a.dxf");
  shown.seconds += 1.0;
  bar.Refresh();
  EXPECT_EQ(shown.Taken(), "\rheal [--------------------] 1 of 4  a.dxf\x1b[K");
  bar.Advance("b.dxf");
  EXPECT_EQ(shown.Taken(), "\rheal [#####---------------] 2 of 4  b.dxf\x1b[K");
  bar.Advance("c.dxf");
  bar.Advance("d.dxf");
  EXPECT_NE(shown.Taken().find("[###############-----] 4 of 4  d.dxf"), std::string::npos);
}

TEST(ProgressBar, TakesItselfAwayAtTheEnd) {
  Shown shown;
  {
    ProgressBar bar = shown.Bar(1, "heal");
    shown.seconds += 2.0;
    bar.Advance("a.dxf");
    shown.Taken();
  }
  EXPECT_EQ(shown.Taken(), kErased);
}

TEST(ProgressBar, StaysAwayUntilTheNextPieceOnceCleared) {
  Shown shown;
  ProgressBar bar = shown.Bar(2, "heal");
  shown.seconds += 2.0;
  bar.Advance("a.dxf");
  shown.Taken();
  bar.Clear();
  EXPECT_EQ(shown.Taken(), kErased);
  bar.Refresh();
  bar.Clear();
  EXPECT_EQ(shown.Taken(), "");
  bar.Advance("b.dxf");
  EXPECT_NE(shown.Taken().find("2 of 2  b.dxf"), std::string::npos);
}

TEST(ProgressBar, FitsALineAndHoldsNoControlCharacters) {
  Shown shown;
  ProgressBar bar = shown.Bar(1, "heal");
  shown.seconds += 2.0;
  std::string name = "a\nb\x1b";
  for (int i = 0; i < 200; ++i) name += "\xC3\xA4";
  bar.Advance(name);
  const std::string line = shown.Taken();
  // "heal [--------------------] 1 of 1  a?b?" takes 40 columns; 39 letters of
  // two bytes each fill 79.
  std::string letters;
  for (int i = 0; i < 39; ++i) letters += "\xC3\xA4";
  EXPECT_EQ(line, "\rheal [--------------------] 1 of 1  a?b?" + letters + "\x1b[K");
}

TEST(ProgressBar, BearsMorePiecesThanAnnouncedAndNone) {
  Shown shown;
  shown.seconds = 0.0;
  ProgressBar none = shown.Bar(0, "heal");
  ProgressBar one = shown.Bar(1, "heal");
  shown.seconds = 5.0;
  none.Advance("a.dxf");
  EXPECT_EQ(shown.Taken(), "");
  one.Advance("a.dxf");
  one.Advance("b.dxf");
  EXPECT_NE(shown.Taken().find("1 of 1  b.dxf"), std::string::npos);
}

// ----- On standard error

// Runs a bar without delay in a process of its own, with its standard error on `file`.
void RunBarOn(int file) {
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    dup2(file, STDERR_FILENO);
    {
      ProgressBar bar(2, "heal", 0.0);
      bar.Advance("a.dxf");
      bar.Advance("b.dxf");
    }
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

TEST(ProgressBar, ShowsOnATerminal) {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) {
    GTEST_SKIP() << "there is no pseudo-terminal here";
  }
  const int far = open(ptsname(terminal), O_RDWR | O_NOCTTY);
  ASSERT_GE(far, 0);
  RunBarOn(far);
  char bytes[4096];
  const ssize_t count = read(terminal, bytes, sizeof bytes);
  close(far);
  close(terminal);
  ASSERT_GT(count, 0);
  const std::string shown(bytes, static_cast<std::size_t>(count));
  EXPECT_NE(shown.find("2 of 2  b.dxf"), std::string::npos) << shown;
  EXPECT_EQ(shown.rfind(kErased), shown.size() - 4) << shown;
}

TEST(ProgressBar, ShowsNothingInAFile) {
  const support::TemporaryFolder folder;
  const std::string path = folder.File("errors");
  const int file = open(path.c_str(), O_WRONLY | O_CREAT, 0600);
  ASSERT_GE(file, 0);
  RunBarOn(file);
  close(file);
  EXPECT_EQ(support::ReadWhole(path), "");
}

}  // namespace
