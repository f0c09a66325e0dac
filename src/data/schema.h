#pragma once

#include <vector>

#include <QString>
#include <QStringList>

// The shop's database, told once and without a server in mind. The DDL of each server is made from it.
namespace schema {

// Goes up by one with every change of the tables. An archive carries the one it was made with (SQLite's
// user_version).
constexpr int versione = 1;

enum class Tipo {
    Chiave,   // surrogate key given by the server, never reused
    Intero,   // 32-bit whole number
    Flag,     // 0 or 1
    Importo,  // money, four decimals
    Reale,    // quantity or percentage, double
    Testo,    // code or name; `lunghezza` characters; compared without regard to case
    Note,     // long text
    DataOra,  // date, with or without time
    Ora,      // time of day
};

struct Colonna {
    QString nome;
    Tipo tipo = Tipo::Intero;
    int lunghezza = 0;
    bool obbligatoria = false;
    QString predefinito;  // SQL literal, empty for none
    QString riferimento;  // table that the key points to; empty for no foreign key
};

struct Indice {
    QString nome;
    QStringList colonne;  // or an expression, such as YEAR(DATA)
    bool unico = false;
};

struct Tabella {
    QString nome;
    std::vector<Colonna> colonne;
    std::vector<Indice> indici;
};

// All tables, each after the ones it refers to.
const std::vector<Tabella>& tabelle();

// The statements that make an empty database, in order. `tipoServer` as in prepare_sql.h.
QStringList ddl(int tipoServer);
// Those of them that make the tables, and those that make the indexes; all but the mark of archive_version.h.
QStringList ddlTabelle(int tipoServer);
QStringList ddlIndici(int tipoServer);

}  // namespace schema
