#include <initializer_list>

#include "archivio/demo_catalogue.h"
#include "archivio/demo_context.h"

namespace {

struct Voce {
    const char* codice;
    const char* descrizione;
};

std::map<QString, qint64> scriviVoci(Scrittore& scrittore, const char* tabella,
                                     std::initializer_list<Voce> voci) {
    std::map<QString, qint64> chiavi;
    for (const Voce& v : voci) {
        chiavi[v.codice] = scrittore.inserisci(
            tabella, {{"CODICE", QString(v.codice)}, {"DESCRIZIONE", QString(v.descrizione)}});
    }
    return chiavi;
}

void scriviIva(ContestoDemo& c) {
    for (const Voce& v : {Voce{"22", "IVA ordinaria 22%"}, Voce{"10", "IVA ridotta 10%"},
                          Voce{"5", "IVA ridotta 5%"}, Voce{"4", "IVA minima 4%"}}) {
        c.iva[v.codice] = c.scrittore.inserisci("Iva", {{"CODICE", QString(v.codice)},
                                                        {"DESCRIZIONE", QString(v.descrizione)},
                                                        {"VALORE", QString(v.codice).toInt()}});
    }
}

void scriviMarche(ContestoDemo& c) {
    for (const Famiglia& famiglia : catalogo()) {
        const QStringList marche = QString(famiglia.marche).split(';');
        for (const QString& marca : marche) {
            if (c.marche.count(marca) != 0) continue;
            const QString codice = QString("M%1").arg(c.marche.size() + 1, 2, 10, QChar(u'0'));
            c.marche[marca] = c.scrittore.inserisci("Marche", {{"CODICE", codice}, {"DESCRIZIONE", marca}});
        }
    }
}

void scriviCategorie(ContestoDemo& c) {
    for (const Categoria& v : categorie()) {
        c.categorie[v.codice] =
            c.scrittore.inserisci("CategorieMerceologiche",
                                  {{"CODICE", QString(v.codice)}, {"DESCRIZIONE", QString(v.descrizione)}});
    }
}

void scriviVenditori(Scrittore& scrittore) {
    const char* const nomi[] = {"Marta", "Giulio", "Serena", "Ivano"};
    int numero = 0;
    for (const char* nome : nomi) {
        ++numero;
        scrittore.inserisci("Venditori", {{"CODICE", QString::number(numero)},
                                          {"DESCRIZIONE", QString(nome)},
                                          {"CODICEEXTRA", QString::number(990000 + numero)}});
    }
}

void scriviBanche(Scrittore& scrittore) {
    const Voce banche[] = {{"BVF", "Banca di Valfiorita"}, {"CRC", "Cassa Rurale del Colle"}};
    int numero = 0;
    for (const Voce& v : banche) {
        ++numero;
        scrittore.inserisci("Banche", {{"CODICE", QString(v.codice)},
                                       {"DESCRIZIONE", QString(v.descrizione)},
                                       {"ABI", QString("9900%1").arg(numero)},
                                       {"CAB", QString("1234%1").arg(numero)},
                                       {"AGENZIA", QString("Valfiorita %1").arg(numero)}});
    }
}

void scriviScontiImmediati(Scrittore& scrittore) {
    for (const int percento : {5, 10, 15, 20}) {
        scrittore.inserisci("ScontiImmediati", {{"CODICE", QString("-%1%").arg(percento)},
                                                {"DESCRIZIONE", QString("Sconto %1%").arg(percento)},
                                                {"VALORE", percento}});
    }
}

// Days and share of each instalment; none: paid at the counter.
struct Pagamento {
    const char* codice;
    const char* descrizione;
    int acconto;
    int fineMese;
    std::vector<std::pair<int, double>> rate;
};

void scriviPagamenti(ContestoDemo& c) {
    const std::vector<Pagamento> pagamenti = {
        {"CONT", "Contanti", 0, 0, {}},
        {"POS", "Bancomat o carta", 0, 0, {}},
        {"30FM", "30 giorni fine mese", 0, 1, {{30, 100}}},
        {"3060", "30/60 giorni", 0, 0, {{30, 50}, {60, 50}}},
        {"306090", "30/60/90 giorni fine mese", 0, 1, {{30, 33.33}, {60, 33.33}, {90, 33.34}}},
        {"RB60", "Ricevuta bancaria 60 giorni fine mese", 0, 1, {{60, 100}}},
        {"ACC30", "Acconto 30%, saldo a 60 giorni", 30, 0, {{60, 70}}},
    };
    for (const Pagamento& p : pagamenti) {
        const qint64 chiave =
            c.scrittore.inserisci("Pagamenti", {{"CODICE", QString(p.codice)},
                                                {"DESCRIZIONE", QString(p.descrizione)},
                                                {"ACCONTO", p.acconto},
                                                {"RIMESSADIRETTA", 0},
                                                {"FINEMESE", p.fineMese},
                                                {"NRATE", static_cast<int>(p.rate.size())}});
        c.pagamenti[p.codice] = chiave;
        for (const auto& [giorni, quota] : p.rate) {
            c.scrittore.inserisci("DettagliPagamenti",
                                  {{"FK_PAGAMENTO", chiave}, {"NGIORNI", giorni}, {"PERCENTUALE", quota}});
        }
    }
}

}  // namespace

void scriviCodici(ContestoDemo& c) {
    scriviIva(c);
    c.unita = scriviVoci(
        c.scrittore, "UnitaMisura",
        {{"PZ", "Pezzi"}, {"CF", "Confezioni"}, {"MT", "Metri"}, {"KG", "Chilogrammi"}, {"LT", "Litri"}});
    scriviMarche(c);
    c.gruppi =
        scriviVoci(c.scrittore, "Gruppi",
                   {{"FER", "Ferramenta"}, {"CAS", "Casalinghi"}, {"GIA", "Giardino"}, {"SER", "Servizi"}});
    scriviCategorie(c);
    scriviVoci(c.scrittore, "Magazzini", {{"NEG", "Negozio"}, {"DEP", "Deposito"}});
    c.fasce = scriviVoci(c.scrittore, "FasceClienti",
                         {{"ART", "Artigiani"}, {"IMP", "Imprese"}, {"RIV", "Rivenditori"}});
    c.categorieSconti = scriviVoci(c.scrittore, "CategorieSconti",
                                   {{"FER", "Ferramenta minuta"},
                                    {"UTE", "Utensileria"},
                                    {"VER", "Vernici e collanti"},
                                    {"IDR", "Idraulica e rubinetteria"},
                                    {"ELE", "Materiale elettrico"},
                                    {"CAS", "Casalinghi"},
                                    {"NET", "Prezzi netti"},
                                    {"GIA", "Giardinaggio"}});
    scriviVoci(c.scrittore, "AspettoEsteriore",
               {{"SCA", "Scatole"}, {"SAC", "Sacchi"}, {"VIS", "A vista"}, {"BAN", "Bancale"}});
    scriviVoci(c.scrittore, "CausaliTrasporto",
               {{"VEN", "Vendita"}, {"VIS", "Conto visione"}, {"RIP", "Riparazione"}, {"RES", "Reso"}});
    scriviVoci(c.scrittore, "Spedizioni",
               {{"MIT", "A mezzo mittente"}, {"DES", "A mezzo destinatario"}, {"VET", "A mezzo vettore"}});
    scriviVenditori(c.scrittore);
    scriviBanche(c.scrittore);
    scriviScontiImmediati(c.scrittore);
    scriviPagamenti(c);
}
