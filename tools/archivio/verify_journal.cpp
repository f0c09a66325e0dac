#include "archivio/archive.h"
#include "archivio/verify_checks.h"

namespace {

// Only entries that may be wrong; what counts is decided on exact amounts.
const char* const registrazioni =
    "SELECT PN.PROGRESSIVO, YEAR(PN.DATA) AS ANNO, PN.IMPORTO, COALESCE(D.DARE, 0) AS DARE, "
    "COALESCE(D.AVERE, 0) AS AVERE, COALESCE(D.RIGHE, 0) AS RIGHE, COALESCE(D.MINIMO, 0) AS MINIMO, "
    "COALESCE(C.FK_CONTODARE1, 0) AS DARE1, COALESCE(C.FK_CONTODARE2, 0) AS DARE2, "
    "COALESCE(C.FK_CONTOAVERE1, 0) AS AVERE1, COALESCE(C.FK_CONTOAVERE2, 0) AS AVERE2 "
    "FROM PrimaNota PN LEFT JOIN (SELECT FK_PRIMANOTA, SUM(DARE) AS DARE, SUM(AVERE) AS AVERE, "
    "COUNT(*) AS RIGHE, MIN(CASE WHEN DARE < AVERE THEN DARE ELSE AVERE END) AS MINIMO "
    "FROM PrimaNotaDettagli GROUP BY FK_PRIMANOTA) D ON D.FK_PRIMANOTA = PN.RID "
    "LEFT JOIN Causali C ON PN.FK_CAUSALE = C.RID "
    "WHERE D.RIGHE IS NULL OR ABS(COALESCE(D.DARE, 0) - COALESCE(D.AVERE, 0)) > 0.00001";

struct Registrazione {
    QString nome;
    Currency importo;
    Currency dare;
    Currency avere;
    bool senzaRighe;
    bool importiNegativi;
    bool contiDare;
    bool contiAvere;
    bool primiConti;  // the first account of either side
    bool scorporaIva;
};

Registrazione leggi(const Recordset& r) {
    const auto acceso = [&](const char* colonna) { return r.intero(colonna) > 0; };
    return {"prima nota " + r.testo("PROGRESSIVO") + "/" + r.testo("ANNO"),
            r.importo("IMPORTO"),
            r.importo("DARE"),
            r.importo("AVERE"),
            r.intero("RIGHE") == 0,
            r.reale("MINIMO") < 0,
            acceso("DARE1") || acceso("DARE2"),
            acceso("AVERE1") || acceso("AVERE2"),
            acceso("DARE1") && acceso("AVERE1"),
            acceso("DARE2") || acceso("AVERE2")};
}

// Why the rules themselves leave an entry unbalanced; empty when they do not.
QString causaAmmessa(const Registrazione& r) {
    if (r.contiDare != r.contiAvere) return "la causale ha conti da una sola parte";
    if (!r.primiConti) return "alla causale manca il primo conto di una parte";
    if (r.scorporaIva && r.importiNegativi) return "reso: l'imposta negativa non viene scorporata";
    return {};
}

void verifica(const Registrazione& r, EsitoVerifica& esito) {
    if (r.senzaRighe) {
        const bool attese = r.contiDare || r.contiAvere;
        if (attese && r.importo != Currency()) esito.errori << r.nome + ": nessuna riga";
        return;
    }
    if (r.dare == r.avere) return;
    const QString differenza = QString("%1: dare %2, avere %3").arg(r.nome, r.dare.testo(), r.avere.testo());
    const QString causa = causaAmmessa(r);
    if (causa.isEmpty()) {
        esito.errori << differenza;
    } else {
        esito.note << differenza + " (" + causa + ")";
    }
}

}  // namespace

void verificaPrimaNota(Archivio& archivio, EsitoVerifica& esito) {
    Recordset righe = archivio.leggi(registrazioni);
    for (; !righe.eof(); righe.moveNext())
        verifica(leggi(righe), esito);
}
