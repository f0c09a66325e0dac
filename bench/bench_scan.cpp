#include <benchmark/benchmark.h>

#include "bare_statements.h"
#include "core/globals.h"
#include "demo_till.h"
#include "timings.h"

// From the Enter of a scan to row and totals, in a shop of 100,000 products and beside rows that stand there
// already; and the archive's share of it.

namespace {

constexpr int prodottiGrande = 100000;
constexpr int scansioni = 600;
constexpr int perVendita = 20;  // scans before the sale is made anew, so that it stays as long as told

// Rows of other products, copied from one that was scanned.
void riempi(Vendita& v, int righe) {
    for (int r = 2; r <= righe; ++r) {
        v.flxVB.aggiungi();
        for (int c = 0; c < numeroColonne; ++c) {
            v.flxVB.scrivi(r, static_cast<Colonna>(c), v.flxVB.cella(1, static_cast<Colonna>(c)));
        }
        v.flxVB.scrivi(r, Colonna::IdProdotto, QString::number(-r));
    }
}

void nuovaVendita(TillDimostrativa& till, int righe) {
    till.conto().vendita().venditaModificata = false;
    till.conto().tasto(Qt::Key_F2);
    if (righe < 1) return;
    till.conto().scansiona(till.barcode(0));
    riempi(till.conto().vendita(), righe);
}

}  // namespace

static void scansioneFinoAllaRiga(benchmark::State& stato) {
    TillDimostrativa till(prodottiGrande);
    const auto righe = static_cast<int>(stato.range(0));
    Tempi tempi;
    int i = 0;
    for (auto _ : stato) {
        if (i % perVendita == 0) nuovaVendita(till, righe);
        till.conto().digita(gLaserChar + till.barcode(++i));
        tempi.misura(stato, [&] { till.conto().invio(); });
    }
    tempi.mostra(stato);
    const auto istruzioni =
        TillDimostrativa::istruzioni([&] { till.conto().scansiona(till.barcode(i + 1)); });
    stato.counters["istruzioni"] = static_cast<double>(istruzioni.size());
}
BENCHMARK(scansioneFinoAllaRiga)
    ->Arg(1)
    ->Arg(100)
    ->Arg(2000)
    ->UseManualTime()
    ->Iterations(scansioni)
    ->Unit(benchmark::kMicrosecond);

static void scansioneIstruzioniNude(benchmark::State& stato) {
    TillDimostrativa till(prodottiGrande);
    std::vector<std::vector<QByteArray>> lette;
    for (int i = 1; i <= scansioni; ++i) {
        if (i % perVendita == 1) nuovaVendita(till, 1);
        till.conto().digita(gLaserChar + till.barcode(i));
        lette.push_back(IstruzioniNude::inUtf8(TillDimostrativa::istruzioni([&] { till.conto().invio(); })));
    }
    IstruzioniNude nude(till.archivio());
    Tempi tempi;
    size_t i = 0;
    for (auto _ : stato) {
        tempi.misura(stato, [&] { nude.esegui(lette[i]); });
        ++i;
    }
    tempi.mostra(stato);
}
BENCHMARK(scansioneIstruzioniNude)->UseManualTime()->Iterations(scansioni)->Unit(benchmark::kMicrosecond);
