#include <benchmark/benchmark.h>

#include "bare_statements.h"
#include "demo_till.h"
#include "sale/totals.h"

// What an assistant waits for, each beside its bare statements. The figure that counts is the ratio of the
// two in one run.

static void rigaDi(ContoDiProva& conto, const TillDimostrativa& till, int righe) {
    for (int r = 0; r < righe; ++r) {
        conto.scansiona(till.barcode(r));
    }
}

static void salvataggioDiDieciRighe(benchmark::State& stato) {
    TillDimostrativa till;
    for (auto _ : stato) {
        stato.PauseTiming();
        till.conto().tasto(Qt::Key_F2);
        rigaDi(till.conto(), till, 10);
        stato.ResumeTiming();
        till.conto().tasto(Qt::Key_F5);
    }
}
BENCHMARK(salvataggioDiDieciRighe)->Unit(benchmark::kMillisecond)->Iterations(100);

static void salvataggioIstruzioniNude(benchmark::State& stato) {
    TillDimostrativa till;
    rigaDi(till.conto(), till, 10);
    const auto istruzioni =
        IstruzioniNude::inUtf8(TillDimostrativa::istruzioni([&] { till.conto().tasto(Qt::Key_F5); }));
    IstruzioniNude nude(till.archivio());
    for (auto _ : stato) {
        nude.esegui(istruzioni);
    }
}
BENCHMARK(salvataggioIstruzioniNude)->Unit(benchmark::kMillisecond)->Iterations(100);

// 2,000 rows that are copies of one.
static Vendita& duemilaRighe(TillDimostrativa& till) {
    Vendita& v = till.conto().vendita();
    rigaDi(till.conto(), till, 1);
    for (int r = 2; r <= 2000; ++r) {
        v.flxVB.aggiungi();
        for (int c = 0; c < numeroColonne; ++c) {
            v.flxVB.scrivi(r, static_cast<Colonna>(c), v.flxVB.cella(1, static_cast<Colonna>(c)));
        }
    }
    return v;
}

// As at a scan: one row has changed since the last time.
static void totaliDiDuemilaRighe(benchmark::State& stato) {
    TillDimostrativa till;
    Vendita& v = duemilaRighe(till);
    bool pari = false;
    for (auto _ : stato) {
        pari = !pari;
        v.flxVB.scrivi(2000, Colonna::Quantita, pari ? "2,00" : "1,00");
        calcolaTotali(v, false);
    }
}
BENCHMARK(totaliDiDuemilaRighe)->Unit(benchmark::kMicrosecond);

// As after a discount on the whole sale: all of them have.
static void totaliDiDuemilaRigheCambiate(benchmark::State& stato) {
    TillDimostrativa till;
    Vendita& v = duemilaRighe(till);
    bool pari = false;
    for (auto _ : stato) {
        stato.PauseTiming();
        pari = !pari;
        for (int r = 1; r <= 2000; ++r) {
            v.flxVB.scrivi(r, Colonna::Quantita, pari ? "2,00" : "1,00");
        }
        stato.ResumeTiming();
        calcolaTotali(v, false);
    }
}
BENCHMARK(totaliDiDuemilaRigheCambiate)->Unit(benchmark::kMicrosecond);
