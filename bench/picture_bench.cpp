// Makes the picture of a very long class out of its questions and its log.

#include <benchmark/benchmark.h>

#include "long_class.h"
#include "reports/class_picture.h"

namespace orvex {
namespace {

void MakePicture(benchmark::State& state) {
  const LongClass shown(6000, static_cast<unsigned>(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(MakeClassPicture({}, shown.episodes, &shown.log));
  }
}
BENCHMARK(MakePicture)
    ->ArgName("one changed in")
    ->Arg(1000)
    ->Arg(50)
    ->Arg(5)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvex
