// Parsing and formatting numbers, compared with the standard library.

#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "base/number_text.h"
#include "dice.h"
#include "eagle/number_format.h"

namespace quillon::bench {
namespace {

constexpr std::size_t kCount = 4096;

/// How many digits the numbers have.
enum Digits : std::int64_t { kHalves, kSixDecimals, kAllDigits, kAsInDrawings };

double makeValue(Dice& dice, std::int64_t digits) {
  const double value = dice.between(-800.0, 800.0);
  std::array<char, 40> text{};
  switch (digits) {
    case kHalves:
      return static_cast<double>(static_cast<int>(value * 2.0)) / 2.0;
    case kSixDecimals:
      std::snprintf(text.data(), text.size(), "%.6f", value);
      return std::strtod(text.data(), nullptr);
    case kAllDigits:
      return value;
    default:
      return dice.measure(-800.0, 800.0);
  }
}

std::vector<double> makeValues(std::int64_t digits) {
  Dice dice(20);
  std::vector<double> values;
  for (std::size_t i = 0; i < kCount; ++i) values.push_back(makeValue(dice, digits));
  return values;
}

std::vector<std::string> makeTexts(std::int64_t digits) {
  std::vector<std::string> texts;
  for (const double value : makeValues(digits)) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), digits == kHalves ? "%.1f" : "%.16g", value);
    texts.emplace_back(text.data());
  }
  return texts;
}

double readOwn(const std::string& text) { return base::numberValue(text); }
double readFromChars(const std::string& text) {
  double value = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}
double readStrtod(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

template <double (*read)(const std::string&)>
void parse(benchmark::State& state) {
  const std::vector<std::string> texts = makeTexts(state.range(0));
  for (auto _ : state) {
    double sum = 0.0;
    for (const std::string& text : texts) sum += read(text);
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kCount));
}

char* writeOwn(double value, char* out) { return eagle::formatNumber(value, out); }
char* writeToChars(double value, char* out) {
  return std::to_chars(out, out + eagle::kNumberRoom, value, std::chars_format::fixed, 7).ptr;
}
char* writeSnprintf(double value, char* out) {
  return out + std::snprintf(out, eagle::kNumberRoom, "%.7f", value);
}

template <char* (*write)(double, char*)>
void format(benchmark::State& state) {
  const std::vector<double> values = makeValues(state.range(0));
  std::array<char, eagle::kNumberRoom> text{};
  for (auto _ : state) {
    for (const double value : values) {
      char* const end = write(value, text.data());
      benchmark::DoNotOptimize(end);
      benchmark::ClobberMemory();
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kCount));
}

void allDigits(benchmark::internal::Benchmark* bench) {
  bench->ArgName("digits")->DenseRange(kHalves, kAsInDrawings);
}

BENCHMARK_TEMPLATE(parse, readOwn)->Apply(allDigits);
BENCHMARK_TEMPLATE(parse, readFromChars)->Apply(allDigits);
BENCHMARK_TEMPLATE(parse, readStrtod)->Apply(allDigits);
BENCHMARK_TEMPLATE(format, writeOwn)->Apply(allDigits);
BENCHMARK_TEMPLATE(format, writeToChars)->Apply(allDigits);
BENCHMARK_TEMPLATE(format, writeSnprintf)->Apply(allDigits);

}  // namespace
}  // namespace quillon::bench
