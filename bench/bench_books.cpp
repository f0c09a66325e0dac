#include "core/globals.h"
#include "postings/delete_sale.h"
#include "postings/save_sale.h"
#include "twin_books.h"

// From begin to commit of a save, a second save and a deletion, beside the same statements alone. The figure
// that counts is "rapporto". Run with TMPDIR on a memory disk it is the program's own share that shows; on a
// real disk the commit's wait lies over both.

namespace {

constexpr int ripetizioni = 60;
constexpr int righeRisalvate = 10;
constexpr MisureNegozio milioneDiRighe{.prodotti = 20000, .clienti = 2000, .righe = 1000000};

bool salva(LibriGemelli& libri) {
    return salvaVendita(libri.vendita(), false, -1);
}

bool cancella(LibriGemelli& libri) {
    return cancellaVendita(libri.vendita(), libri.vendita().rid(), false);
}

// The day's document stays as long as it was.
void togli(LibriGemelli& libri) {
    libri.richiama();
    libri.scrivi([&] { return cancella(libri); });
}

void salvataggi(benchmark::State& stato, LibriGemelli& libri) {
    const auto righe = static_cast<int>(stato.range(0));
    for (auto _ : stato) {
        libri.prepara(righe);
        libri.misura(stato, [&] { return salva(libri); });
        togli(libri);
    }
    libri.mostra(stato, righe);
}

// One row of ten has another quantity.
void risalvataggi(benchmark::State& stato, LibriGemelli& libri) {
    libri.prepara(righeRisalvate);
    libri.scrivi([&] { return salva(libri); });
    int quantita = 0;
    for (auto _ : stato) {
        libri.richiama();
        libri.conto().clicRiga(1);
        libri.conto().clic(libri.vendita().txtQta);
        libri.conto().digita(QString::number(++quantita % 5 + 2));
        libri.conto().tasto(Qt::Key_F6);
        libri.misura(stato, [&] { return salva(libri); });
    }
    libri.mostra(stato, righeRisalvate);
}

void cancellazioni(benchmark::State& stato, LibriGemelli& libri) {
    const auto righe = static_cast<int>(stato.range(0));
    for (auto _ : stato) {
        libri.prepara(righe);
        libri.scrivi([&] { return salva(libri); });
        libri.richiama();
        libri.misura(stato, [&] { return cancella(libri); });
    }
    libri.mostra(stato, righe);
}

}  // namespace

#define MISURA UseManualTime()->Iterations(ripetizioni)->Unit(benchmark::kMicrosecond)

static void salvaRighe(benchmark::State& stato) {
    LibriGemelli libri;
    salvataggi(stato, libri);
}
BENCHMARK(salvaRighe)->Arg(1)->Arg(10)->Arg(100)->MISURA;

static void salvaRigheAlPrezzoMedio(benchmark::State& stato) {
    LibriGemelli libri;
    gPrezzoMedio = 1;
    salvataggi(stato, libri);
}
BENCHMARK(salvaRigheAlPrezzoMedio)->Arg(1)->Arg(10)->MISURA;

static void salvaRigheSuUnMilione(benchmark::State& stato) {
    LibriGemelli libri(&milioneDiRighe);
    salvataggi(stato, libri);
}
BENCHMARK(salvaRigheSuUnMilione)->Arg(1)->Arg(10)->Arg(100)->MISURA;

static void salvaRigheAlPrezzoMedioSuUnMilione(benchmark::State& stato) {
    LibriGemelli libri(&milioneDiRighe);
    gPrezzoMedio = 1;
    salvataggi(stato, libri);
}
BENCHMARK(salvaRigheAlPrezzoMedioSuUnMilione)->Arg(1)->Arg(10)->MISURA;

static void risalvaUnaRiga(benchmark::State& stato) {
    LibriGemelli libri;
    risalvataggi(stato, libri);
}
BENCHMARK(risalvaUnaRiga)->MISURA;

static void risalvaUnaRigaSuUnMilione(benchmark::State& stato) {
    LibriGemelli libri(&milioneDiRighe);
    risalvataggi(stato, libri);
}
BENCHMARK(risalvaUnaRigaSuUnMilione)->MISURA;

static void cancellaRighe(benchmark::State& stato) {
    LibriGemelli libri;
    cancellazioni(stato, libri);
}
BENCHMARK(cancellaRighe)->Arg(1)->Arg(10)->Arg(100)->MISURA;

static void cancellaRigheSuUnMilione(benchmark::State& stato) {
    LibriGemelli libri(&milioneDiRighe);
    cancellazioni(stato, libri);
}
BENCHMARK(cancellaRigheSuUnMilione)->Arg(1)->Arg(10)->Arg(100)->MISURA;

#undef MISURA
