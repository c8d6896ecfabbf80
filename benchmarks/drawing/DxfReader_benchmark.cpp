// Reading a drawing of many lines from memory.
#include "drawing/DxfReader.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

namespace {

std::string DrawingOfLines(std::int64_t lines) {
  std::string text =
      "0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n4\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
  char record[200];
  for (std::int64_t i = 0; i < lines; ++i) {
    const double x = 0.37 * static_cast<double>(i % 1000);
    const double y = 0.91 * static_cast<double>(i / 1000);
    std::snprintf(record, sizeof record,
                  "0\nLINE\n5\n%llX\n8\nOUTLINE\n10\n%.10f\n20\n%.10f\n11\n%.10f\n21\n%.10f\n",
                  static_cast<unsigned long long>(i + 16), x, y, x + 0.37, y);
    text += record;
  }
  return text + "0\nENDSEC\n0\nEOF\n";
}

void BM_ReadDrawingText_Lines(benchmark::State& state) {
  const std::string text = DrawingOfLines(state.range(0));
  for (auto _ : state) {
    const drawing::Drawing drawing = drawing::ReadDrawingText(text, "lines.dxf");
    if (drawing.elements.size() != static_cast<std::size_t>(state.range(0))) {
      state.SkipWithError("elements are missing");
    }
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(text.size()));
}

BENCHMARK(BM_ReadDrawingText_Lines)->Arg(2000)->Arg(200000)->Unit(benchmark::kMillisecond);

}  // namespace
