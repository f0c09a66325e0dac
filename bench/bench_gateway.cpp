#include <benchmark/benchmark.h>

#include "bare_lookup.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "data/server_drivers.h"
#include "doubles/negozio.h"

// A row by its key through the gateway, and straight on the client library: what the gateway adds. On the
// server that BOTTEGON_PROVA_SERVER names.

namespace {

constexpr int prodotti = 200;

void riempi(Negozio& n) {
    // The program's own driver, without the test shop's clock around it.
    gAdo.impostaDriver(gAdo.TipoServer, nuovoDriver(gAdo.TipoServer));
    for (int i = 1; i <= prodotti; ++i)
        n.prodotto({.codice = "P" + QString::number(i), .listino1 = i * 1.25});
}

const char* const query = "SELECT CODICE, DESCRIZIONE, LISTINO1 FROM Prodotti WHERE RID = ";

int chiave(int i) {
    return i % prodotti + 1;
}

}  // namespace

static void chiaveAttraversoIlGateway(benchmark::State& stato) {
    Negozio n;
    riempi(n);
    int i = 0;
    for (auto _ : stato) {
        const Lettura lettura(query + QString::number(chiave(++i)), "bench");
        benchmark::DoNotOptimize(lettura->importo("LISTINO1"));
    }
}
BENCHMARK(chiaveAttraversoIlGateway)->UseRealTime()->Repetitions(5)->ReportAggregatesOnly();

static void nuda(benchmark::State& stato, Preparata preparata) {
    Negozio n;
    riempi(n);
    const auto nudo = nuovoClienteNudo(archivioSuFile() ? QString() : gStrConnessione,
                                       archivioSuFile() ? n.percorso() : QString(), query, preparata);
    int i = 0;
    for (auto _ : stato)
        benchmark::DoNotOptimize(nudo->cerca(chiave(++i)));
}

static void chiaveNuda(benchmark::State& stato) {
    nuda(stato, Preparata::UnaVolta);
}
BENCHMARK(chiaveNuda)->UseRealTime()->Repetitions(5)->ReportAggregatesOnly();

// The same on MariaDB.
static void chiaveNudaDaTesto(benchmark::State& stato) {
    nuda(stato, Preparata::OgniVolta);
}
BENCHMARK(chiaveNudaDaTesto)->UseRealTime()->Repetitions(5)->ReportAggregatesOnly();
