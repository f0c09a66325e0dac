#include "sale/price_tables.h"

#include <array>
#include <optional>

#include "core/globals.h"
#include "core/numbers.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

using Sconti = std::array<float, 3>;

QString sorgente(const char* procedura) {
    return moduloFrmMain + QString(procedura);
}

// Both ends of a range are inclusive.
QString condizioneRange(const QString& alias, float quantita) {
    const QString q = getSqlNumber(quantita);
    return "(" + alias + ".RANGEMIN <= " + q + " AND " + alias + ".RANGEMAX >= " + q + ")";
}

std::optional<Sconti> primiSconti(const QString& sql, const char* procedura) {
    const Lettura lettura(sql, sorgente(procedura));
    if (!lettura.trovata()) return std::nullopt;
    return Sconti{lettura->single("SCONTO1"), lettura->single("SCONTO2"), lettura->single("SCONTO3")};
}

double scontato(double prezzo, const Sconti& sconti) {
    for (const float sconto : sconti) {
        prezzo *= 1 - static_cast<double>(sconto) / 100;
    }
    return prezzo;
}

// The discounts of sale for a brand, or with brand 0 the general ones of band and category.
std::optional<Sconti> scontiVendita(int categoria, int marca, int fascia, float quantita) {
    const QString colonne = "SELECT CSVS.RANGEMIN, CSVS.RANGEMAX, CSVS.SCONTO1, CSVS.SCONTO2, CSVS.SCONTO3 ";
    const QString coda = " AND CSV.FK_FASCIA = " + QString::number(fascia) +
                         " AND CSV.FK_CATEGORIA = " + QString::number(categoria) + " AND " +
                         condizioneRange("CSVS", quantita);
    if (marca > 0) {
        return primiSconti(colonne +
                               "FROM (((CatScVenditeSconti AS CSVS INNER JOIN CatScVendita CSV ON "
                               "CSVS.FK_CATSCVENDITE = CSV.RID) "
                               "INNER JOIN CategorieSconti AS CS ON CSV.FK_CATEGORIA = CS.RID) "
                               "INNER JOIN FasceClienti AS FC ON CSV.FK_FASCIA = FC.RID) "
                               "INNER JOIN Marche AS M ON CSV.FK_MARCA = M.RID "
                               "WHERE CSV.FK_MARCA = " +
                               QString::number(marca) + coda,
                           ".setScontiVendita");
    }
    return primiSconti(colonne +
                           "FROM ((CatScVenditeSconti AS CSVS INNER JOIN CatScVendita CSV ON "
                           "CSVS.FK_CATSCVENDITE = CSV.RID) "
                           "INNER JOIN CategorieSconti AS CS ON CSV.FK_CATEGORIA = CS.RID) "
                           "INNER JOIN FasceClienti AS FC ON CSV.FK_FASCIA = FC.RID "
                           "WHERE CSV.FK_MARCA Is Null" +
                           coda,
                       ".setScontiVendita");
}

std::optional<Currency> prezzoNettoVendita(int categoria, int fascia, float quantita, int idProdotto) {
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
        sorgente(".setScontiVendita"));
    if (!lettura.trovata()) return std::nullopt;
    return lettura->importo("PREZZO");
}

void scriviSconti(Vendita& v, const Sconti& sconti) {
    v.txtSconto1.testoETag(formattaImporto(sconti[0], 2));
    v.txtSconto2.testoETag(formattaImporto(sconti[1], 2));
    v.txtSconto3.testoETag(formattaImporto(sconti[2], 2));
}

void scriviPrezzoNetto(Vendita& v, Currency prezzo) {
    const double iva = static_cast<double>(getValoreSingle(v.lblValoraIva.testo()));
    scriviSconti(v, {});
    v.txtPrezzoListino.testoETag(formattaImporto(prezzo, gDecimaliDopo));
    v.txtPrezzoListinoLordo.testoETag(formattaImporto(prezzo.toDouble() * (1 + iva / 100), 2));
    v.lblPrezzoListino.testo(v.txtPrezzoListino.testo());
}

std::optional<Sconti> scontiAcquisto(int categoria, int marca, float quantita, int idFornitore) {
    const QString colonne = "SELECT CSAS.RANGEMIN, CSAS.RANGEMAX, CSAS.SCONTO1, CSAS.SCONTO2, CSAS.SCONTO3 ";
    const QString fornitore =
        idFornitore >= 1 ? " AND CSA.FK_FORNITORE = " + QString::number(idFornitore) : QString();
    const QString coda =
        " AND CSA.FK_CATEGORIA = " + QString::number(categoria) + " AND " + condizioneRange("CSAS", quantita);
    if (marca > 0) {
        return primiSconti(colonne +
                               "FROM (((CatScAcquistoSconti AS CSAS INNER JOIN CatScAcquisto CSA ON "
                               "CSAS.FK_CATSCACQUISTO = CSA.RID) "
                               "INNER JOIN CategorieSconti AS CS ON CSA.FK_CATEGORIA = CS.RID) "
                               "INNER JOIN Anagrafiche AS A ON CSA.FK_FORNITORE = A.RID) "
                               "INNER JOIN Marche AS M ON CSA.FK_MARCA = M.RID "
                               "WHERE CSA.FK_MARCA = " +
                               QString::number(marca) + fornitore + coda,
                           ".getPrezzoNettoAcquisto");
    }
    return primiSconti(colonne +
                           "FROM ((CatScAcquistoSconti AS CSAS INNER JOIN CatScAcquisto CSA ON "
                           "CSAS.FK_CATSCACQUISTO = CSA.RID) "
                           "INNER JOIN CategorieSconti AS CS ON CSA.FK_CATEGORIA = CS.RID) "
                           "INNER JOIN Anagrafiche AS A ON CSA.FK_FORNITORE = A.RID "
                           "WHERE CSA.FK_MARCA Is Null" +
                           fornitore + coda,
                       ".getPrezzoNettoAcquisto");
}

