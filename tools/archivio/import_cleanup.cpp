#include "archivio/import_cleanup.h"

#include <algorithm>

#include "archivio/archive.h"
#include "data/schema.h"

namespace {

constexpr int chiaviMostrate = 10;

const schema::Tabella& tabellaDi(const QString& nome) {
    const auto& tutte = schema::tabelle();
    return *std::find_if(tutte.begin(), tutte.end(), [&](const auto& t) { return t.nome == nome; });
}

class Rimedio {
  public:
    Rimedio(Archivio& archivio, QStringList& fatto) : mArchivio(archivio), mFatto(fatto) {}

    void doppioni(const schema::Tabella& t) {
        for (const schema::Indice& i : t.indici) {
            if (!i.unico) continue;
            const QString primi =
                "SELECT MIN(" + chiave(t) + ") FROM " + t.nome + " GROUP BY " + i.colonne.join(", ");
            togli(t, chiave(t) + " NOT IN (" + primi + ")", "doppione di " + i.colonne.join(" e "));
        }
    }

    // Whether something had to be taken out: then others may refer to nothing now.
    bool riferimenti(const schema::Tabella& t) {
        bool tolte = false;
        for (const schema::Colonna& c : t.colonne) {
            if (c.riferimento.isEmpty()) continue;
            if (!c.obbligatoria)
                mArchivio.esegui("UPDATE " + t.nome + " SET " + c.nome + " = NULL WHERE " + c.nome + " <= 0");
            const schema::Tabella& altra = tabellaDi(c.riferimento);
            const QString rotti = c.nome + " IS NOT NULL AND " + c.nome + " NOT IN (SELECT " + chiave(altra) +
                                  " FROM " + altra.nome + ")";
            const QString motivo = c.nome + " senza il suo record di " + altra.nome;
            tolte |= c.obbligatoria ? togli(t, rotti, motivo) : svuota(t, c, rotti, motivo);
        }
        return tolte;
    }

  private:
    static const QString& chiave(const schema::Tabella& t) { return t.colonne.front().nome; }

    bool racconta(const schema::Tabella& t, const QString& quali, const QString& cosa) {
        const qint64 quante = mArchivio.numero("SELECT COUNT(*) FROM " + t.nome + " WHERE " + quali);
        if (quante == 0) return false;
        QStringList chiavi;
        Recordset righe =
            mArchivio.leggi(primeRighe("SELECT " + chiave(t) + " FROM " + t.nome + " WHERE " + quali,
                                       chiaviMostrate, mArchivio.tipoServer()));
        for (; !righe.eof(); righe.moveNext())
            chiavi << righe.campo(0).toString();
        mFatto << QString("%1: %2 righe, %3 (%4%5)")
                      .arg(t.nome)
                      .arg(quante)
                      .arg(cosa, chiavi.join(", "), quante > chiaviMostrate ? ", ..." : "");
        return true;
    }

    bool togli(const schema::Tabella& t, const QString& quali, const QString& motivo) {
        if (!racconta(t, quali, "tolte: " + motivo)) return false;
        mArchivio.esegui("DELETE FROM " + t.nome + " WHERE " + quali);
        return true;
    }

    // Nobody refers to a reference, so nothing more comes of it.
    bool svuota(const schema::Tabella& t, const schema::Colonna& c, const QString& quali,
                const QString& motivo) {
        if (racconta(t, quali, "riferimento svuotato: " + motivo))
            mArchivio.esegui("UPDATE " + t.nome + " SET " + c.nome + " = NULL WHERE " + quali);
        return false;
    }

    Archivio& mArchivio;
    QStringList& mFatto;
};

}  // namespace

QStringList rimediaImportazione(Archivio& archivio) {
    QStringList fatto;
    Rimedio rimedio(archivio, fatto);
    for (const schema::Tabella& t : schema::tabelle())
        rimedio.doppioni(t);
    for (bool ancora = true; ancora;) {
        ancora = false;
        for (const schema::Tabella& t : schema::tabelle())
            ancora |= rimedio.riferimenti(t);
    }
    return fatto;
}
