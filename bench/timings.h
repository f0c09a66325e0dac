#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <vector>

// Single timings of a benchmark that uses manual time: the mean hides what an assistant feels, the slow ones.
class Tempi {
  public:
    template <class Azione>
    void misura(benchmark::State& stato, Azione&& azione) {
        const auto inizio = std::chrono::steady_clock::now();
        azione();
        const std::chrono::duration<double> durata = std::chrono::steady_clock::now() - inizio;
        stato.SetIterationTime(durata.count());
        mSecondi.push_back(durata.count());
    }

    // As counters in microseconds: the middle one, and the one that 99 of 100 stay under.
    void mostra(benchmark::State& stato) {
        stato.counters["p50_us"] = p50() * 1e6;
        stato.counters["p99_us"] = percentile(99) * 1e6;
    }
    // Seconds.
    double p50() { return percentile(50); }

  private:
    double percentile(size_t percento) {
        std::sort(mSecondi.begin(), mSecondi.end());
        return mSecondi.empty() ? 0
                                : mSecondi[std::min(mSecondi.size() - 1, mSecondi.size() * percento / 100)];
    }

    std::vector<double> mSecondi;
};
