#include <QApplication>

#include "bare_statements.h"
#include "core/globals.h"
#include "counter/recovery_journal.h"
#include "counter/ui/finestra_conti.h"
#include "counter/ui/frmMain.h"
#include "counter/ui/style.h"
#include "demo_till.h"
#include "sale/recall.h"
#include "timings.h"

// What the counter adds around a sale: recall, the switch of account, the recovery journal.

namespace {

constexpr int righeRichiamate = 100;
constexpr int catalogo = 1000;
constexpr int richiami = 100;
constexpr int cambi = 200;
constexpr int tasti = 500;

void vendi(ContoDiProva& conto, const TillDimostrativa& till, int righe) {
    for (int r = 0; r < righe; ++r) {
        conto.scansiona(till.barcode(r));
    }
}

// As many rows as told, copies of the first of `da`.
void allunga(FlexVB& g, const FlexVB& da, int righe) {
    for (int r = g.righe(); r <= righe; ++r) {
        g.aggiungi();
        for (int c = 0; c < numeroColonne; ++c) {
            const auto colonna = static_cast<Colonna>(c);
            g.scrivi(r, colonna, da.cella(1, colonna));
        }
    }
}

}  // namespace

// Beside its bare statements; the figure that counts is "rapporto", of the two middle times.
static void richiamoDiCentoRighe(benchmark::State& stato) {
    TillDimostrativa till(catalogo);
    Vendita& v = till.conto().vendita();
    vendi(till.conto(), till, righeRichiamate);
    till.conto().tasto(Qt::Key_F5);
    if (v.flxVB.ultima() != righeRichiamate) return stato.SkipWithError("the sale was not saved as rung up");
    const int rid = v.rid();
    const auto richiama = [&] { showVendita(v, rid, -1, 1, -1); };
    const auto istruzioni = IstruzioniNude::inUtf8(TillDimostrativa::istruzioni(richiama));
    IstruzioniNude nude(till.archivio());
    Tempi tempi, tempiNude;
    for (auto _ : stato) {
        tempiNude.misura(stato, [&] { nude.esegui(istruzioni); });
        tempi.misura(stato, richiama);
    }
    tempi.mostra(stato);
    stato.counters["nude_p50_us"] = tempiNude.p50() * 1e6;
    stato.counters["rapporto"] = tempi.p50() / tempiNude.p50();
    stato.counters["istruzioni"] = static_cast<double>(istruzioni.size());
}
BENCHMARK(richiamoDiCentoRighe)->UseManualTime()->Iterations(richiami)->Unit(benchmark::kMicrosecond);

// From one account to another in the real window, painted; both hold a sale of that many rows.
static void cambioDiConto(benchmark::State& stato) {
    TillDimostrativa till(catalogo);
    applicaStile(*qApp, {});
    FinestraConti finestra("Bottegon");
    finestra.resize(1280, 800);
    impostaFabbricaConti([&](int indice) { return new frmMain(indice, finestra, till.conto().operatore()); });
    vendi(till.conto(), till, 1);
    for (int conto : {1, 2}) {
        getConto(conto, true);
        allunga(gConti[static_cast<size_t>(conto)]->vendita().flxVB, till.conto().vendita().flxVB,
                static_cast<int>(stato.range(0)));
    }
    QApplication::processEvents();
    Tempi tempi;
    int davanti = 2;
    for (auto _ : stato) {
        davanti = 3 - davanti;
        tempi.misura(stato, [&] {
            getConto(davanti, false);
            QApplication::processEvents();
        });
    }
    tempi.mostra(stato);
    for (size_t conto : {1, 2})
        gConti[conto].reset();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
BENCHMARK(cambioDiConto)->Arg(1)->Arg(100)->UseManualTime()->Iterations(cambi)->Unit(benchmark::kMicrosecond);

// How long it takes to write down what the operator does to a sale of that many rows.
template <class Gesto>
static void misuraGiornale(benchmark::State& stato, TillDimostrativa& till, const Gesto& gesto) {
    FlexVB& righe = till.conto().vendita().flxVB;
    vendi(till.conto(), till, 1);
    allunga(righe, righe, static_cast<int>(stato.range(0)));
    const QTemporaryDir cartella;
    GiornaleVendite giornale(cartella.filePath("vendite_aperte.giornale"));
    giornale.annota();
    Tempi tempi;
    int i = 0;
    for (auto _ : stato) {
        gesto(++i);
        tempi.misura(stato, [&] { giornale.annota(); });
    }
    tempi.mostra(stato);
}

// One digit of a quantity.
static void giornalePerTasto(benchmark::State& stato) {
    TillDimostrativa till;
    misuraGiornale(stato, till, [&](int i) { till.conto().vendita().txtQta.testo(QString::number(i % 10)); });
}
BENCHMARK(giornalePerTasto)
    ->Arg(1)
    ->Arg(100)
    ->Arg(2000)
    ->UseManualTime()
    ->Iterations(tasti)
    ->Unit(benchmark::kMicrosecond);

// One row more, which is the most that a scan changes.
static void giornalePerScansione(benchmark::State& stato) {
    TillDimostrativa till(catalogo);
    misuraGiornale(stato, till, [&](int i) { till.conto().scansiona(till.barcode(i)); });
}
BENCHMARK(giornalePerScansione)
    ->Arg(1)
    ->Arg(2000)
    ->UseManualTime()
    ->Iterations(100)
    ->Unit(benchmark::kMicrosecond);
