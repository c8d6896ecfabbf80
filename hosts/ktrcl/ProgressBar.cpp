#include "ktrcl/ProgressBar.h"

#include "drawing/DxfTokens.h"
#include "drawing/Utf8Text.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <utility>

#include <unistd.h>

namespace ktrcl {

namespace {

constexpr std::size_t kCells = 20;
// One less than the narrowest terminals have, so that no line is ever broken.
constexpr std::size_t kColumns = 79;
constexpr auto kBetweenLooks = std::chrono::milliseconds(100);

double SteadySeconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double>(now).count();
}

// As many characters as there are columns for.
std::string Shortened(const std::string& text, std::size_t columns) {
  std::size_t end = 0;
  for (std::size_t column = 0; column < columns && end < text.size(); ++column) {
    drawing::NextCharacter(text, end);
  }
  return text.substr(0, end);
}

}  // namespace

ProgressBar::ProgressBar(std::size_t pieces, std::string label, double delay)
    : ProgressBar(pieces, std::move(label), std::cerr, &SteadySeconds, delay) {
  if (isatty(STDERR_FILENO) == 0) {
    stream_ = nullptr;
  } else {
    watcher_ = std::thread([this] { Watch(); });
  }
}

ProgressBar::ProgressBar(std::size_t pieces, std::string label, std::ostream& stream, Clock clock,
                         double delay)
    : pieces_(pieces),
      label_(std::move(label)),
      stream_(&stream),
      clock_(std::move(clock)),
      due_(clock_() + delay) {}

ProgressBar::~ProgressBar() {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    ending_ = true;
    Erase();
  }
  end_.notify_all();
  if (watcher_.joinable()) watcher_.join();
}

void ProgressBar::Watch() {
  std::unique_lock<std::mutex> lock(mutex_);
  while (!ending_) {
    if (!visible_) Draw();
    end_.wait_for(lock, kBetweenLooks);
  }
}

void ProgressBar::Advance(const std::string& name) {
  const std::lock_guard<std::mutex> lock(mutex_);
  begun_ = std::min(begun_ + 1, pieces_);
  name_ = drawing::ReadableText(name);
  hidden_ = false;
  Draw();
}

void ProgressBar::Refresh() {
  const std::lock_guard<std::mutex> lock(mutex_);
  Draw();
}

void ProgressBar::Clear() {
  const std::lock_guard<std::mutex> lock(mutex_);
  Erase();
  hidden_ = true;
}

void ProgressBar::Draw() {
  if (stream_ == nullptr || hidden_ || begun_ == 0 || clock_() < due_) return;
  // What is under way does not count as done.
  const std::size_t filled = (begun_ - 1) * kCells / pieces_;
  std::string line = label_ + " [" + std::string(filled, '#') + std::string(kCells - filled, '-') +
                     "] " + std::to_string(begun_) + " of " + std::to_string(pieces_) + "  " +
                     name_;
  line = Shortened(line, kColumns);
  // Carriage return in front, "erase to the end of the line" behind.
  *stream_ << "\r" << line << "\x1b[K" << std::flush;
  visible_ = true;
}

void ProgressBar::Erase() {
  if (!visible_) return;
  *stream_ << "\r\x1b[K" << std::flush;
  visible_ = false;
}

}  // namespace ktrcl
