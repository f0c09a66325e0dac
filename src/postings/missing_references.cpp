#include "postings/missing_references.h"

#include <map>
#include <set>

#include <QStringList>

#include "core/errors.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "postings/post_accounts.h"
#include "postings/save_state.h"
#include "postings/stored_row.h"
#include "sale/vendita.h"

namespace {

using Riferimenti = std::vector<Riferimento>;

const char* const testoNonSalvata = "La vendita non è stata salvata. ";
const char* const testoMancanti = "Nell'archivio non c'è più:";
const char* const testoNonScelti = "Nelle opzioni non è stato scelto:";
const char* const testoCorreggere = "La vendita è ancora sullo schermo: correggerla e salvarla di nuovo.";
const char* const testoCompletare =
    "La vendita è ancora sullo schermo: si potrà salvare quando l'archivio sarà stato completato.";
const char* const testoScegliere =
    "La vendita è ancora sullo schermo: si potrà salvare quando sarà stato scelto.";
const char* const testoRifiuto =
    "La vendita non è stata salvata: qualcosa a cui si riferisce non è più nell'archivio.\n"
    "La vendita è ancora sullo schermo e si può salvare di nuovo.";
const char* const testoNonCancellata = "La vendita non è stata cancellata. ";
const char* const testoCompletareCancellando = "Si potrà cancellare quando l'archivio sarà stato completato.";
const char* const testoRifiutoCancellando =
    "La vendita non è stata cancellata: qualcosa a cui si riferisce non è più nell'archivio.\n"
    "La vendita è ancora nell'archivio e si può cancellare di nuovo.";

const char* const tabellaCausali = "Causali";
const char* const nomePagamento = "il pagamento della vendita";

QString sorgente() {
    return gNomeModulo + ".salvaVendita";
}

QString traParentesi(const QString& nome, const QString& valore) {
    return valore.isEmpty() ? nome : nome + " [" + valore + "]";
}

Riferimento ilCliente(const Vendita& v, int chiave) {
    return {"Anagrafiche", chiave, traParentesi("il cliente", v.lblDescCliente.testo())};
}

Riferimenti leCausali(int documento, int incasso) {
    return {{tabellaCausali, documento, "la causale del documento", false},
            {tabellaCausali, incasso, "la causale dell'incasso", false}};
}

Riferimenti dellaTestata(const Vendita& v, const Documento& d) {
    return {ilCliente(v, d.trasferimento ? -1 : v.cliente()),
            {"Pagamenti", v.idPagamento, nomePagamento, v.idPagamento != gPagamentoVB, gPagamentoVB < 1},
            {"TipoDocumenti", d.tipo, traParentesi("il tipo di documento", v.descTipoDocumento), false,
             gTipoDocVb < 1},
            {"Magazzini", v.magazzinoOrigine, "il magazzino da cui parte la merce", false},
            {"Magazzini", v.magazzinoDestinazione, "il magazzino a cui va la merce", false}};
}

Riferimenti dellaRiga(const FlexVB& g, int r) {
    const auto cella = [&](Colonna colonna) { return g.cella(r, colonna); };
    const QString prodotto =
        "prodotto [" + cella(Colonna::Codice) + " - " + cella(Colonna::Descrizione) + "]";
    return {{"Prodotti", g.chiave(r, Colonna::IdProdotto), "il " + prodotto},
            {"Iva", g.chiave(r, Colonna::IdIva),
             traParentesi("l'aliquota IVA", cella(Colonna::CodIva)) + " del " + prodotto},
            {"UnitaMisura", g.chiave(r, Colonna::IdUm),
             traParentesi("l'unità di misura", cella(Colonna::Um)) + " del " + prodotto},
            {"Venditori", g.chiave(r, Colonna::IdVenditore),
             traParentesi("il venditore", cella(Colonna::DescVenditore))}};
}

void aggiungi(Riferimenti& tutti, const Riferimenti& altri) {
    for (const Riferimento& altro : altri) {
        if (altro.chiave > 0 || altro.opzioneMaiScelta) tutti.push_back(altro);
    }
}

std::set<int> chiaviDella(const Riferimenti& riferimenti, const QString& tabella) {
    std::set<int> chiavi;
    for (const Riferimento& r : riferimenti) {
        if (r.tabella == tabella) chiavi.insert(r.chiave);
    }
    return chiavi;
}

// What a causal books to is written nowhere on the sale.
Riferimenti contiDelleCausali(const std::set<int>& causali) {
    Riferimenti conti;
    if (causali.empty()) return conti;
    const Lettura lettura(
        "SELECT DESCRIZIONE, FK_CONTODARE1, FK_CONTODARE2, FK_CONTOAVERE1, FK_CONTOAVERE2 FROM Causali "
        "WHERE RID IN (" +
            elencoChiavi(causali) + ")",
        sorgente());
    for (; lettura && !lettura->eof(); lettura->moveNext()) {
        const QString nome = traParentesi("un conto della causale", lettura->testo("DESCRIZIONE"));
        for (const char* conto : {"FK_CONTODARE1", "FK_CONTODARE2", "FK_CONTOAVERE1", "FK_CONTOAVERE2"})
            aggiungi(conti, {{"PianoConti", lettura->intero(conto), nome, false}});
    }
    return conti;
}

// Of these keys the ones that no row has; none when that could not be read.
std::set<int> mancanti(const QString& tabella, std::set<int> chiavi) {
    const Lettura lettura("SELECT RID FROM " + tabella + " WHERE RID IN (" + elencoChiavi(chiavi) + ")",
                          sorgente());
    if (!lettura) return {};
    for (; !lettura->eof(); lettura->moveNext())
        chiavi.erase(lettura->intero("RID"));
    return chiavi;
}

Riferimenti mancanti(const Riferimenti& riferimenti) {
    std::map<QString, std::set<int>> assenti;
    Riferimenti tutti;
    for (const Riferimento& r : riferimenti) {
        const auto [tabella, nuova] = assenti.try_emplace(r.tabella);
        if (nuova) tabella->second = mancanti(r.tabella, chiaviDella(riferimenti, r.tabella));
        if (tabella->second.contains(r.chiave)) tutti.push_back(r);
    }
    return tutti;
}

QString elenco(const char* titolo, const QStringList& nomi) {
    return nomi.isEmpty() ? QString() : titolo + ("\n - " + nomi.join("\n - ")) + "\n";
}

// An insert is logged by the gateway, any other statement is not.
void annotaRifiuto(const QString& procedura) {
    if (gAdo.erroreAnnotato()) return;
    const ErroreServer& e = gAdo.ultimoErrore();
    gErr.annotaErrore(RunTimeError(e.codice, e.descrizione, e.origine), gNomeModulo, procedura,
                      "SQL=" + decodificaTestoSQL(gAdo.getLastSQLCommand()));
}

bool rifiutata(const QString& procedura) {
    if (!gAdo.transazioneFallita() || gAdo.ultimoErrore().classe != ErroreServer::Classe::Integrita)
        return false;
    annotaRifiuto(procedura);
    gErr.ritiraUltimoDialogo();
    return true;
}

struct Mancanti {
    QStringList nomi;
    QStringList nonScelti;     // options that were never set
    bool correggibile = true;  // all of them on the screen

