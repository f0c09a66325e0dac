#include "archivio/copy_archive.h"

#include "archivio/archive.h"
#include "archivio/new_archive.h"
#include "archivio/progress.h"
#include "archivio/row_reader.h"
#include "core/run_time_error.h"
#include "data/schema.h"

namespace {

// More than a person reads at once.
constexpr int rifiutiMassimi = 20;

[[noreturn]] void rifiuta(const QString& motivo) {
    throw RunTimeError(RunTimeError::ErroreApplicazione, motivo);
}

qint64 conta(Archivio& archivio, const schema::Tabella& tabella) {
    return archivio.numero("SELECT COUNT(*) FROM " + tabella.nome);
}

qint64 contaTutte(Archivio& archivio) {
    qint64 righe = 0;
    for (const schema::Tabella& t : schema::tabelle())
        righe += conta(archivio, t);
    return righe;
}

// The rows that could not come over as they are.
class Rifiuti {
  public:
    void aggiungi(const QString& riga) {
        if (mRighe.size() < rifiutiMassimi) mRighe << riga;
        ++mQuanti;
    }
    void pretendiNessuno() const {
        if (mQuanti == 0) return;
        rifiuta(QString("%1 righe non si possono copiare come sono:\n").arg(mQuanti) + mRighe.join('\n'));
    }

  private:
    QStringList mRighe;
    qint64 mQuanti = 0;
};

class Copia {
  public:
    Copia(Archivio& da, NuovoArchivio& a) : mDa(da), mA(a), mAvanzamento(contaTutte(da)) {}

    void esegui() {
        for (const schema::Tabella& t : schema::tabelle())
            copia(t);
        mRifiuti.pretendiNessuno();
        mA.scrittore().scarica();
        for (const schema::Tabella& t : schema::tabelle())
            impostaUltimaChiave(mA.archivio(), t, ultimaChiave(mDa, t));
    }

    // The rows of each table, told one by one; a difference is an error.
    void confronta(QTextStream& esito) {
        QStringList diverse;
        for (const schema::Tabella& t : schema::tabelle()) {
            const qint64 prima = conta(mDa, t);
            const qint64 dopo = conta(mA.archivio(), t);
            esito << "  " << t.nome.leftJustified(24) << QString::number(dopo).rightJustified(10)
                  << " righe\n";
            if (prima != dopo)
                diverse << QString("%1: %2 righe invece di %3").arg(t.nome).arg(dopo).arg(prima);
        }
        if (!diverse.isEmpty())
            rifiuta("le righe copiate non sono quelle di partenza:\n" + diverse.join('\n'));
        mDa.pretendiContinuita();
    }

  private:
    void copia(const schema::Tabella& t) {
        const TabellaScritta& dove = mA.scrittore().tabella(t);
        LettoreTabella lettore(mDa, t);
        for (Recordset pagina = lettore.pagina(); !pagina.eof(); pagina = lettore.pagina()) {
            for (; !pagina.eof(); pagina.moveNext())
                copiaRiga(pagina, dove);
            mAvanzamento.aggiungi(pagina.righe(), t.nome);
        }
    }

    void copiaRiga(const Recordset& riga, const TabellaScritta& dove) {
        mValori.clear();
        for (int i = 0; i < riga.campi(); ++i)
            mValori.push_back(riga.campo(i));
        try {
            mA.scrittore().scrivi(dove, mValori);
        } catch (const RunTimeError& errore) {
            if (errore.numero() != RunTimeError::TipoNonCorrispondente) throw;
            mRifiuti.aggiungi(dove.tabella->nome + " " + riga.campo(0).toString() + ": " +
                              errore.descrizione());
        }
    }

    Archivio& mDa;
    NuovoArchivio& mA;
    Avanzamento mAvanzamento;
    Rifiuti mRifiuti;
    std::vector<QVariant> mValori;
};

}  // namespace

bool copiaArchivio(const QString& da, const QString& a, bool sovrascrivi, QTextStream& esito) {
    try {
        const auto origine = apriPerCopiare(NomeArchivio::da(da));
        origine->fermaIlTempo();
        const NomeArchivio nomeCopia = NomeArchivio::da(a);
        const auto copia = NuovoArchivio::inizia(nomeCopia, sovrascrivi);
        Copia lavoro(*origine, *copia);
        lavoro.esegui();
        QString tabelle;
        QTextStream conteggio(&tabelle);
        lavoro.confronta(conteggio);
        copia->consegna();
        esito << tabelle << "Archivio copiato: " << nomeCopia.leggibile() << "\n";
        return true;
    } catch (const RunTimeError& errore) {
        esito << "ERRORE: archivio non copiato: " << errore.descrizione() << "\n";
        return false;
    }
}
