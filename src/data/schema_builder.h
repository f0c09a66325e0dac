#pragma once

#include "data/schema.h"

// Short words for the description of the tables.
namespace schema {

Colonna chiave(const QString& nome = "RID");
Colonna intero(const QString& nome);
// 0 or 1, 0 when nothing is said.
Colonna flag(const QString& nome);
// Money and quantities are 0 when nothing is said, so that sums and differences never meet a Null.
Colonna importo(const QString& nome);
Colonna reale(const QString& nome);
Colonna testo(const QString& nome, int lunghezza);
Colonna note(const QString& nome);
Colonna dataOra(const QString& nome);
Colonna ora(const QString& nome);
// An optional key of another table.
Colonna rif(const QString& nome, const QString& tabella);
Colonna obbligatoria(Colonna colonna);

// A table whose first column is its surrogate key RID. `indici` lists the columns of each index; one is
// added for every key of another table that leads none of them, so that the server never scans a table to
// know whether a row may be deleted.
Tabella tabella(const QString& nome, std::vector<Colonna> colonne,
                const std::vector<QStringList>& indici = {});
// As tabella, with a surrogate key of its own name among `colonne`.
Tabella tabellaConChiave(const QString& nome, std::vector<Colonna> colonne,
                         const std::vector<QStringList>& indici = {});
// No two rows may be alike in these columns.
void unico(Tabella& tabella, const QStringList& colonne);

// The tables of one subject, in the order in which they can be made.
std::vector<Tabella> tabelleCodici();
std::vector<Tabella> tabelleAnagrafiche();
std::vector<Tabella> tabellePrezzi();
std::vector<Tabella> tabelleDocumenti();
std::vector<Tabella> tabelleVendite();
std::vector<Tabella> tabelleSistema();

}  // namespace schema
