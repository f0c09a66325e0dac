#include <benchmark/benchmark.h>
#include <chrono>

#include "core/globals.h"
#include "data/gateway.h"
#include "doubles/child_process.h"
#include "doubles/negozio.h"

// Saves a second with several desks at once, each a process of its own, on the server that
// BOTTEGON_PROVA_SERVER names.

namespace {

constexpr int venditePerCassa = 40;

// A gate: who waits at it goes when it is opened.
class Cancello {
  public:
    Cancello() {
        if (pipe(mTubo) != 0) std::abort();
    }
    ~Cancello() { close(mTubo[0]); }
    void apri() { close(mTubo[1]); }
    // In a child.
    void attendi() {
        close(mTubo[1]);
        char niente;
        while (read(mTubo[0], &niente, 1) > 0) {
        }
    }

  private:
    int mTubo[2] = {};
};

// Rings up and saves sales; before the first it tells that it is ready, and waits for the gate.
int cassa(Negozio& n, int id, int pronto, Cancello& cancello) {
    gIDCassa = id;
    ContoDiProva& c = n.apriConto();
    if (write(pronto, "x", 1) != 1) return 1;
    cancello.attendi();
    for (int i = 0; i < venditePerCassa; ++i) {
        c.clic(c.vendita().txtCodProdotto);
        c.digita("A");
        c.invio();
        c.tasto(Qt::Key_F6);
        c.tasto(Qt::Key_F5);
        if (c.vendita().venditaModificata) return 1;
        c.tasto(Qt::Key_F2);
    }
    return 0;
}

double secondiDi(Negozio& n, int casse) {
    gAdo.chiudiConnessioniCalde();
    Cancello cancello;
    int pronti[2];
    if (pipe(pronti) != 0) std::abort();
    std::vector<pid_t> figli;
    for (int i = 1; i <= casse; ++i)
        figli.push_back(avviaFiglio([&, i] { return cassa(n, i, pronti[1], cancello); }));
    for (char c = 0; casse > 0; --casse) {
        if (read(pronti[0], &c, 1) != 1) std::abort();
    }
    const auto inizio = std::chrono::steady_clock::now();
    cancello.apri();
    for (const pid_t figlio : figli) {
        if (attendiFiglio(figlio) != 0) std::abort();
    }
    close(pronti[0]);
    close(pronti[1]);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
}

}  // namespace

static void salvataggiAlSecondo(benchmark::State& stato) {
    const auto casse = static_cast<int>(stato.range(0));
    double secondi = 0;
    double vendite = 0;
    for (auto _ : stato) {
        Negozio n;
        n.sql("UPDATE TipoDocumenti SET USAPREZZIIVA = 1");
        n.prodotto({.codice = "A", .listino1 = 10});
        const double durata = secondiDi(n, casse);
        stato.SetIterationTime(durata);
        secondi += durata;
        vendite += casse * venditePerCassa;
    }
    stato.counters["vendite_al_secondo"] = vendite / secondi;
}
BENCHMARK(salvataggiAlSecondo)
    ->Arg(1)
    ->Arg(2)
    ->Arg(4)
    ->Arg(8)
    ->Arg(16)
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