Currency prezzoDiListino(int listino, const QString& prodotto) {
    const Lettura lettura(
        "SELECT LISTINO" + QString::number(listino) + " FROM Prodotti WHERE RID = " + prodotto,
        sorgente(".getPrezzoVendita"));
    return lettura.trovata() ? getValoreCurrency(lettura->campo(0)) : Currency();
}

}  // namespace

Currency getPrezzoVendita(int idCliente, int idProdotto, bool& daListino, bool conSconto) {
    const QString cliente = QString::number(idCliente);
    const QString prodotto = QString::number(idProdotto);
    int listino = 0;
    double sconto = 0;
    {
        const Lettura lettura("SELECT LISTINO, SCONTO FROM Anagrafiche WHERE RID = " + cliente,
                              sorgente(".getPrezzoVendita"));
        if (lettura.trovata()) {
            listino = lettura->intero("LISTINO");
            if (conSconto) sconto = lettura->reale("SCONTO");
        }
    }
    if (listino < 1) listino = 1;
    Currency prezzo = prezzoDiListino(listino, prodotto);
    if (prezzo <= Currency() && listino != 1) prezzo = prezzoDiListino(1, prodotto);

    const Lettura personale(
        "SELECT PREZZO FROM Listini WHERE FK_ANAGRAFE = " + cliente + " AND FK_PRODOTTO = " + prodotto,
        sorgente(".getPrezzoVendita"));
    daListino = personale.trovata();
    if (daListino && personale->importo("PREZZO") != Currency()) return personale->importo("PREZZO");
    return Currency::daDouble(prezzo.toDouble() * (1 - sconto / 100));
}

int getFasciaCliente(int idCliente) {
    const Lettura lettura(
        "SELECT FK_FASCIACLIENTE FROM Anagrafiche WHERE RID = " + QString::number(idCliente),
        sorgente(".getFasciaCliente"));
    return lettura.trovata() ? lettura->intero("FK_FASCIACLIENTE") : 0;
}

bool setSconti(Vendita& v, int idProdotto) {
    int marca = 0;
    int categoria = 0;
    {
        const Lettura lettura("SELECT FK_MARCA, FK_CatScoAcq, FK_CatScoVen FROM Prodotti WHERE RID = " +
                                  QString::number(idProdotto),
                              sorgente(".setSconti"));
        if (lettura.trovata()) {
            marca = lettura->intero("FK_MARCA");
            categoria = lettura->intero("FK_CatScoVen");
        }
    }
    setScontiVendita(v, categoria, marca, v.cliente(), getValoreSingle(v.txtQta.testo()), idProdotto);
    return true;
}

bool setScontiVendita(Vendita& v, int categoria, int marca, int cliente, float quantita, int idProdotto) {
    const int fascia = getFasciaCliente(cliente);
    if (fascia <= 0 || categoria <= 0) return false;
    if (categoria != gCatPrezziNetti) {
        std::optional<Sconti> sconti;
        if (marca > 0) sconti = scontiVendita(categoria, marca, fascia, quantita);
        if (!sconti) sconti = scontiVendita(categoria, 0, fascia, quantita);
        scriviSconti(v, sconti.value_or(Sconti{}));
    } else if (idProdotto > 0) {
        if (const auto prezzo = prezzoNettoVendita(categoria, fascia, quantita, idProdotto))
            scriviPrezzoNetto(v, *prezzo);
    }
    const float immediato = getValoreSingle(v.cmdComando[16].tag());
    if (immediato > 0) scriviSconti(v, {immediato, 0, 0});
    return true;
}

Currency getPrezzoNettoAcquisto(int idProdotto, float quantita, int idFornitore) {
    Currency acquisto;
    int categoria = 0;
    int marca = 0;
    {
        const Lettura lettura("SELECT PREZZOACQUISTO, FK_CATSCOACQ, FK_MARCA FROM Prodotti WHERE RID = " +
                                  QString::number(idProdotto),
                              sorgente(".getPrezzoNettoAcquisto"));
        if (!lettura.trovata()) return {};
        acquisto = lettura->importo("PREZZOACQUISTO");
        categoria = lettura->intero("FK_CATSCOACQ");
        marca = lettura->intero("FK_MARCA");
    }
    if (categoria <= 0) return {};
    std::optional<Sconti> sconti;
    if (marca > 0) sconti = scontiAcquisto(categoria, marca, quantita, idFornitore);
    if (!sconti) sconti = scontiAcquisto(categoria, 0, quantita, idFornitore);
    return acquisto -
           (acquisto - Currency::daDouble(scontato(acquisto.toDouble(), sconti.value_or(Sconti{}))));
}
