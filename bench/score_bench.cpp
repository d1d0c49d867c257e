// Opening and saving a long-form score of 30,000 columns with all 13 tracks full, beside the physical limits
// of the same work: finding the separators of the same bytes with memchr, and formatting the same integers
// with std::to_chars.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdint>
#include <cstring>
#include <vector>

#include "files/sng_reader.h"
#include "files/sng_writer.h"
#include "full_score.h"

namespace {

using namespace melvane;

constexpr int lastColumn = 29'999;

const Studio& fullScore() {
    static const auto studio = bench::fullStudio(lastColumn);
    return *studio;
}

const std::string& fullText() {
    static const std::string text = writeSng(fullScore());
    return text;
}

void openLongScore(benchmark::State& state) {
    const auto target = bench::fullStudio(lastColumn);
    const auto& text = fullText();
    for (auto _ : state) {
        readSng(text, *target, openPoliFile);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(openLongScore)->Unit(benchmark::kMillisecond);

void findSeparators(benchmark::State& state) {
    const auto& text = fullText();
    for (auto _ : state) {
        std::size_t found = 0;
        const char* at = text.data();
        const char* const end = at + text.size();
        while (at < end) {
            const auto left = static_cast<std::size_t>(end - at);
            const char* line = static_cast<const char*>(std::memchr(at, '\n', left));
            if (line == nullptr) line = end;
            while (const auto* comma =
                       static_cast<const char*>(std::memchr(at, ',', static_cast<std::size_t>(line - at)))) {
                ++found;
                at = comma + 1;
            }
            ++found;
            at = line + 1;
        }
        benchmark::DoNotOptimize(found);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(findSeparators)->Unit(benchmark::kMillisecond);

void saveLongScore(benchmark::State& state) {
    const auto& studio = fullScore();
    for (auto _ : state) {
        const std::string text = writeSng(studio);
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fullText().size()));
}
BENCHMARK(saveLongScore)->Unit(benchmark::kMillisecond);

/// The integers of the file, in its order, without its headings.
std::vector<std::int16_t> fileNumbers() {
    std::vector<std::int16_t> numbers;
    const char* at = fullText().data();
    const char* const end = at + fullText().size();
    while (at < end) {
        std::int16_t number = 0;
        const auto parsed = std::from_chars(at, end, number);
        if (parsed.ec == std::errc()) numbers.push_back(number);
        at = parsed.ec == std::errc() ? parsed.ptr : at + 1;
    }
    return numbers;
}

void formatNumbers(benchmark::State& state) {
    const auto numbers = fileNumbers();
    std::vector<char> buffer(numbers.size() * 7);
    for (auto _ : state) {
        char* at = buffer.data();
        for (const auto number : numbers) {
            at = std::to_chars(at, buffer.data() + buffer.size(), number).ptr;
            *at++ = ',';
        }
        benchmark::DoNotOptimize(buffer.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fullText().size()));
}
BENCHMARK(formatNumbers)->Unit(benchmark::kMillisecond);

}  // namespace
