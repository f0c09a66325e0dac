#include "postings/row_statements.h"

#include <algorithm>

#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "postings/stored_row.h"
#include "sale/row_cells.h"
#include "sale/totals.h"

namespace {

QString sorgente() {
    return gNomeModulo + ".saveDettagli";
}

// Money columns hold four decimals; the cells may show the tail of a product of two Singles. A kit's head
// carries no money of its own: its components do.
QString importo(const RigaDaScrivere& r, Colonna colonna) {
    if (testaDistinta(r.griglia.cella(r.riga, Colonna::Codice))) return "0";
    return getSqlNumber(r.griglia.currency(r.riga, colonna));
}

// Goods that change warehouse are valued at cost.
QString sconto(const RigaDaScrivere& r, Colonna colonna) {
    return r.trasferimento ? QString("0") : getSqlNumberOrZero(r.griglia.cella(r.riga, colonna));
}

}  // namespace

RigaScritta colonneRiga(const RigaDaScrivere& r, bool nuova) {
    const auto cella = [&](Colonna colonna) { return r.griglia.cella(r.riga, colonna); };
    RigaScritta colonne{
        {"FK_Movimento", QString::number(r.idMovimento)},
        {"FK_Prodotto", getIDOrNullStr(cella(Colonna::IdProdotto))},
        {"CodProdotto", testoSQL(cella(Colonna::Codice))},
        {"DescProdotto", testoSQL(cella(Colonna::Descrizione))},
        {"Quantita", getSqlNumberOrZero(quantitaEsatta(r.griglia, r.riga))},
        {"Prezzo", importo(r, Colonna::PrezzoListino)},
        {"ScontoNetto", importo(r, Colonna::ScNetto)},
        {"PrezzoNetto", importo(r, Colonna::PrezzoNettoEsteso)},
        {"TotPrezzoNetto", importo(r, Colonna::TotPrNetto)},
        {"Iva", importo(r, Colonna::IvaProd)},
        {"TotaleIva", importo(r, Colonna::TotIvaProd)},
        {"TotaleRiga", importo(r, Colonna::Importo)},
        {"FK_IVA", getIDOrNullStr(cella(Colonna::IdIva))},
        {"ValoreIva", getSqlNumberOrZero(cella(Colonna::Iva))},
        {"Pos", QString::number(r.pos)},
        {"Sconto", sconto(r, Colonna::Sconto1)},
        {"Sconto2", sconto(r, Colonna::Sconto2)},
        {"Sconto3", sconto(r, Colonna::Sconto3)},
        {"Taglio", getSqlNumber(std::max(r.taglio, Currency()))},
        {"ExtraProg", QString::number(r.extraProg)},
        {"FK_UM", getIDOrNullStr(cella(Colonna::IdUm))},
    };
    if (nuova) colonne.emplace_back("FK_Venditore", getIDOrNullStr(cella(Colonna::IdVenditore)));
    return colonne;
}

int inserisciRiga(const RigaScritta& colonne) {
    QStringList nomi;
    QStringList valori;
    for (const auto& [colonna, valore] : colonne) {
        nomi << colonna;
        valori << valore;
    }
    return gAdo.getIDByInsert("INSERT INTO DettagliMovimento (" + nomi.join(", ") + ", Ora) VALUES (" +
                                  valori.join(", ") + ", Now()) ",
                              sorgente(), "RID", "DettagliMovimento");
}

bool modificaRiga(int rid, const RigaScritta& colonne) {
    QStringList assegnazioni;
    for (const auto& [colonna, valore] : colonne) {
        assegnazioni << colonna + " = " + valore;
    }
    return eseguiSuRiga("UPDATE DettagliMovimento SET " + assegnazioni.join(", ") + " " +
                            "WHERE RID = " + QString::number(rid),
                        sorgente());
}

bool cancellaRiga(int rid) {
    return eseguiSuRiga("DELETE FROM DettagliMovimento WHERE RID = " + QString::number(rid), sorgente());
}

bool collegaComponente(int idRiga, int idTesta) {
    return gAdo.executeSQL("UPDATE DettagliMovimento SET IK_DETTAGLIOMOVIMENTO = " +
                               QString::number(idTesta) + " WHERE RID = " + QString::number(idRiga),
                           sorgente());
}
