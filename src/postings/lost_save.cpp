#include "postings/lost_save.h"

#include <algorithm>

#include "core/globals.h"
#include "data/gateway.h"
#include "sale/totals.h"

namespace {

QString sorgente() {
    return gNomeModulo + ".salvaVendita";
}

// The same from the grid's text and from the archive's number.
QString testoQuantita(double quantita) {
    return QString::number(quantita, 'g', 12);
}

QString rigaScritta(const FlexVB& g, int r) {
    const QString codice = g.cella(r, Colonna::Codice);
    const auto importo = [&](Colonna colonna) {
        return (testaDistinta(codice) ? Currency() : g.currency(r, colonna)).testo();
    };
    const auto numero = [&](Colonna colonna) {
        return testoQuantita(getSqlNumberOrZero(g.cella(r, colonna)).toDouble());
    };
    return QStringList{codice,
                       g.cella(r, Colonna::Descrizione),
                       numero(Colonna::Quantita),
                       importo(Colonna::PrezzoListino),
                       importo(Colonna::PrezzoNettoEsteso),
                       importo(Colonna::Importo),
                       numero(Colonna::Iva)}
        .join('|');
}

QString rigaLetta(const Recordset& riga) {
    return QStringList{riga.testo("CODPRODOTTO"),
                       riga.testo("DESCPRODOTTO"),
                       testoQuantita(riga.reale("QUANTITA")),
                       riga.importo("PREZZO").testo(),
                       riga.importo("PREZZONETTO").testo(),
                       riga.importo("TOTALERIGA").testo(),
                       testoQuantita(riga.reale("VALOREIVA"))}
        .join('|');
}

std::optional<bool> testataRegistrata(const SalvataggioIncerto& s) {
    const Lettura m(
        "SELECT PROGRESSIVO, FK_TIPODOCUMENTO, FK_PAGAMENTO, FK_CONTROPARTITA, DATA FROM Movimenti "
        "WHERE RID = " +
            QString::number(s.idMovimento),
        sorgente());
    if (!m) return std::nullopt;
    return m.trovata() && descriviTestata({m->intero("PROGRESSIVO"), m->intero("FK_TIPODOCUMENTO"),
                                           m->intero("FK_PAGAMENTO"), m->intero("FK_CONTROPARTITA"),
                                           m->campo("DATA").toDate()}) == s.testata;
}

// The rows are there as they were written, and no others.
bool coincidono(Recordset& lette, const RigheSalvate& attese) {
    QStringList nuove;
    size_t mutate = 0;
    for (; !lette.eof(); lette.moveNext()) {
        const int rid = lette.intero("RID");
        if (attese.cancellate.contains(rid)) return false;
        const auto mutata = attese.mutate.find(rid);
        if (mutata != attese.mutate.end() && mutata->second == rigaLetta(lette)) ++mutate;
        if (!attese.note.contains(rid)) nuove << rigaLetta(lette);
    }
    nuove.sort();
    return mutate == attese.mutate.size() && nuove == attese.nuove;
}

std::optional<bool> righeRegistrate(const SalvataggioIncerto& s) {
    const Lettura righe(
        "SELECT RID, CODPRODOTTO, DESCPRODOTTO, QUANTITA, PREZZO, PREZZONETTO, TOTALERIGA, VALOREIVA "
        "FROM DettagliMovimento "
        "WHERE FK_MOVIMENTO = " +
            QString::number(s.idMovimento) + " AND EXTRAPROG = " + QString::number(s.extraProg),
        sorgente());
    if (!righe) return std::nullopt;
    return coincidono(*righe, s.righe);
}

}  // namespace

QString descriviTestata(const TestataScritta& t) {
    return QStringList{QString::number(t.progressivo), QString::number(t.tipo),
                       QString::number(t.idPagamento), QString::number(std::max(t.idControparte, 0)),
                       t.data.toString("yyyy-MM-dd")}
        .join('|');
}

RigheSalvate descriviRighe(const FlexVB& g) {
    RigheSalvate s;
    for (int r = 1; r <= g.ultima(); ++r) {
        const int rid = g.chiave(r, Colonna::Rid);
        const int stato = g.gestione(r);
        if (rid > 0) s.note.insert(rid);
        if (stato == RigaCancellata && rid > 0) s.cancellate.insert(rid);
        if (stato == RigaModificata && rid > 0) s.mutate[rid] = rigaScritta(g, r);
        if (stato == RigaNuova || (stato == RigaModificata && rid < 1)) s.nuove << rigaScritta(g, r);
    }
    s.nuove.sort();
    return s;
}

EsitoCommit cercaSalvataggio(OperatorPort& operatore, const SalvataggioIncerto& s) {
    return cercaDopoCommitPerso(operatore, sorgente(), [&s]() -> std::optional<bool> {
        const std::optional<bool> testata = testataRegistrata(s);
        if (testata != true) return testata;
        return righeRegistrate(s);
    });
}