    QString elenchi() const { return elenco(testoMancanti, nomi) + elenco(testoNonScelti, nonScelti); }
};

Mancanti cercaMancanti(Riferimenti riferimenti) {
    aggiungi(riferimenti, contiDelleCausali(chiaviDella(riferimenti, tabellaCausali)));
    Mancanti m;
    for (const Riferimento& r : mancanti(riferimenti)) {
        QStringList& elencati = r.chiave > 0 ? m.nomi : m.nonScelti;
        if (!elencati.contains(r.nome)) elencati << r.nome;
        m.correggibile = m.correggibile && r.dellaVendita;
    }
    return m;
}

void racconta(const QString& testo) {
    gErr.mostraMessaggio(testo, OperatorPort::Icona::Esclamazione);
}

}  // namespace

std::optional<Riferimenti> riferimentiRifiutati(const Vendita& v, const Documento& d) {
    if (!rifiutata("salvaVendita")) return std::nullopt;
    Riferimenti tutti;
    aggiungi(tutti, dellaTestata(v, d));
    aggiungi(tutti, leCausali(siRegistra(v, d.trasferimento) ? v.mCausaleDoc : -1,
                              siIncassa(v, d.trasferimento, d.conversione) ? v.idCausalePagamento : -1));
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        if (v.flxVB.viva(r)) aggiungi(tutti, dellaRiga(v.flxVB, r));
    }
    return tutti;
}

std::optional<Riferimenti> riferimentiRifiutatiCancellando(const Vendita& v, int causaleIncasso) {
    // What other rows still refer to is not gone: the server's words are the right ones.
    if (gAdo.getLastSQLCommand().startsWith("DELETE") || !rifiutata("cancellaVendita")) return std::nullopt;
    Riferimenti tutti;
    aggiungi(tutti, {ilCliente(v, v.cliente()), {"Pagamenti", v.idPagamento, nomePagamento, false}});
    aggiungi(tutti, leCausali(v.mCausaleDoc, causaleIncasso));
    return tutti;
}

void spiegaRiferimentiMancanti(Riferimenti riferimenti) {
    const Mancanti m = cercaMancanti(std::move(riferimenti));
    const char* const rimedio =
        m.nomi.isEmpty() ? testoScegliere : (m.correggibile ? testoCorreggere : testoCompletare);
    racconta(m.elenchi().isEmpty() ? QString(testoRifiuto) : testoNonSalvata + m.elenchi() + rimedio);
}

void spiegaRiferimentiMancantiCancellando(Riferimenti riferimenti) {
    const QString elenchi = cercaMancanti(std::move(riferimenti)).elenchi();
    racconta(elenchi.isEmpty() ? QString(testoRifiutoCancellando)
                               : testoNonCancellata + elenchi + testoCompletareCancellando);
}
