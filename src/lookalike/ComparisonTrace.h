// How the comparison tells its reasons: one line of text for each firing of the host's event, put
// together from literals and numbers.
#pragma once

#include <KTRCL_DataTypes/GXEvent.h>
#include <KTRCL_DataTypes/GXString.h>

#include <cstddef>
#include <string>
#include <utility>

namespace ktrcl_internal {

using Trace = GXEvent1Param<const GXString&>;

inline void AppendPiece(std::string& text, const char* literal) { text += literal; }
inline void AppendPiece(std::string& text, const GXString& piece) { text += piece.Str(); }
inline void AppendPiece(std::string& text, int number) { text += GXString(number, false).Str(); }
inline void AppendPiece(std::string& text, double number) { text += GXString(number, -1).Str(); }
inline void AppendPiece(std::string& text, std::size_t count) { text += GXString(count).Str(); }

/// Fires the pieces as one line. Nothing is built without a trace.
template <typename... Pieces>
void Tell(Trace* trace, const Pieces&... pieces) {
  if (trace == nullptr) return;
  std::string text;
  (AppendPiece(text, pieces), ...);
  trace->Fire(GXString(std::move(text)));
}

}  // namespace ktrcl_internal
