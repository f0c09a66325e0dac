#include <cstdlib>

#include "archivio/archive.h"
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

// Only documents that may be wrong; what counts is decided on exact amounts.
const char* const totali =
    "SELECT COALESCE(TD.CODICE, '?') AS TIPO, M.PROGRESSIVO, M.ANNO, M.TOTDOCUMENTO, M.TOTIMPOSTA, "
    "M.TOTIMPONIBILE, COALESCE(S.TOTALE, 0) AS TOTALE, COALESCE(S.IMPOSTA, 0) AS IMPOSTA, "
    "COALESCE(S.VENDITE, 0) AS VENDITE, COALESCE(S.ULTIMA, 0) AS ULTIMA, PN.IMPORTO AS REGISTRATO, "
    "PP.IMPORTO AS INCASSATO, CASE WHEN M.FK_PRIMANOTA IS NULL AND EXISTS (SELECT 1 FROM PrimaNota PO "
    "WHERE PO.DATA = M.DATA AND PO.FK_CAUSALE = TD.FK_CAUSALE AND ABS(PO.IMPORTO - S.TOTALE) < 0.005 "
    "AND NOT EXISTS (SELECT 1 FROM Movimenti L WHERE L.FK_PRIMANOTA = PO.RID)) THEN 1 ELSE 0 END AS "
    "RIPOSTATO FROM Movimenti M LEFT JOIN TipoDocumenti TD ON M.FK_TIPODOCUMENTO = TD.RID "
    "LEFT JOIN (SELECT FK_MOVIMENTO, SUM(TOTALERIGA) AS TOTALE, SUM(TOTALEIVA) AS IMPOSTA, "
    "COUNT(DISTINCT EXTRAPROG) AS VENDITE, MAX(EXTRAPROG) AS ULTIMA FROM DettagliMovimento "
    "GROUP BY FK_MOVIMENTO) S ON S.FK_MOVIMENTO = M.RID "
    "LEFT JOIN PrimaNota PN ON M.FK_PRIMANOTA = PN.RID LEFT JOIN PrimaNota PP ON M.FK_PNPAGAMENTO = PP.RID "
    "WHERE ABS(COALESCE(M.TOTDOCUMENTO, 0) - COALESCE(S.TOTALE, 0)) > 0.0045 "
    "OR ABS(COALESCE(M.TOTIMPOSTA, 0) - COALESCE(S.IMPOSTA, 0)) > 0.00005 "
    "OR ABS(COALESCE(M.TOTDOCUMENTO, 0) - COALESCE(M.TOTIMPOSTA, 0) - COALESCE(M.TOTIMPONIBILE, 0)) > "
    "0.00005";

struct Testata {
    QString nome;
    qint64 documento;
    qint64 imposta;
    qint64 imponibile;
    qint64 righe;
    qint64 impostaRighe;
    bool venditaMancante;  // a gap in the sub-numbers
    bool ripostata;        // the journal carries the sum of the rows that are left, linked or not
};

Testata leggi(const Recordset& r) {
    const qint64 righe = r.importo("TOTALE").scalato();
    const auto comeLeRighe = [&](const char* colonna) {
        return !r.campo(colonna).isNull() && !diversi(r.importo(colonna).scalato(), righe, mezzoCentesimo);
    };
    const int vendite = r.intero("VENDITE");
    return {r.testo("TIPO") + " " + r.testo("PROGRESSIVO") + "/" + r.testo("ANNO"),
            r.importo("TOTDOCUMENTO").scalato(),
            r.importo("TOTIMPOSTA").scalato(),
            r.importo("TOTIMPONIBILE").scalato(),
            righe,
            r.importo("IMPOSTA").scalato(),
            vendite > 0 && vendite<r.intero("ULTIMA"), vendite> 0 &&
                (comeLeRighe("REGISTRATO") || comeLeRighe("INCASSATO") || r.vero("RIPOSTATO"))};
}

// A deletion re-posts the journal for the sales that remain but leaves the totals of the header, which the
// next save brings up to date. Under a causal that posts nothing itself the new entry is linked to no header.
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

void verificaTestate(Archivio& archivio, EsitoVerifica& esito) {
    Recordset righe = archivio.leggi(totali);
    for (; !righe.eof(); righe.moveNext()) {
        const Testata t = leggi(righe);
        if (diversi(t.documento - t.imposta, t.imponibile, ultimoDecimale)) {
            esito.errori << QString("documento %1: imponibile %2, ma totale meno imposta è %3")
                                .arg(t.nome, leggibile(t.imponibile), leggibile(t.documento - t.imposta));
        } else {
            confrontaConRighe(t, esito);
        }
    }
}

// The head of a kit stands in the document without money; its components carry it.
void verificaTesteDistinta(Archivio& archivio, EsitoVerifica& esito) {
    Recordset righe = archivio.leggi(
        "SELECT D.RID, D.CODPRODOTTO FROM DettagliMovimento D JOIN Opzioni O ON O.NOME = 'DistintaBase' "
        "WHERE SUBSTRING(D.CODPRODOTTO, 1, 1) = SUBSTRING(O.VALORE, 1, 1) AND O.VALORE <> '' AND "
        "(D.PREZZO <> 0 OR D.PREZZONETTO <> 0 OR D.TOTALEIVA <> 0 OR D.TOTALERIGA <> 0)");
    for (; !righe.eof(); righe.moveNext()) {
        esito.errori << "riga " + righe.testo("RID") + ": la testa di distinta " +
                            righe.testo("CODPRODOTTO") + " ha importi propri";
    }
}

}  // namespace

void verificaTotali(Archivio& archivio, EsitoVerifica& esito) {
    verificaTestate(archivio, esito);
    verificaTesteDistinta(archivio, esito);
}
