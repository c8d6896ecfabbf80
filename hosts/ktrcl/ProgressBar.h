// A bar that shows on a terminal how far long work has come.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <mutex>
#include <string>
#include <thread>

namespace ktrcl {

/// Shows pieces of work as they begin: "heal [########------] 2 of 4  part.dxf". The bar appears on
/// standard error where that is a terminal, nowhere else, and only once the work has taken longer
/// than a second; short work shows none. The destructor takes it away.
///
///     ProgressBar progress(files.size(), "info");
///     for (const std::string& file : files) {
///       progress.Advance(file);
///       const Result result = WorkOn(file);
///       progress.Clear();  // before anything else is printed
///       std::cout << result;
///     }
class ProgressBar {
 public:
  /// Seconds from any beginning.
  using Clock = std::function<double()>;

  /// On standard error. A piece that takes long by itself is shown while it is under way.
  ProgressBar(std::size_t pieces, std::string label, double delay = 1.0);

  /// On any stream, terminal or not, by any clock; drawn when something is called and at no other
  /// time. The stream must outlive the bar.
  ProgressBar(std::size_t pieces, std::string label, std::ostream& stream, Clock clock,
              double delay = 1.0);

  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar();

  /// The next piece begins; the one before, if any, is done.
  void Advance(const std::string& name);

  /// Draws the bar where the delay is over.
  void Refresh();

  /// Takes the bar away until the next piece begins, so that a line may be printed.
  void Clear();

 private:
  void Watch();
  void Draw();
  void Erase();

  std::size_t pieces_;
  std::string label_;
  std::ostream* stream_;  // Null where nothing is to be shown.
  Clock clock_;
  double due_ = 0.0;  // When it may be seen first.
  std::size_t begun_ = 0;
  std::string name_;
  bool visible_ = false;
  bool hidden_ = false;  // Until the next piece begins.
  bool ending_ = false;
  std::mutex mutex_;
  std::condition_variable end_;
  std::thread watcher_;  // Looks at the clock while a piece is under way.
};

}  // namespace ktrcl
