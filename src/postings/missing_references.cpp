#include "postings/missing_references.h"

#include <vector>

#include <QStringList>

#include "core/errors.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "postings/save_state.h"
#include "sale/vendita.h"

namespace {

const char* const testoMancanti =
    "La vendita non è stata salvata. Nell'archivio non c'è più:%1\n"
    "La vendita è ancora sullo schermo: correggerla e salvarla di nuovo.";
const char* const testoRifiuto =
    "La vendita non è stata salvata: qualcosa a cui si riferisce non è più nell'archivio.\n"
    "La vendita è ancora sullo schermo e si può salvare di nuovo.";

// What a row of the sale points to, in the shop's words.
struct Riferimento {
    const char* tabella;
    int chiave;
    QString nome;
};

QString traParentesi(const QString& nome, const QString& valore) {
    return valore.isEmpty() ? nome : nome + " [" + valore + "]";
}

std::vector<Riferimento> dellaTestata(const Vendita& v, const Documento& d) {
    return {{"Anagrafiche", d.trasferimento ? -1 : v.cliente(),
             traParentesi("il cliente", v.lblDescCliente.testo())},
            {"Pagamenti", v.idPagamento, "il pagamento della vendita"},
            {"TipoDocumenti", d.tipo, traParentesi("il tipo di documento", v.descTipoDocumento)},
            {"Magazzini", v.magazzinoOrigine, "il magazzino da cui parte la merce"},
            {"Magazzini", v.magazzinoDestinazione, "il magazzino a cui va la merce"}};
}

std::vector<Riferimento> dellaRiga(const FlexVB& g, int r) {
    const auto cella = [&](Colonna colonna) { return g.cella(r, colonna); };
    const QString prodotto =
        " del prodotto [" + cella(Colonna::Codice) + " - " + cella(Colonna::Descrizione) + "]";
    return {{"Prodotti", g.chiave(r, Colonna::IdProdotto),
             "il prodotto [" + cella(Colonna::Codice) + " - " + cella(Colonna::Descrizione) + "]"},
            {"Iva", g.chiave(r, Colonna::IdIva),
             traParentesi("l'aliquota IVA", cella(Colonna::CodIva)) + prodotto},
            {"UnitaMisura", g.chiave(r, Colonna::IdUm),
             traParentesi("l'unità di misura", cella(Colonna::Um)) + prodotto},
            {"Venditori", g.chiave(r, Colonna::IdVenditore),
             traParentesi("il venditore", cella(Colonna::DescVenditore))}};
}

bool manca(const Riferimento& riferimento) {
    if (riferimento.chiave < 1) return false;
    const Lettura lettura("SELECT RID FROM " + QString(riferimento.tabella) +
                              " WHERE RID = " + QString::number(riferimento.chiave),
                          gNomeModulo + ".salvaVendita");
    return lettura && !lettura.trovata();
}

void aggiungiMancanti(const std::vector<Riferimento>& riferimenti, QStringList& nomi) {
    for (const Riferimento& riferimento : riferimenti) {
        if (!nomi.contains(riferimento.nome) && manca(riferimento)) nomi << riferimento.nome;
    }
}

}  // namespace

bool riferimentoRifiutato() {
    if (!gAdo.transazioneFallita() || gAdo.ultimoErrore().classe != ErroreServer::Classe::Integrita)
        return false;
    gErr.ritiraUltimoDialogo();
    return true;
}

void spiegaRiferimentiMancanti(const Vendita& v, const Documento& d) {
    QStringList nomi;
    aggiungiMancanti(dellaTestata(v, d), nomi);
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        if (v.flxVB.viva(r)) aggiungiMancanti(dellaRiga(v.flxVB, r), nomi);
    }
    const QString testo =
        nomi.isEmpty() ? QString(testoRifiuto) : QString(testoMancanti).arg("\n - " + nomi.join("\n - "));
    gErr.mostraMessaggio(testo, OperatorPort::Icona::Esclamazione);
}
