#include <QStringList>

#include "archivio/demo_context.h"
#include "archivio/demo_shop.h"

namespace {

// An Italian VAT number of an office that does not exist; the check digit is never 0.
QString partitaIva(Casuale& casuale) {
    for (;;) {
        const QString dieci = QString::number(casuale.tra(1000000, 8999999)) + "200";
        int somma = 0;
        for (int i = 0; i < 10; ++i) {
            int cifra = dieci[i].digitValue();
            if (i % 2 == 1) cifra = cifra * 2 > 9 ? cifra * 2 - 9 : cifra * 2;
            somma += cifra;
        }
        if (somma % 10 != 0) return dieci + QString::number(10 - somma % 10);
    }
}

void indirizzo(ContestoDemo& c, Riga& riga) {
    static const std::vector<const char*> vie = {
        "VIA ROMA",  "VIA GARIBALDI",  "VIA DEI MULINI", "CORSO ITALIA",     "VIA DELL'OLMO", "PIAZZA DUOMO",
        "VIA DANTE", "VIA DELLE ROSE", "VIALE STAZIONE", "STRADA DEL COLLE", "VIA MAZZINI",   "VICOLO CORTO"};
    static const std::vector<std::pair<const char*, const char*>> citta = {{"VALFIORITA", "99010"},
                                                                           {"BORGO SAN LUPO", "99020"},
                                                                           {"PONTELUNGO", "99030"},
                                                                           {"MONTALTINO", "99040"}};
    const auto& [nome, cap] = c.casuale.uno(citta);
    riga.insert(riga.end(), {{"INDIRIZZO", QString(c.casuale.uno(vie))},
                             {"CIVICO", QString::number(c.casuale.tra(1, 140))},
                             {"CAP", QString(cap)},
                             {"CITTA", QString(nome)},
                             {"PROVINCIA", QString("VF")},
                             {"TELUFFICIO", QString("0999 55%1").arg(c.casuale.tra(1000, 9999))}});
}

struct Cliente {
    QString nome;
    bool azienda = false;
    int listino = 1;
    int sconto = 0;
    QString fascia = {};
    QString pagamento = "CONT";
    int fido = 0;
    bool segnala = false;
};

void scriviCliente(ContestoDemo& c, const Cliente& cliente) {
    const int numero = static_cast<int>(c.clienti.size()) + 1;
    Riga riga = {
        {"NUMERO", numero},
        {"TIPO", QString("C")},
        {"DENOMINAZIONE", cliente.nome},
        {"LISTINO", cliente.listino},
        {"SCONTO", cliente.sconto},
        {"FK_PAGAMENTO", c.pagamenti.at(cliente.pagamento)},
        {"FK_FASCIACLIENTE", cliente.fascia.isEmpty() ? QVariant() : QVariant(c.fasce.at(cliente.fascia))},
        {"FIDO", cliente.fido},
        {"CTRLFIDO", cliente.fido > 0 ? 1 : 0},
        {"SEGNALA", cliente.segnala ? 1 : 0}};
    if (numero != DemoNegozio::clienteBanco) {
        riga.push_back({"CODICEEXTRA", QString("TES%1").arg(numero, 4, 10, QChar(u'0'))});
        indirizzo(c, riga);
    }
    if (cliente.azienda) {
        const QString iva = partitaIva(c.casuale);
        riga.insert(riga.end(), {{"PIVA", iva},
                                 {"CFISCALE", iva},
                                 {"INDIRIZZODEST", QString("VIA DEL MAGAZZINO")},
                                 {"CIVICODEST", QString::number(numero)},
                                 {"CAPDEST", QString("99010")},
                                 {"CITTADEST", QString("VALFIORITA")},
                                 {"PROVINCIADEST", QString("VF")}});
    }
    c.clienti.push_back(c.scrittore.inserisci("Anagrafiche", riga));
}

// The customers that DemoNegozio names, in its order.
void scriviClientiNoti(ContestoDemo& c) {
    scriviCliente(c, {"CLIENTE DEL BANCO"});
    scriviCliente(c, {"IMPRESA EDILE VALFIORITA SRL", true, 2, 0, "IMP", "30FM", 1000});
    scriviCliente(c, {"BIANCONI GIOVANNA", false, 1, 10});
    scriviCliente(c, {"IDRAULICA SORGENTE SNC", true, 3, 0, "ART", "3060", 500});
    scriviCliente(c, {"COMUNE DI VALFIORITA", true, 1, 0, "", "306090", 0, true});
    scriviCliente(c, {"CARTOLERIA D'ANGELO", true, 4, 0, "RIV", "RB60"});
}

Cliente aziendaACaso(Casuale& casuale) {
    static const std::vector<const char*> mestieri = {
        "EDILIZIA",        "TERMOIDRAULICA", "FALEGNAMERIA", "CARPENTERIA", "VIVAI",      "TINTEGGIATURE",
        "ELETTROIMPIANTI", "TRATTORIA",      "AGRITURISMO",  "OFFICINA",    "CONDOMINIO", "PANIFICIO"};
    static const std::vector<const char*> nomi = {"DEL COLLE", "LA QUERCIA", "IL MULINO", "SAN LUPO",
                                                  "BELVEDERE", "LA FONTE",   "DEI TIGLI", "PONTELUNGO",
                                                  "LE ROSE",   "MONTALTINO"};
    static const std::vector<const char*> forme = {"SRL", "SNC", "SAS", "DI ROSSINELLI & C."};
    static const std::vector<const char*> fasce = {"ART", "IMP", "RIV"};
    static const std::vector<const char*> pagamenti = {"CONT", "30FM", "3060", "306090", "RB60", "ACC30"};
    Cliente cliente;
    for (const auto* parole : {&mestieri, &nomi, &forme}) {
        cliente.nome += (cliente.nome.isEmpty() ? "" : " ") + QString(casuale.uno(*parole));
    }
    cliente.azienda = true;
    cliente.listino = casuale.tra(1, 4);
    cliente.fascia = casuale.uno(fasce);
    cliente.pagamento = casuale.uno(pagamenti);
    cliente.fido = casuale.percento(50) ? casuale.tra(1, 10) * 500 : 0;
    cliente.segnala = casuale.percento(8);
    return cliente;
}

// The n-th private customer; no two of the first thousand have the same name.
Cliente privato(Casuale& casuale, int n) {
    static const char* const cognomi[] = {"ROSSINELLI",   "FERRARONI", "BIANCONI", "COLOMBARI",
                                          "RICCIARDELLI", "GALLERANI", "CONTINI",  "MARCHESAN",
                                          "DE FELICIS",   "LO MONTE"};
    static const char* const nomi[] = {"ANNA",  "MARCO", "LUCIA",  "PAOLO", "NICOLÒ",
                                       "ELENA", "DARIO", "CHIARA", "UGO",   "ROSA"};
    Cliente cliente;
    cliente.nome = QString(cognomi[n % 10]) + " " + nomi[(n * 3 + n / 10) % 10];
    if (n >= 100) cliente.nome += QString(" ") + nomi[n / 100 % 10];
    cliente.sconto = casuale.percento(15) ? 5 : 0;
    return cliente;
}

void scriviFornitori(ContestoDemo& c) {
    const char* const nomi[] = {"FERRAMENTA INGROSSO PIANURA SPA",
                                "CENTRO UTENSILI RIUNITI SRL",
                                "COLORIFICIO DEL LAGO SPA",
                                "IDROFORNITURE ALPE SRL",
                                "LUCE E CAVI SRL",
                                "CASALINGHI BRILLA SPA",
                                "VERDE VIVO CONSORZIO AGRARIO",
                                "MINUTERIE VALBASSA SNC",
                                "DETERGENZA CHIARA SRL",
                                "SICUREZZA E CHIAVI SRL"};
    for (const char* nome : nomi) {
        const QString iva = partitaIva(c.casuale);
        Riga riga = {{"NUMERO", static_cast<int>(c.clienti.size() + c.fornitori.size()) + 1},
                     {"TIPO", QString("F")},
                     {"DENOMINAZIONE", QString(nome)},
                     {"LISTINO", 1},
                     {"FK_PAGAMENTO", c.pagamenti.at("RB60")},
                     {"PIVA", iva},
                     {"CFISCALE", iva}};
        indirizzo(c, riga);
        c.fornitori.push_back(c.scrittore.inserisci("Anagrafiche", riga));
    }
}

}  // namespace

void scriviAnagrafiche(ContestoDemo& c) {
    scriviClientiNoti(c);
    const auto totale = static_cast<size_t>(c.totaleClienti);
    while (c.clienti.size() < totale / 2)
        scriviCliente(c, aziendaACaso(c.casuale));
    for (int n = 0; c.clienti.size() < totale; ++n) {
        scriviCliente(c, privato(c.casuale, n));
    }
    scriviFornitori(c);
}
