// The cost of an entry in the call stack per procedure.
#include <benchmark/benchmark.h>

#include "errors/call_stack.h"

namespace {

void registeredProcedure(benchmark::State& state) {
  quillon::errors::CallStackList list;
  const quillon::errors::Procedure outer(list, "Main", "Main");
  for (auto _ : state) {
    const quillon::errors::Procedure running(list, "frmDXF", "befStart_Click");
    benchmark::DoNotOptimize(list);
  }
}
BENCHMARK(registeredProcedure);

}  // namespace
