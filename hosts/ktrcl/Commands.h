// The commands of the program, and the exit statuses that scripts rely on.
#pragma once

#include <string>
#include <vector>

namespace ktrcl {

inline constexpr int kSame = 0;  ///< Also: every file was used.
inline constexpr int kDifferent = 1;
inline constexpr int kUsage = 2;
inline constexpr int kUnusable = 3;  ///< A file could not be used or written.

/// What `ktrcl info` was asked.
struct InfoRequest {
  std::vector<std::string> files;
  double curve = 0.01;  ///< Tolerance of lines and arcs in place of curves, millimetres.
  bool json = false;
};

/// What `ktrcl compare` was asked.
struct CompareRequest {
  std::string a;
  std::string b;
  std::string mode = "equal";  ///< "equal" or "may-differ".
  double curve = 0.01;         ///< Tolerance of lines and arcs in place of curves, millimetres.
  bool positions = false;
  bool trace = false;
  bool json = false;
  std::string svg;  ///< File to draw into; empty for none.
};

/// What `ktrcl dump` was asked.
struct DumpRequest {
  std::string file;
  double curve = 0.01;  ///< Tolerance of lines and arcs in place of curves, millimetres.
  bool json = false;    ///< Otherwise XML.
};

/// Tells of every file; unusable ones are named on standard error.
int RunInfo(const InfoRequest& request);

/// Compares two drawings and tells the verdict.
int RunCompare(const CompareRequest& request);

/// Writes out the part of a drawing as the recognition sees it.
int RunDump(const DumpRequest& request);

}  // namespace ktrcl
