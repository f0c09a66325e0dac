#include "sale/discount_tables.h"

#include "data/gateway.h"

namespace {

QString condizioneRange(const QString& alias, float quantita) {
    const QString q = getSqlNumber(quantita);
    return "(" + alias + ".RANGEMIN <= " + q + " AND " + alias + ".RANGEMAX >= " + q + ")";
}

Risposta<Sconti> primiSconti(const QString& sql, const QString& sorgente) {
    const Lettura lettura(sql, sorgente);
    if (!lettura.trovata()) return {.riuscita = static_cast<bool>(lettura)};
    return {.valore =
                Sconti{lettura->single("SCONTO1"), lettura->single("SCONTO2"), lettura->single("SCONTO3")}};
}

const char* const vendita = "SELECT CSVS.RANGEMIN, CSVS.RANGEMAX, CSVS.SCONTO1, CSVS.SCONTO2, CSVS.SCONTO3 ";
const char* const venditaConMarca =
    "FROM (((CatScVenditeSconti AS CSVS INNER JOIN CatScVendita CSV ON CSVS.FK_CATSCVENDITE = CSV.RID) "
    "INNER JOIN CategorieSconti AS CS ON CSV.FK_CATEGORIA = CS.RID) "
    "INNER JOIN FasceClienti AS FC ON CSV.FK_FASCIA = FC.RID) "
    "INNER JOIN Marche AS M ON CSV.FK_MARCA = M.RID "
    "WHERE CSV.FK_MARCA = ";
const char* const venditaSenzaMarca =
    "FROM ((CatScVenditeSconti AS CSVS INNER JOIN CatScVendita CSV ON CSVS.FK_CATSCVENDITE = CSV.RID) "
    "INNER JOIN CategorieSconti AS CS ON CSV.FK_CATEGORIA = CS.RID) "
    "INNER JOIN FasceClienti AS FC ON CSV.FK_FASCIA = FC.RID "
    "WHERE CSV.FK_MARCA Is Null";

const char* const acquisto = "SELECT CSAS.RANGEMIN, CSAS.RANGEMAX, CSAS.SCONTO1, CSAS.SCONTO2, CSAS.SCONTO3 ";
const char* const acquistoConMarca =
    "FROM (((CatScAcquistoSconti AS CSAS INNER JOIN CatScAcquisto CSA ON CSAS.FK_CATSCACQUISTO = CSA.RID) "
    "INNER JOIN CategorieSconti AS CS ON CSA.FK_CATEGORIA = CS.RID) "
    "INNER JOIN Anagrafiche AS A ON CSA.FK_FORNITORE = A.RID) "
    "INNER JOIN Marche AS M ON CSA.FK_MARCA = M.RID "
    "WHERE CSA.FK_MARCA = ";
const char* const acquistoSenzaMarca =
    "FROM ((CatScAcquistoSconti AS CSAS INNER JOIN CatScAcquisto CSA ON CSAS.FK_CATSCACQUISTO = CSA.RID) "
    "INNER JOIN CategorieSconti AS CS ON CSA.FK_CATEGORIA = CS.RID) "
    "INNER JOIN Anagrafiche AS A ON CSA.FK_FORNITORE = A.RID "
    "WHERE CSA.FK_MARCA Is Null";

// A table of percentages: the row of the brand, else the one for every brand.
struct TabellaSconti {
    const char* colonne;
    const char* conMarca;
    const char* senzaMarca;

    Risposta<Sconti> leggi(int marca, const QString& condizioni, const QString& sorgente) const {
        if (marca > 0) {
            const auto dellaMarca =
                primiSconti(QString(colonne) + conMarca + QString::number(marca) + condizioni, sorgente);
            if (dellaMarca.valore || !dellaMarca.riuscita) return dellaMarca;
        }
        return primiSconti(QString(colonne) + senzaMarca + condizioni, sorgente);
    }
};

}  // namespace

double scontato(double prezzo, const Sconti& sconti) {
    for (const float sconto : sconti) {
        prezzo *= 1 - static_cast<double>(sconto) / 100;
    }
    return prezzo;
}

Risposta<Sconti> scontiDiVendita(int categoria, int marca, int fascia, float quantita,
                                 const QString& sorgente) {
    const TabellaSconti tabella{vendita, venditaConMarca, venditaSenzaMarca};
    return tabella.leggi(marca,
                         " AND CSV.FK_FASCIA = " + QString::number(fascia) + " AND CSV.FK_CATEGORIA = " +
                             QString::number(categoria) + " AND " + condizioneRange("CSVS", quantita),
                         sorgente);
}

Risposta<Currency> prezzoNettoDiVendita(int categoria, int fascia, float quantita, int idProdotto,
                                        const QString& sorgente) {
    const Lettura lettura(
        "SELECT CSVS.RANGEMIN, CSVS.RANGEMAX, CSVS.PREZZO "
        "FROM (((CatScVenditaProd AS CSVS INNER JOIN CatScProdVendita CSV ON CSVS.FK_CatScVenditeProd = "
        "CSV.RID) "
        "INNER JOIN CategorieSconti AS CS ON CSV.FK_CATEGORIA = CS.RID) "
        "INNER JOIN FasceClienti AS FC ON CSV.FK_FASCIA = FC.RID) "
        "INNER JOIN Prodotti AS P ON CSV.FK_Prodotto = P.RID "
        "WHERE CSV.FK_Prodotto = " +
            QString::number(idProdotto) + " AND CSV.FK_FASCIA = " + QString::number(fascia) +
            " AND CSV.FK_CATEGORIA = " + QString::number(categoria) + " AND " +
            condizioneRange("CSVS", quantita),
        sorgente);
    if (!lettura.trovata()) return {.riuscita = static_cast<bool>(lettura)};
    return {.valore = lettura->importo("PREZZO")};
}

Risposta<Sconti> scontiDiAcquisto(int categoria, int marca, float quantita, int idFornitore,
                                  const QString& sorgente) {
    const TabellaSconti tabella{acquisto, acquistoConMarca, acquistoSenzaMarca};
    const QString fornitore =
        idFornitore >= 1 ? " AND CSA.FK_FORNITORE = " + QString::number(idFornitore) : QString();
    return tabella.leggi(marca,
                         fornitore + " AND CSA.FK_CATEGORIA = " + QString::number(categoria) + " AND " +
                             condizioneRange("CSAS", quantita),
                         sorgente);
}
