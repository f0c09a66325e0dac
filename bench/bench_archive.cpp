#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <QTextStream>

#include "archivio/copy_archive.h"
#include "archivio/create_archive.h"
#include "doubles/archivio_di_prova.h"
#include "doubles/cliente_mariadb.h"

// Making and copying an archive of any size with the archive tool. Only on request, since it takes minutes:
// BOTTEGON_BENCH_RIGHE=1000000 names the rows of the sales. The copy goes to a file, or to the server that
// BOTTEGON_PROVA_SERVER names.

namespace {

int righe() {
    return qEnvironmentVariableIntValue("BOTTEGON_BENCH_RIGHE");
}

OpzioniCreazione grande() {
    OpzioniCreazione opzioni;
    opzioni.misure = MisureNegozio{100000, 20000, righe()};
    return opzioni;
}

// The text of the tool when it fails; empty when all went well.
template <class Lavoro>
void esegui(benchmark::State& stato, Lavoro&& lavoro) {
    QString testo;
    QTextStream esito(&testo);
    if (!lavoro(esito)) stato.SkipWithError(qPrintable(testo));
}

// Where a copy goes, as the archive tool takes it; a database is gone with it.
class Destinazione {
  public:
    explicit Destinazione(const QString& cartella) : mFile(cartella + "/copia.mdb") {}
    ~Destinazione() {
        if (!archivioSuFile()) ClienteMariaDb().esegui("DROP DATABASE IF EXISTS " + mDatabase);
    }
    Destinazione(const Destinazione&) = delete;
    Destinazione& operator=(const Destinazione&) = delete;

    QString nome() const {
        if (archivioSuFile()) return mFile;
        return "mysql:" + qEnvironmentVariable("BOTTEGON_PROVA_MYSQL") + "Database=" + mDatabase + ";";
    }

  private:
    QString mFile;
    QString mDatabase = "bench_" + QString::number(getpid());
};

void creaGrande(benchmark::State& stato) {
    const QTemporaryDir cartella;
    for (auto _ : stato) {
        esegui(stato, [&](QTextStream& esito) {
            return creaArchivio(cartella.filePath("grande.mdb"), grande(), esito);
        });
    }
    stato.SetItemsProcessed(righe());
}

void copiaGrande(benchmark::State& stato) {
    const QTemporaryDir cartella;
    const QString origine = cartella.filePath("grande.mdb");
    const Destinazione copia(cartella.path());
    esegui(stato, [&](QTextStream& esito) { return creaArchivio(origine, grande(), esito); });
    for (auto _ : stato) {
        esegui(stato, [&](QTextStream& esito) { return copiaArchivio(origine, copia.nome(), false, esito); });
    }
    stato.SetItemsProcessed(righe());
}

const bool suRichiesta = [] {
    if (righe() <= 0) return false;
    for (auto* misura : {benchmark::RegisterBenchmark("creaGrande", creaGrande),
                         benchmark::RegisterBenchmark("copiaGrande", copiaGrande)}) {
        misura->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);
    }
    return true;
}();

}  // namespace
