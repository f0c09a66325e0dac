#pragma once

#include <benchmark/benchmark.h>
#include <functional>
#include <memory>
#include <vector>

#include "bare_statements.h"
#include "demo_till.h"

// A till and a copy of its archive. What the till writes is written to the copy too, by the same statements
// on SQLite's own interface in the same transaction: both stay alike, and the two times are comparable.
class LibriGemelli {
  public:
    // Without `misure` the demo shop.
    explicit LibriGemelli(const MisureNegozio* misure = nullptr);

    ContoDiProva& conto() { return mTill->conto(); }
    Vendita& vendita() { return conto().vendita(); }

    // The day's next sale, of so many rows, on the screen.
    void prepara(int righe);
    // The sale that was just saved, read back.
    void richiama();
    // Writes to both, unmeasured.
    void scrivi(const std::function<bool()>& azione) { esegui(azione); }
    // Writes to both; the till's time is the iteration's.
    void misura(benchmark::State& stato, const std::function<bool()>& azione);
    // Counters: both times, the middle of the ratios, by the clock and by the processor, statements, and the
    // share of the pauses that the rules asked for.
    void mostra(benchmark::State& stato, int righe);

  private:
    struct Tempi {
        double till, nude;        // seconds
        double tillCpu, nudeCpu;  // of the processor, which other work on the machine does not lengthen
        double istruzioni, pause;
    };
    Tempi esegui(const std::function<bool()>& azione);

    std::unique_ptr<TillDimostrativa> mTill;
    QTemporaryDir mCartella;
    std::unique_ptr<IstruzioniNude> mNude;
    std::vector<Tempi> mTempi;
    int mDaBarcode = 0;
};
