#include <algorithm>

#include "archivio/archive.h"
#include "archivio/verify_checks.h"
#include "data/schema.h"

namespace {

constexpr int trovatiPerTipo = 20;

const QString& chiaveDi(const QString& tabella) {
    const auto& tutte = schema::tabelle();
    return std::find_if(tutte.begin(), tutte.end(), [&](const auto& t) { return t.nome == tabella; })
        ->colonne.front()
        .nome;
}

void cercaRotti(Archivio& archivio, const schema::Tabella& t, const schema::Colonna& c, QStringList& rotti) {
    const QString chiave = "T." + t.colonne.front().nome;
    const QString altra = "R." + chiaveDi(c.riferimento);
    const QString query = "SELECT " + chiave + " FROM " + t.nome + " T LEFT JOIN " + c.riferimento +
                          " R ON " + altra + " = T." + c.nome + " WHERE T." + c.nome + " IS NOT NULL AND " +
                          altra + " IS NULL";
    Recordset righe = archivio.leggi(primeRighe(query, trovatiPerTipo, archivio.tipoServer()));
    for (; !righe.eof(); righe.moveNext()) {
        rotti << QString("%1 %2: si riferisce a un record di %3 che non esiste")
                     .arg(t.nome, righe.campo(0).toString(), c.riferimento);
    }
}

void verificaComponenti(Archivio& archivio, EsitoVerifica& esito) {
    Recordset righe = archivio.leggi(
        "SELECT F.RID, F.CODPRODOTTO FROM DettagliMovimento F WHERE F.IK_DETTAGLIOMOVIMENTO > 0 AND "
        "NOT EXISTS (SELECT 1 FROM DettagliMovimento T WHERE T.RID = F.IK_DETTAGLIOMOVIMENTO "
        "AND T.FK_MOVIMENTO = F.FK_MOVIMENTO)");
    for (; !righe.eof(); righe.moveNext()) {
        esito.errori << QString("riga %1: il componente %2 è senza la testa della sua distinta")
                            .arg(righe.campo(0).toString(), righe.campo(1).toString());
    }
}

}  // namespace

QStringList riferimentiRotti(Archivio& archivio) {
    QStringList rotti;
    for (const schema::Tabella& t : schema::tabelle()) {
        for (const schema::Colonna& c : t.colonne) {
            if (!c.riferimento.isEmpty()) cercaRotti(archivio, t, c, rotti);
        }
    }
    return rotti;
}

void verificaRiferimenti(Archivio& archivio, EsitoVerifica& esito) {
    esito.errori << riferimentiRotti(archivio);
    verificaComponenti(archivio, esito);
}
