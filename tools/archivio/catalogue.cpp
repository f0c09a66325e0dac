#include "archivio/catalogue.h"

#include <QStringList>

#include "archivio/archive.h"
#include "core/run_time_error.h"
#include "data/prepare_sql.h"
#include "data/schema.h"

namespace {

QString elencoColonne(int tipoServer) {
    switch (tipoServer) {
        case Access:
            return "SELECT M.name, C.name FROM sqlite_master M JOIN pragma_table_info(M.name) C "
                   "WHERE M.type = 'table'";
        case MySql:
            return "SELECT TABLE_NAME, COLUMN_NAME FROM INFORMATION_SCHEMA.COLUMNS "
                   "WHERE TABLE_SCHEMA = DATABASE()";
        default:
            return "SELECT TABLE_NAME, COLUMN_NAME FROM INFORMATION_SCHEMA.COLUMNS";
    }
}

}  // namespace

QMap<QString, QSet<QString>> tabellePresenti(Archivio& archivio) {
    QMap<QString, QSet<QString>> presenti;
    Recordset righe = archivio.leggi(elencoColonne(archivio.tipoServer()));
    for (; !righe.eof(); righe.moveNext()) {
        presenti[righe.campo(0).toString().toUpper()].insert(righe.campo(1).toString().toUpper());
    }
    return presenti;
}

void pretendiTabelle(Archivio& archivio) {
    const auto presenti = tabellePresenti(archivio);
    QStringList mancanti;
    for (const schema::Tabella& t : schema::tabelle()) {
        const QSet<QString> colonne = presenti.value(t.nome.toUpper());
        if (colonne.isEmpty()) mancanti << t.nome;
        for (const schema::Colonna& c : t.colonne) {
            if (!colonne.isEmpty() && !colonne.contains(c.nome.toUpper())) mancanti << t.nome + "." + c.nome;
        }
    }
    if (!mancanti.isEmpty()) {
        throw RunTimeError(RunTimeError::ErroreApplicazione, "all'archivio mancano: " + mancanti.join(", "));
    }
}
