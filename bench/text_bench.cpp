// A long text's character edges, which a text box measures for its caret and clicks: one
// layout, so twice the text takes twice the time.
#include <benchmark/benchmark.h>

#include <string>

#include "common/font.hpp"
#include "host/standard_text.hpp"

using namespace tarnbrook;

static void BM_Text_CharacterEdges(benchmark::State& state) {
  Font font;
  font.Name = "DejaVu Sans";
  font.Size = 8.25f;
  std::string text;
  while (text.size() < size_t(state.range(0)))
    text += "Order 1234 shipped \xC3\xA9t\xC3\xA9, ";
  text.resize(size_t(state.range(0)));
  for (auto _ : state)
    benchmark::DoNotOptimize(CharacterEdges(font, text));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_Text_CharacterEdges)->Arg(8000)->Arg(16000)->Complexity();
