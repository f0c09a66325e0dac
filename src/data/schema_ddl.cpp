#include <algorithm>

#include "data/archive_version.h"
#include "data/prepare_sql.h"
#include "data/schema.h"

namespace schema {
namespace {

// What a server calls each kind of column.
struct Dialetto {
    QString chiave;
    QString flag;
    QString reale;
    QString testo;  // the length stands between `testo` and `fineTesto`
    QString fineTesto;
    QString note;
    QString dataOra;
    QString ora;
    QString fineTabella;
    bool indiciSuEspressioni;
};

const Dialetto& dialetto(int tipoServer) {
    static const Dialetto sqlServer{"INT IDENTITY(1,1) PRIMARY KEY",
                                    "SMALLINT",
                                    "FLOAT(53)",
                                    "NVARCHAR(",
                                    ")",
                                    "NVARCHAR(MAX)",
                                    "DATETIME2(0)",
                                    "DATETIME2(0)",
                                    "",
                                    false};
    // AUTOINCREMENT, because look-ups and the age of stock layers rest on keys that are never given twice.
    static const Dialetto sqlite{
        "INTEGER PRIMARY KEY AUTOINCREMENT", "SMALLINT", "DOUBLE",   "VARCHAR(", ") COLLATE ACCESS_TEXT",
        "TEXT COLLATE ACCESS_TEXT",          "DATETIME", "DATETIME", "",         true};
    static const Dialetto mySql{"INT AUTO_INCREMENT PRIMARY KEY",
                                "SMALLINT",
                                "DOUBLE",
                                "VARCHAR(",
                                ")",
                                "LONGTEXT",
                                "DATETIME",
                                "TIME",
                                " ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_unicode_520_ci",
                                false};
    return tipoServer == SqlServer ? sqlServer : tipoServer == MySql ? mySql : sqlite;
}

QString tipo(const Colonna& c, const Dialetto& d) {
    switch (c.tipo) {
        case Tipo::Chiave:
            return d.chiave;
        case Tipo::Intero:
            return "INTEGER";
        case Tipo::Flag:
            return d.flag;
        case Tipo::Importo:
            return "DECIMAL(19,4)";
        case Tipo::Reale:
            return d.reale;
        case Tipo::Testo:
            return d.testo + QString::number(c.lunghezza) + d.fineTesto;
        case Tipo::Note:
            return d.note;
        case Tipo::DataOra:
            return d.dataOra;
        case Tipo::Ora:
            return d.ora;
    }
    return {};
}

const QString& nomeChiave(const QString& nomeTabella) {
    const auto trovata = std::find_if(tabelle().begin(), tabelle().end(),
                                      [&](const Tabella& t) { return t.nome == nomeTabella; });
    return trovata->colonne.front().nome;
}

QString creaTabella(const Tabella& t, const Dialetto& d) {
    QStringList righe;
    for (const Colonna& c : t.colonne) {
        QString riga = c.nome + " " + tipo(c, d);
        if (c.obbligatoria) riga += " NOT NULL";
        if (!c.predefinito.isEmpty()) riga += " DEFAULT " + c.predefinito;
        righe << riga;
    }
    for (const Colonna& c : t.colonne) {
        if (c.riferimento.isEmpty()) continue;
        righe << "FOREIGN KEY (" + c.nome + ") REFERENCES " + c.riferimento + " (" +
                     nomeChiave(c.riferimento) + ")";
    }
    return "CREATE TABLE " + t.nome + " (" + righe.join(", ") + ")" + d.fineTabella;
}

QString creaIndice(const Tabella& t, const Indice& i, const Dialetto& d) {
    QStringList colonne = i.colonne;
    if (!d.indiciSuEspressioni) colonne.replaceInStrings("YEAR(DATA)", "DATA");
    return (i.unico ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") + i.nome + " ON " + t.nome + " (" +
           colonne.join(", ") + ")";
}

}  // namespace

QStringList ddlTabelle(int tipoServer) {
    QStringList istruzioni;
    for (const Tabella& t : tabelle())
        istruzioni << creaTabella(t, dialetto(tipoServer));
    return istruzioni;
}

QStringList ddlIndici(int tipoServer) {
    QStringList istruzioni;
    for (const Tabella& t : tabelle()) {
        for (const Indice& i : t.indici)
            istruzioni << creaIndice(t, i, dialetto(tipoServer));
    }
    return istruzioni;
}

QStringList ddl(int tipoServer) {
    const QStringList tutte = ddlTabelle(tipoServer) + ddlIndici(tipoServer);
    return tipoServer == Access ? tutte : tutte + creaMarchio(versione);
}

}  // namespace schema
