#include "archivio/archive_dump.h"

#include "archivio/archive.h"
#include "archivio/column_value.h"
#include "archivio/row_reader.h"
#include "data/prepare_sql.h"

QStringList tutteLeRighe(const QString& nome) {
    const auto archivio = apriPerGuardare(NomeArchivio::da(nome));
    QStringList tutte;
    for (const schema::Tabella& t : schema::tabelle()) {
        LettoreTabella lettore(*archivio, t);
        for (Recordset r = lettore.pagina(); !r.eof(); r = lettore.pagina()) {
            for (; !r.eof(); r.moveNext()) {
                QString riga = t.nome;
                for (int i = 0; i < r.campi(); ++i) {
                    const schema::Colonna& c = t.colonne[static_cast<size_t>(i)];
                    riga += " | ";
                    aggiungiLetterale(riga, MySql, c, valoreEsatto(c, r.campo(i)));
                }
                tutte << riga;
            }
        }
    }
    return tutte;
}
