#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "data/sqlite_connection.h"
#include "demo_till.h"
#include "sale/totals.h"

// What an assistant waits for, each beside its bare statements: the same texts on SQLite's own interface,
// on a connection that is open already. The figure that counts is the ratio of the two in one run.

namespace {

void eseguiNude(sqlite3* db, const std::vector<QByteArray>& istruzioni) {
    for (const QByteArray& sql : istruzioni) {
        sqlite3_stmt* istruzione = nullptr;
        sqlite3_prepare_v2(db, sql.constData(), static_cast<int>(sql.size()), &istruzione, nullptr);
        while (sqlite3_step(istruzione) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(istruzione); ++i) {
                benchmark::DoNotOptimize(sqlite3_column_text(istruzione, i));
            }
        }
        sqlite3_finalize(istruzione);
    }
}

std::vector<QByteArray> inUtf8(const QStringList& istruzioni) {
    std::vector<QByteArray> testi;
    for (const QString& sql : istruzioni) {
        testi.push_back(sql.toUtf8());
    }
    return testi;
}

sqlite3* connessione(const TillDimostrativa& till) {
    ErroreServer errore;
    static auto aperta = SqliteConnection::apri(till.archivio(), errore);
    aperta = SqliteConnection::apri(till.archivio(), errore);
    return aperta->nativa();
}

}  // namespace

static void scansioneFinoAllaRiga(benchmark::State& stato) {
    TillDimostrativa till;
    int i = 0;
    for (auto _ : stato) {
        till.conto().scansiona(till.barcode(i++));
        if (i % 50 == 0) {
            stato.PauseTiming();
            till.conto().vendita().venditaModificata = false;
            till.conto().tasto(Qt::Key_F2);
            stato.ResumeTiming();
        }
    }
    stato.counters["istruzioni"] = static_cast<double>(
        TillDimostrativa::istruzioni([&] { till.conto().scansiona(till.barcode(i)); }).size());
}
BENCHMARK(scansioneFinoAllaRiga)->Unit(benchmark::kMicrosecond);

static void scansioneIstruzioniNude(benchmark::State& stato) {
    TillDimostrativa till;
    const auto istruzioni =
        inUtf8(TillDimostrativa::istruzioni([&] { till.conto().scansiona(till.barcode(3)); }));
    sqlite3* db = connessione(till);
    for (auto _ : stato) {
        eseguiNude(db, istruzioni);
    }
}
BENCHMARK(scansioneIstruzioniNude)->Unit(benchmark::kMicrosecond);

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
    const auto istruzioni = inUtf8(TillDimostrativa::istruzioni([&] { till.conto().tasto(Qt::Key_F5); }));
    sqlite3* db = connessione(till);
    for (auto _ : stato) {
        eseguiNude(db, istruzioni);
    }
}
BENCHMARK(salvataggioIstruzioniNude)->Unit(benchmark::kMillisecond)->Iterations(100);

static void totaliDiDuemilaRighe(benchmark::State& stato) {
    TillDimostrativa till;
    Vendita& v = till.conto().vendita();
    rigaDi(till.conto(), till, 1);
    for (int r = 2; r <= 2000; ++r) {
        v.flxVB.aggiungi();
        for (int c = 0; c < numeroColonne; ++c) {
            v.flxVB.scrivi(r, static_cast<Colonna>(c), v.flxVB.cella(1, static_cast<Colonna>(c)));
        }
    }
    for (auto _ : stato) {
        calcolaTotali(v, false);
    }
}
BENCHMARK(totaliDiDuemilaRighe)->Unit(benchmark::kMicrosecond);
