#include "archivio/statement.h"
#include "archivio/verify_checks.h"

namespace {

const char* const registrazioni =
    "SELECT PN.RID, PN.PROGRESSIVO, substr(PN.DATA, 1, 4), PN.IMPORTO, TOTAL(D.DARE), TOTAL(D.AVERE), "
    "COUNT(D.RID), COALESCE(MIN(MIN(D.DARE, D.AVERE)), 0), COALESCE(C.FK_CONTODARE1, 0) > 0, "
    "COALESCE(C.FK_CONTODARE2, 0) > 0, COALESCE(C.FK_CONTOAVERE1, 0) > 0, COALESCE(C.FK_CONTOAVERE2, 0) > 0 "
    "FROM PrimaNota PN LEFT JOIN PrimaNotaDettagli D ON D.FK_PRIMANOTA = PN.RID "
    "LEFT JOIN Causali C ON PN.FK_CAUSALE = C.RID GROUP BY PN.RID";

struct Registrazione {
    QString nome;
    Currency importo;
    Currency dare;
    Currency avere;
    bool senzaRighe;
    bool importiNegativi;
    bool contiDare;
    bool contiAvere;
    bool scorporaIva;
};

Registrazione leggi(const Istruzione& i) {
    const auto acceso = [&](int colonna) { return i.intero(colonna) != 0; };
    return {QString("prima nota %1/%2").arg(i.intero(1)).arg(i.testo(2)),
            i.importo(3),
            i.importo(4),
            i.importo(5),
            i.intero(6) == 0,
            i.reale(7) < 0,
            acceso(8) || acceso(9),
            acceso(10) || acceso(11),
            acceso(9) || acceso(11)};
}

// Why the rules themselves leave an entry unbalanced; empty when they do not.
QString causaAmmessa(const Registrazione& r) {
    if (r.contiDare != r.contiAvere) return "la causale ha conti da una sola parte";
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

void verificaPrimaNota(sqlite3* db, EsitoVerifica& esito) {
    Istruzione i(db, registrazioni);
    while (i.passo())
        verifica(leggi(i), esito);
}
