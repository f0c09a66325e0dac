#include "archivio/demo_context.h"
#include "archivio/demo_shop.h"

namespace {

// PianoConti, in the order of its rows: the place of an account is its key.
enum Conto { Nessuno, Cassa, Banca, Clienti, Fornitori, Vendite, IvaVendite, Acquisti, IvaAcquisti, Assegni };

void scriviPianoConti(Scrittore& scrittore) {
    const std::pair<const char*, const char*> conti[] = {
        {"1001", "Cassa"},
        {"1002", "Banca conto corrente"},
        {"1501", "Clienti"},
        {"2501", "Fornitori"},
        {"4001", "Merci conto vendite"},
        {"2601", "IVA a debito"},
        {"3001", "Merci conto acquisti"},
        {"1601", "IVA a credito"},
        {"1003", "Assegni in cassa"},
        {"3101", "Spese generali"},
        {"4101", "Abbuoni e sconti attivi"},
    };
    for (const auto& [codice, descrizione] : conti) {
        scrittore.inserisci("PianoConti",
                            {{"CODICE", QString(codice)}, {"DESCRIZIONE", QString(descrizione)}});
    }
    scrittore.inserisci("CentriCosto", {{"CODICE", QString("NEG")}, {"DESCRIZIONE", QString("Negozio")}});
}

enum Parte { DaCliente = 1, DaFornitore = 2, DaMagazzino = 3 };

struct Causale {
    const char* codice;
    const char* descrizione;
    int origine;
    int destinazione;
    int magazzinoOrigine;
    int magazzinoDestinazione;
    bool primaNota;
    bool scadenze;
    Conto dare1;
    Conto dare2;
    Conto avere1;
    Conto avere2;
};

QVariant seScelto(int chiave) {
    return chiave > 0 ? QVariant(chiave) : QVariant();
}

void scriviCausale(Scrittore& scrittore, const Causale& c) {
    const bool muoveMerce = c.origine != 0;
    const bool incasso = !muoveMerce;
    const bool caricoFornitore = c.origine == DaFornitore;
    const bool resoCliente = c.origine == DaCliente;
    scrittore.inserisci("Causali", {{"CODICE", QString(c.codice)},
                                    {"DESCRIZIONE", QString(c.descrizione)},
                                    {"OPERAZIONE", muoveMerce ? 1 : 0},
                                    {"ORIGINE", c.origine},
                                    {"DESTINAZIONE", c.destinazione},
                                    {"FK_MAGAZZINOORIG", seScelto(c.magazzinoOrigine)},
                                    {"FK_MAGAZZINODEST", seScelto(c.magazzinoDestinazione)},
                                    {"TAGLIO", caricoFornitore ? 1 : 0},
                                    {"GENERAPN", c.primaNota ? 1 : 0},
                                    {"GENERASCAD", c.scadenze ? 1 : 0},
                                    {"SCADENZENEGATIVE", resoCliente ? 1 : 0},
                                    {"MOSTRAVB", incasso ? 1 : 0},
                                    {"FK_CONTODARE1", seScelto(c.dare1)},
                                    {"FK_CONTODARE2", seScelto(c.dare2)},
                                    {"FK_CONTOAVERE1", seScelto(c.avere1)},
                                    {"FK_CONTOAVERE2", seScelto(c.avere2)}});
}

void scriviCausali(Scrittore& scrittore) {
    constexpr int neg = DemoNegozio::magazzinoNegozio;
    constexpr int dep = DemoNegozio::magazzinoDeposito;
    const Causale causali[] = {
        {"VB", "Vendita al banco", DaMagazzino, DaCliente, neg, 0, true, true, Clienti, Nessuno, Vendite,
         IvaVendite},
        {"INC", "Incasso contanti", 0, 0, 0, 0, true, false, Cassa, Nessuno, Clienti, Nessuno},
        {"POS", "Incasso bancomat", 0, 0, 0, 0, true, false, Banca, Nessuno, Clienti, Nessuno},
        {"CAR", "Incasso carta di credito", 0, 0, 0, 0, true, false, Banca, Nessuno, Clienti, Nessuno},
        {"ASS", "Incasso assegno", 0, 0, 0, 0, true, false, Assegni, Nessuno, Clienti, Nessuno},
        {"FT", "Fattura di vendita", DaMagazzino, DaCliente, neg, 0, true, true, Clienti, Nessuno, Vendite,
         IvaVendite},
        {"DDT", "Consegna di merce", DaMagazzino, DaCliente, neg, 0, false, false, Nessuno, Nessuno, Nessuno,
         Nessuno},
        {"CF", "Carico da fornitore", DaFornitore, DaMagazzino, 0, neg, false, false, Acquisti, IvaAcquisti,
         Fornitori, Nessuno},
        {"TR", "Trasferimento dal deposito", DaMagazzino, DaMagazzino, dep, neg, false, false, Nessuno,
         Nessuno, Nessuno, Nessuno},
        {"NC", "Reso da cliente", DaCliente, DaMagazzino, 0, neg, true, true, Vendite, IvaVendite, Clienti,
         Nessuno},
    };
    for (const Causale& c : causali)
        scriviCausale(scrittore, c);
}

struct TipoDocumento {
    const char* codice;
    const char* descrizione;
    int causale;
    int contatore;
    const char* report;
    bool accompagnatorio;
    bool prezziIva;
    bool alBanco;
};

void scriviTipiDocumento(Scrittore& scrittore) {
    const TipoDocumento tipi[] = {
        {"VB", "Vendita al banco", 1, 1, "VenditaBanco.rpt", false, false, false},
        {"FT", "Fattura", 6, 2, "Fattura.rpt", false, false, true},
        {"FTI", "Fattura con prezzi ivati", 6, 2, "FatturaIvata.rpt", false, true, true},
        {"DDT", "Documento di trasporto", 7, 3, "Bolla.rpt", true, false, true},
        {"CF", "Carico da fornitore", 8, 4, "Carico.rpt", false, false, false},
        {"TR", "Trasferimento", 9, 5, "Trasferimento.rpt", false, false, false},
        {"NC", "Nota di credito", 10, 6, "NotaCredito.rpt", false, false, false},
    };
    for (const TipoDocumento& t : tipi) {
        scrittore.inserisci("TipoDocumenti", {{"CODICE", QString(t.codice)},
                                              {"DESCRIZIONE", QString(t.descrizione)},
                                              {"DESCSTAMPA", QString(t.descrizione).toUpper()},
                                              {"FK_CAUSALE", t.causale},
                                              {"NCONTATORE", t.contatore},
                                              {"REPORT", QString(t.report)},
                                              {"ACCOMPAGNATORIO", t.accompagnatorio ? 1 : 0},
                                              {"USAPREZZIIVA", t.prezziIva ? 1 : 0},
                                              {"MOSTRAVB", t.alBanco ? 1 : 0},
                                              {"STAMPAELENCOSPECIALE", t.accompagnatorio ? 1 : 0},
                                              {"NONSTAMPAREVB", 0}});
    }
}

}  // namespace

void scriviDocumenti(ContestoDemo& c) {
    scriviPianoConti(c.scrittore);
    scriviCausali(c.scrittore);
    scriviTipiDocumento(c.scrittore);
}
