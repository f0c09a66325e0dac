#include "sale/price_tables.h"

#include <algorithm>
#include <optional>

#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "sale/discount_tables.h"
#include "sale/row_editor.h"
#include "sale/vendita.h"

namespace {

constexpr int listiniProdotto = 4;  // LISTINO1 to LISTINO4

QString sorgente(const char* procedura) {
    return moduloFrmMain + QString(procedura);
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

// False when the tables cannot be read.
bool applicaTabelle(Vendita& v, int categoria, int marca, int fascia, float quantita, int idProdotto) {
    const QString da = sorgente(".setScontiVendita");
    if (categoria != gCatPrezziNetti) {
        const auto sconti = scontiDiVendita(categoria, marca, fascia, quantita, da);
        if (sconti.riuscita) scriviSconti(v, sconti.valore.value_or(Sconti{}));
        return sconti.riuscita;
    }
    if (idProdotto <= 0) return true;
    const auto prezzo = prezzoNettoDiVendita(categoria, fascia, quantita, idProdotto, da);
    if (prezzo.valore) scriviPrezzoNetto(v, *prezzo.valore);
    return prezzo.riuscita;
}

Currency prezzoDiListino(int listino, const QString& prodotto) {
    const Lettura lettura(
        "SELECT LISTINO" + QString::number(listino) + " FROM Prodotti WHERE RID = " + prodotto,
        sorgente(".getPrezzoVendita"));
    return lettura.trovata() ? getValoreCurrency(lettura->campo(0)) : Currency();
}

// The customer's own price for a product; `trovato` also for one of 0, which counts as none.
Currency prezzoPersonale(int idCliente, int idProdotto, const char* procedura, bool& trovato) {
    const Lettura lettura("SELECT PREZZO FROM Listini WHERE FK_ANAGRAFE = " + QString::number(idCliente) +
                              " AND FK_PRODOTTO = " + QString::number(idProdotto),
                          sorgente(procedura));
    trovato = lettura.trovata();
    return trovato ? lettura->importo("PREZZO") : Currency();
}

// A customer as the search of products needs it.
struct ClienteRicerca {
    int listino = 1;
    float sconto = 0;
    int fascia = 0;
};

ClienteRicerca leggiCliente(int idCliente) {
    const Lettura lettura(
        "SELECT LISTINO, SCONTO, FK_FasciaCliente FROM Anagrafiche WHERE RID = " + QString::number(idCliente),
        sorgente(".getDatiProdotto"));
    if (!lettura.trovata()) return {};
    return {.listino = std::max(1, lettura->intero("LISTINO")),
            .sconto = lettura->single("SCONTO"),
            .fascia = lettura->intero("FK_FasciaCliente")};
}

// A product as the search shows it; `listino` is the price of the customer's list.
struct ProdottoRicerca {
    Currency listino;
    float sconto = 0;
    float iva = 0;  // percentage
    int marca = 0;
    int categoria = 0;
    float giacenza = 0;
};

Currency listinoDi(const Recordset& p, int listino) {
    Currency prezzo;
    if (listino <= listiniProdotto) prezzo = p.importo("Listino" + QString::number(listino));
    return prezzo > Currency() ? prezzo : p.importo("Listino1");
}

std::optional<ProdottoRicerca> leggiProdotto(int idProdotto, int listino) {
    const Lettura lettura(
        "SELECT p.Listino1, p.Listino2, p.Listino3, p.Listino4, p.Sconto, i.Valore, p.FK_MARCA, "
        "p.FK_CatScoAcq, p.FK_CatScoVen, p.Giacenza "
        "FROM Prodotti p INNER JOIN Iva i ON p.FK_IVA = i.RID WHERE p.RID = " +
            QString::number(idProdotto),
        sorgente(".getDatiProdotto"));
    if (!lettura.trovata()) return std::nullopt;
    return ProdottoRicerca{.listino = listinoDi(*lettura, listino),
                           .sconto = lettura->single("Sconto"),
                           .iva = lettura->single("Valore"),
                           .marca = lettura->intero("FK_MARCA"),
                           .categoria = lettura->intero("FK_CatScoVen"),
                           .giacenza = lettura->single("Giacenza")};
}

// The list price of one piece less the product's or the customer's discount, or less those of the tables.
Currency scontatoPerRicerca(const ProdottoRicerca& p, const ClienteRicerca& cliente, int idProdotto) {
    const float sconto = p.sconto > 0 ? p.sconto : cliente.sconto;
    if (sconto > 0) return Currency::daDouble(scontato(p.listino.toDouble(), {sconto, 0, 0}));
    Sconti sconti{};
    Currency prezzo = Currency::daIntero(-1);
    getScontiVendita(p.categoria, p.marca, cliente.fascia, 1, idProdotto, sconti[0], sconti[1], sconti[2],
                     prezzo);
    return prezzo >= Currency() ? prezzo : Currency::daDouble(scontato(p.listino.toDouble(), sconti));
}

// The stock of all cost layers of a product in a warehouse.
float giacenzaInMagazzino(int idProdotto, int idMagazzino) {
    const Lettura lettura(
        "SELECT Quantita FROM DettagliProdotto WHERE FK_Prodotto = " + QString::number(idProdotto) +
            " AND FK_Magazzino = " + QString::number(idMagazzino),
        sorgente(".getDatiProdotto"));
    float giacenza = 0;
    for (; lettura.trovata(); lettura->moveNext()) {
        giacenza += lettura->single("Quantita");
    }
    return giacenza;
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

    const Currency personale = prezzoPersonale(idCliente, idProdotto, ".getPrezzoVendita", daListino);
    if (personale != Currency()) return personale;
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
    if (!applicaTabelle(v, categoria, marca, fascia, quantita, idProdotto)) return false;
    const float immediato = getValoreSingle(v.cmdComando[16].tag());
    if (immediato > 0) scriviSconti(v, {immediato, 0, 0});
    return true;
}

void getScontiVendita(int categoria, int marca, int fascia, float quantita, int idProdotto, float& s1,
                      float& s2, float& s3, Currency& prezzo) {
    const QString da = sorgente(".getScontiVendita");
    if (categoria != gCatPrezziNetti) {
        Sconti sconti{};
        if (fascia > 0 && categoria > 0)
            sconti = scontiDiVendita(categoria, marca, fascia, quantita, da).valore.value_or(Sconti{});
        s1 = sconti[0];
        s2 = sconti[1];
        s3 = sconti[2];
    } else if (idProdotto > 0) {
        const auto trovato = prezzoNettoDiVendita(categoria, fascia, quantita, idProdotto, da);
        if (!trovato.valore) return;
        s1 = s2 = s3 = 0;
        prezzo = *trovato.valore;
    }
}

void getDatiProdotto(int idCliente, int idProdotto, int idMagazzino, Currency& netto, Currency& finale,
                     float& giacenza) {
    netto = finale = Currency();
    giacenza = 0;
    const ClienteRicerca cliente = leggiCliente(idCliente);
    const auto prodotto = leggiProdotto(idProdotto, cliente.listino);
    if (!prodotto) return;
    bool trovato = false;
    netto = prezzoPersonale(idCliente, idProdotto, ".getDatiProdotto", trovato);
    if (netto == Currency()) netto = scontatoPerRicerca(*prodotto, cliente, idProdotto);
    finale = netto + Currency::daDouble(netto.toDouble() * static_cast<double>(prodotto->iva) / 100);
    giacenza = prodotto->giacenza;
    if (idMagazzino > 0) giacenza = giacenzaInMagazzino(idProdotto, idMagazzino);
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
    const auto sconti =
        scontiDiAcquisto(categoria, marca, quantita, idFornitore, sorgente(".getPrezzoNettoAcquisto"));
    return acquisto -
           (acquisto - Currency::daDouble(scontato(acquisto.toDouble(), sconti.valore.value_or(Sconti{}))));
}
