#include "archivio/import_access.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include "archivio/archive.h"
#include "archivio/copy_archive.h"
#include "archivio/import_cleanup.h"
#include "archivio/import_table.h"
#include "archivio/mdb_tools.h"
#include "archivio/new_archive.h"
#include "archivio/progress.h"
#include "core/run_time_error.h"
#include "data/schema.h"

namespace {

[[noreturn]] void rifiuta(const QString& motivo) {
    throw RunTimeError(RunTimeError::ErroreApplicazione, motivo);
}

QString elenco(const QString& titolo, const QStringList& nomi) {
    return nomi.isEmpty() ? QString() : titolo + ": " + nomi.join(", ") + "\n";
}

class Importazione {
  public:
    Importazione(const QString& file, NuovoArchivio& archivio, QTextStream& esito)
        : mFile(file), mArchivio(archivio), mEsito(esito), mTabelleFile(tabelleMdb(file)) {}

    // True when all that we know of came over as it is.
    bool esegui() {
        QStringList mancanti;
        Avanzamento avanzamento(static_cast<qint64>(schema::tabelle().size()));
        for (const schema::Tabella& t : schema::tabelle()) {
            const QString nome = prendi(t.nome);
            if (nome.isEmpty()) {
                mancanti << t.nome;
            } else {
                importa(t, nome);
            }
            avanzamento.aggiungi(1, t.nome);
        }
        if (mancanti.size() == static_cast<qsizetype>(schema::tabelle().size()))
            rifiuta("il file non ha nessuna delle tabelle di un archivio");
        mEsito << elenco("Tabelle che il file non ha", mancanti)
               << elenco("Tabelle del file non conosciute", mTabelleFile);
        mArchivio.scrittore().scarica();
        const QStringList rimedi = rimediaImportazione(mArchivio.archivio());
        if (!rimedi.isEmpty()) mEsito << "Righe corrette:\n  " << rimedi.join("\n  ") << "\n";
        return mRifiutate == 0 && rimedi.isEmpty();
    }

  private:
    // The file's name for a table, in its own case; it leaves the list of those that nobody took.
    QString prendi(const QString& nome) {
        for (qsizetype i = 0; i < mTabelleFile.size(); ++i) {
            if (mTabelleFile[i].compare(nome, Qt::CaseInsensitive) == 0) return mTabelleFile.takeAt(i);
        }
        return {};
    }

    void importa(const schema::Tabella& t, const QString& nome) {
        ImportazioneTabella importazione(mArchivio.scrittore(), t);
        LettoreCsv lettore([&](const RigaCsv& riga) { importazione.riga(riga); });
        esportaMdb(mFile, nome, [&](const QByteArray& pezzo) { lettore.leggi(pezzo); });
        if (!lettore.finito()) rifiuta("la tabella " + nome + " si interrompe a metà di una riga");
        racconta(t.nome, importazione.esito());
    }

    void racconta(const QString& tabella, const EsitoTabella& e) {
        mRifiutate += e.rifiutate;
        mEsito << "  " << tabella.leftJustified(24) << QString::number(e.righe).rightJustified(10)
               << " righe";
        if (e.rifiutate > 0) mEsito << ", " << e.rifiutate << " rifiutate";
        mEsito << "\n"
               << elenco("      colonne che il file non ha", e.mancanti)
               << elenco("      colonne del file non conosciute", e.ignote);
        for (const QString& motivo : e.motivi)
            mEsito << "      rifiutata la " << motivo << "\n";
    }

    QString mFile;
    NuovoArchivio& mArchivio;
    QTextStream& mEsito;
    QStringList mTabelleFile;
    qint64 mRifiutate = 0;
};

bool importaNelFile(const QString& file, const QString& archivio, bool sovrascrivi, QTextStream& esito) {
    if (!QFileInfo(file).isFile()) rifiuta("il file \"" + file + "\" non esiste");
    const auto nuovo = NuovoArchivio::inizia(NomeArchivio::da(archivio), sovrascrivi);
    const bool tutto = Importazione(file, *nuovo, esito).esegui();
    nuovo->consegna();
    return tutto;
}

// A file can leave out single rows, a server's batches cannot: the rows go to a file first.
bool importa(const QString& file, const QString& nome, bool sovrascrivi, QTextStream& esito) {
    if (NomeArchivio::indicaFile(nome)) return importaNelFile(file, nome, sovrascrivi, esito);
    const QTemporaryDir cartella;
    const QString intermedio = cartella.filePath("importazione");
    const bool tutto = importaNelFile(file, intermedio, false, esito);
    return copiaArchivio(intermedio, nome, sovrascrivi, esito) && tutto;
}

}  // namespace

bool importaAccess(const QString& file, const QString& nome, bool sovrascrivi, QTextStream& esito) {
    try {
        const bool tutto = importa(file, nome, sovrascrivi, esito);
        esito << (tutto ? "Importazione completa.\n"
                        : "Importazione con righe rifiutate o corrette: vedere sopra.\n");
        return tutto;
    } catch (const RunTimeError& errore) {
        esito << "ERRORE: importazione non riuscita: " << errore.descrizione() << "\n";
        return false;
    }
}
