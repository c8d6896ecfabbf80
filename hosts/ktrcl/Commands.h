// The commands of the program, and the exit statuses that scripts rely on.
#pragma once

#include "ktrcl/Reading.h"

#include <cstddef>
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
  ReadingRequest reading;
  bool json = false;
};

/// What `ktrcl check` was asked.
struct CheckRequest {
  std::vector<std::string> files;
  ReadingRequest reading;
  double tiny = 0.01;  ///< Elements shorter than this, in mm, are told.
  bool all = false;    ///< Every finding, however many there are of a kind.
  bool json = false;
};

/// What `ktrcl compare` was asked.
struct CompareRequest {
  std::string a;
  std::string b;
  std::string mode = "equal";  ///< "equal" or "may-differ".
  ReadingRequest reading;
  double gap = 0.1;       ///< Loose ends farther apart, in mm, stay so; 0 for both as drawn.
  std::size_t part = 0;   ///< Counted from 1; 0 for the whole drawing.
  std::size_t partB = 0;  ///< Of B, where it is another one; 0 for the same.
  bool mirror = false;    ///< Compare with the mirror image of B as well.
  bool positions = false;
  bool trace = false;
  bool json = false;
  std::string svg;     ///< File to draw into; empty for none.
  std::string report;  ///< File for an account as HTML; empty for none.
};

/// What `ktrcl parts` was asked.
struct PartsRequest {
  std::string file;
  ReadingRequest reading;
  double gap = 0.1;        ///< Loose ends farther apart, in mm, stay so; 0 for as drawn.
  std::string split;       ///< Folder for a drawing per part; empty for none.
  bool r12 = false;        ///< Version of these drawings.
  bool overwrite = false;  ///< Whether they may replace files.
  bool json = false;
};

/// What `ktrcl heal` was asked.
struct HealRequest {
  std::string in;
  std::string out;
  ReadingRequest reading;
  double gap = 0.1;     ///< Loose ends farther apart, in mm, stay so.
  bool cleanUp = true;  ///< Also tidy closed contours.
  bool r12 = false;     ///< R12 instead of R2000.
  bool json = false;
  std::string report;  ///< File for an account as HTML; empty for none.
};

/// What `ktrcl dump` was asked.
struct DumpRequest {
  std::string file;
  std::size_t part = 0;  ///< Counted from 1; 0 for the whole drawing.
  ReadingRequest reading;
  bool json = false;  ///< Otherwise XML.
};

/// Tells of every file; unusable ones are named on standard error.
int RunInfo(const InfoRequest& request);

/// Tells what is wrong with every file, and changes nothing. Unusable files are named on standard
/// error, and the others are looked at all the same.
///
/// Returns: 0 where all are clean, 1 where something was found, 3 where a file is unusable.
int RunCheck(const CheckRequest& request);

/// Compares two drawings and tells the verdict.
///
/// Where a part was chosen, a drawing that holds only one takes that one, whatever its number.
///
/// Returns: kSame or kDifferent by the library's verdict, on the mirror image too where that was
///   asked for; the verdict by places stands beside it and decides nothing.
int RunCompare(const CompareRequest& request);

/// Tells the parts of a drawing, and writes a drawing of each where asked to. A file that is there
/// already is replaced only where asked to; otherwise none is written.
///
/// Returns: 0 where everything is in a part, 1 where something is in none (LeavesNothingOut), 3
///   where there is no part at all or a file could not be written.
int RunParts(const PartsRequest& request);

/// Heals a drawing, writes it to another file and tells every change.
///
/// Returns: 0 where it was written, also with contours that are still open; 3 where the drawing
///   cannot be used, or a file would overwrite the drawing or cannot be written.
int RunHeal(const HealRequest& request);

/// Writes out the part of a drawing as the recognition sees it.
int RunDump(const DumpRequest& request);

}  // namespace ktrcl
