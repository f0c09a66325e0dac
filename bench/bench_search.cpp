#include <benchmark/benchmark.h>

#include "demo_till.h"
#include "kit/search.h"

// The search screen over 100,000 products: what an assistant waits for between the last letter and the page.
// Iterations are fixed, because each run makes its shop.

namespace {

constexpr int prodotti = 100000;
constexpr int ripetizioni = 200;

RichiestaRicerca richiesta() {
    return {.sql =
                "SELECT TOP 9 RID, CODICE, DESCRIZIONE FROM Prodotti "
                "WHERE DISABILITATO = 0 AND FK_SOSTITUITO IS NULL",
            .campoChiave = "DESCRIZIONE"};
}

void cerca(benchmark::State& stato, int colonna, bool ovunque, const char* testo) {
    TillDimostrativa till(prodotti);
    Ricerca ricerca(richiesta(), till.conto().operatore());
    ricerca.scegliColonna(colonna);
    if (ovunque) ricerca.cambiaOvunque();
    ricerca.txtRicerca.testo(testo);
    for (auto _ : stato) {
        ricerca.cmdInvio();
    }
    if (ricerca.pctNessuna.visibile()) stato.SetLabel("nessuna riga");
}

void sfoglia(benchmark::State& stato, bool avanti) {
    TillDimostrativa till(prodotti);
    RichiestaRicerca pagine = richiesta();
    pagine.discendente = !avanti;
    Ricerca ricerca(pagine, till.conto().operatore());
    for (auto _ : stato) {
        ricerca.cmdDown();
    }
}

}  // namespace

static void ricercaApertura(benchmark::State& stato) {
    TillDimostrativa till(prodotti);
    for (auto _ : stato) {
        const Ricerca ricerca(richiesta(), till.conto().operatore());
        benchmark::DoNotOptimize(ricerca.righe());
    }
}

#define MISURA Unit(benchmark::kMicrosecond)->Iterations(ripetizioni)
BENCHMARK(ricercaApertura)->MISURA;
BENCHMARK_CAPTURE(cerca, unaLettera, 3, false, "v")->MISURA;
BENCHMARK_CAPTURE(cerca, inizioDescrizione, 3, false, "vite m")->MISURA;
BENCHMARK_CAPTURE(cerca, inizioSenzaRighe, 3, false, "qqqqqq")->MISURA;
BENCHMARK_CAPTURE(cerca, inizioCodice, 2, false, "vit016")->MISURA;
BENCHMARK_CAPTURE(cerca, unaLetteraDelCodice, 2, false, "v")->MISURA;
BENCHMARK_CAPTURE(cerca, ovunque, 3, true, "brunita m5")->MISURA;
BENCHMARK_CAPTURE(cerca, ovunqueSenzaRighe, 3, true, "qqqqqq")->MISURA;
BENCHMARK_CAPTURE(sfoglia, paginaDopoPagina, true)->MISURA;
BENCHMARK_CAPTURE(sfoglia, dallaFine, false)->MISURA;
#undef MISURA
