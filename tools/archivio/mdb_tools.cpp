#include "archivio/mdb_tools.h"

#include <QProcess>

#include "archivio/csv_reader.h"
#include "core/run_time_error.h"

namespace {

const char* const formatoData = "%Y-%m-%d %H:%M:%S";

[[noreturn]] void rifiuta(const QString& motivo) {
    throw RunTimeError(RunTimeError::ErroreApplicazione, motivo);
}

void esegui(const QString& programma, const QStringList& argomenti,
            const std::function<void(const QByteArray&)>& pezzo) {
    QProcess processo;
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert("LC_ALL", "C.UTF-8");
    processo.setProcessEnvironment(ambiente);
    processo.start(programma, argomenti, QIODevice::ReadOnly);
    if (!processo.waitForStarted(-1))
        rifiuta("il programma " + programma + " non si avvia: installare il pacchetto mdbtools");
    while (processo.waitForReadyRead(-1))
        pezzo(processo.readAllStandardOutput());
    processo.waitForFinished(-1);
    pezzo(processo.readAllStandardOutput());
    if (processo.exitStatus() != QProcess::NormalExit || processo.exitCode() != 0) {
        const QString detto = QString::fromUtf8(processo.readAllStandardError()).trimmed();
        rifiuta(programma + " non riesce a leggere il file" + (detto.isEmpty() ? "" : ": " + detto));
    }
}

}  // namespace

QStringList tabelleMdb(const QString& file) {
    QByteArray elenco;
    esegui("mdb-tables", {"-1", file}, [&](const QByteArray& pezzo) { elenco += pezzo; });
    return QString::fromUtf8(elenco).split('\n', Qt::SkipEmptyParts);
}

void esportaMdb(const QString& file, const QString& tabella,
                const std::function<void(const QByteArray&)>& pezzo) {
    esegui("mdb-export",
           {"-d", QString(QChar::fromLatin1(LettoreCsv::separatore)), "-b", "strip", "-D", formatoData, "-T",
            formatoData, file, tabella},
           pezzo);
}
