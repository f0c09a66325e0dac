#include <cstdlib>

#include "archivio/statement.h"
#include "archivio/verify_checks.h"

namespace {

// Amounts are compared in ten-thousandths. The document's total is rounded to the cent when it is stored,
// the VAT to the last decimal.
constexpr qint64 mezzoCentesimo = 50;
constexpr qint64 ultimoDecimale = 1;

bool diversi(qint64 a, qint64 b, qint64 tolleranza) {
    return std::llabs(a - b) > tolleranza;
}

QString leggibile(qint64 decimillesimi) {
    return Currency::daScalato(decimillesimi).testo();
}

const char* const totali =
    "SELECT M.RID, COALESCE(TD.CODICE, '?') || ' ' || M.PROGRESSIVO || '/' || M.ANNO, M.TOTDOCUMENTO, "
    "M.TOTIMPOSTA, M.TOTIMPONIBILE, COALESCE(S.TOTALE, 0), COALESCE(S.IMPOSTA, 0), "
    "COALESCE(S.VENDITE, 0), COALESCE(S.ULTIMA, 0), PN.IMPORTO, PP.IMPORTO "
    "FROM Movimenti M LEFT JOIN TipoDocumenti TD ON M.FK_TIPODOCUMENTO = TD.RID "
    "LEFT JOIN (SELECT FK_MOVIMENTO, SUM(TOTALERIGA) AS TOTALE, SUM(TOTALEIVA) AS IMPOSTA, "
    "COUNT(DISTINCT EXTRAPROG) AS VENDITE, MAX(EXTRAPROG) AS ULTIMA FROM DettagliMovimento "
    "GROUP BY FK_MOVIMENTO) S ON S.FK_MOVIMENTO = M.RID "
    "LEFT JOIN PrimaNota PN ON M.FK_PRIMANOTA = PN.RID LEFT JOIN PrimaNota PP ON M.FK_PNPAGAMENTO = PP.RID";

struct Testata {
    QString nome;
    qint64 documento;
    qint64 imposta;
    qint64 imponibile;
    qint64 righe;
    qint64 impostaRighe;
    bool venditaMancante;  // a gap in the sub-numbers
    bool ripostata;        // the journal carries the sum of the rows that are left
};

Testata leggi(const Istruzione& i) {
    const qint64 righe = i.importo(5).scalato();
    const auto comeLeRighe = [&](int colonna) {
        return !i.nullo(colonna) && !diversi(i.importo(colonna).scalato(), righe, mezzoCentesimo);
    };
    return {i.testo(1),
            i.importo(2).scalato(),
            i.importo(3).scalato(),
            i.importo(4).scalato(),
            righe,
            i.importo(6).scalato(),
            i.intero(7) > 0 && i.intero(7) < i.intero(8),
            i.intero(7) > 0 && (comeLeRighe(9) || comeLeRighe(10))};
}

// A deletion re-posts the journal for the sales that remain but leaves the totals of the header, which the
// next save brings up to date.
void confrontaConRighe(const Testata& t, EsitoVerifica& esito) {
    const bool totale = diversi(t.documento, t.righe, mezzoCentesimo);
    const bool imposta = diversi(t.imposta, t.impostaRighe, ultimoDecimale);
    if (!totale && !imposta) return;
    const QString differenza = QString("documento %1: totale %2 e imposta %3 in testata, %4 e %5 dalle righe")
                                   .arg(t.nome, leggibile(t.documento), leggibile(t.imposta),
                                        leggibile(t.righe), leggibile(t.impostaRighe));
    if (t.venditaMancante || t.ripostata) {
        esito.note << differenza + " (una delle vendite del documento è stata cancellata)";
    } else {
        esito.errori << differenza;
    }
}

void verificaTestate(sqlite3* db, EsitoVerifica& esito) {
    Istruzione i(db, totali);
    while (i.passo()) {
        const Testata t = leggi(i);
        if (diversi(t.documento - t.imposta, t.imponibile, ultimoDecimale)) {
            esito.errori << QString("documento %1: imponibile %2, ma totale meno imposta è %3")
                                .arg(t.nome, leggibile(t.imponibile), leggibile(t.documento - t.imposta));
        } else {
            confrontaConRighe(t, esito);
        }
    }
}

// The head of a kit stands in the document without money; its components carry it.
void verificaTesteDistinta(sqlite3* db, EsitoVerifica& esito) {
    Istruzione i(
        db,
        "SELECT D.RID, D.CODPRODOTTO FROM DettagliMovimento D JOIN Opzioni O ON O.NOME = 'DistintaBase' "
        "WHERE substr(D.CODPRODOTTO, 1, 1) = substr(O.VALORE, 1, 1) AND O.VALORE <> '' AND "
        "(D.PREZZO <> 0 OR D.PREZZONETTO <> 0 OR D.TOTALEIVA <> 0 OR D.TOTALERIGA <> 0)");
    while (i.passo()) {
        esito.errori
            << QString("riga %1: la testa di distinta %2 ha importi propri").arg(i.intero(0)).arg(i.testo(1));
    }
}

}  // namespace

void verificaTotali(sqlite3* db, EsitoVerifica& esito) {
    verificaTestate(db, esito);
    verificaTesteDistinta(db, esito);
}
