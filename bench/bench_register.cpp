#include <benchmark/benchmark.h>

#include "demo_till.h"
#include "instant_register.h"

// What the register costs: beside salvataggioDiDieciRighe, the same save that hands its receipt over. Nothing
// waits for the register, so the printing itself is not in it.
static void salvataggioDiDieciRigheConScontrino(benchmark::State& stato) {
    TillDimostrativa till;
    RegistratoreIstantaneo registratore;
    for (auto _ : stato) {
        stato.PauseTiming();
        till.conto().tasto(Qt::Key_F2);
        for (int r = 0; r < 10; ++r) {
            till.conto().scansiona(till.barcode(r));
        }
        stato.ResumeTiming();
        till.conto().tasto(Qt::Key_F5);
        stato.PauseTiming();
        registratore.stampaTutto();
        stato.ResumeTiming();
    }
}
BENCHMARK(salvataggioDiDieciRigheConScontrino)->Unit(benchmark::kMillisecond)->Iterations(100);

static QString scontrinoDiDieciRighe() {
    QString testo;
    for (int r = 0; r < 10; ++r) {
        testo += QString("REP80090000%1¤Vite autofilettante 4x40¤2¤1.5¤1¤22¤¥").arg(r);
    }
    return testo + "TOT30¤";
}

// The part of it that is the link's: framing, queue, first send.
static void consegnaDiUnoScontrino(benchmark::State& stato) {
    RegistratoreIstantaneo registratore;
    const QString testo = scontrinoDiDieciRighe();
    for (auto _ : stato) {
        registratore.collegamento().sendData(testo);
        stato.PauseTiming();
        registratore.stampaTutto();
        stato.ResumeTiming();
    }
}
BENCHMARK(consegnaDiUnoScontrino)->Unit(benchmark::kMicrosecond);

// Frames per second with a register that answers at once.
static void corniciAlSecondo(benchmark::State& stato) {
    RegistratoreIstantaneo registratore;
    const QString testo = scontrinoDiDieciRighe();
    for (auto _ : stato) {
        registratore.collegamento().sendData(testo);
        registratore.stampaTutto();
    }
    stato.SetItemsProcessed(stato.iterations() * 12);
}
BENCHMARK(corniciAlSecondo)->Unit(benchmark::kMicrosecond);
