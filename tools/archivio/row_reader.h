#pragma once

#include "data/recordset.h"
#include "data/schema.h"

class Archivio;

// Reads a whole table in the order of its keys, page by page.
class LettoreTabella {
  public:
    LettoreTabella(Archivio& archivio, const schema::Tabella& tabella);

    // The next rows, all columns in the order of the schema; none at the end.
    Recordset pagina();

  private:
    Archivio& mArchivio;
    const schema::Tabella& mTabella;
    QString mColonne;
    qint64 mUltima;
    bool mFinita = false;
};

// The highest key that the server has given in a table, also when its row is gone; 0 when none.
qint64 ultimaChiave(Archivio& archivio, const schema::Tabella& tabella);
// The next key that the server gives will be above this one.
void impostaUltimaChiave(Archivio& archivio, const schema::Tabella& tabella, qint64 chiave);
