#include <algorithm>
#include <set>

#include <QStringList>

#include "archivio/demo_catalogue.h"
#include "archivio/demo_context.h"
#include "archivio/demo_shop.h"
#include "archivio/demo_stock.h"
#include "core/value_helpers.h"

QString ean13(const QString& dodiciCifre) {
    return dodiciCifre + QString::number(getEAN13ChekDigit(dodiciCifre));
}

QString demoBarcode(int posizione) {
    return ean13(QString("8009000000%1").arg(posizione, 2, 10, QChar(u'0')));
}

const std::vector<ProdottoFisso>& prodottiFissi() {
    static const std::vector<ProdottoFisso> elenco = {
        {"VITI440", "VITI TRUCIOLARI 4X40 ZINCATE CF 200 PZ", "VIT", "BULLONEZ", "CF", 22, 532, 310, 120},
        {"MART500", "MARTELLO DA CARPENTIERE 500 G CON MANICO", "UTE", "MARTELLARO", "PZ", 22, 1311, 740, 25},
        {"PENT24", "PENTOLA ACCIAIO CON COPERCHIO CM 24", "PTL", "PENTAGHISA", "PZ", 22, 2869, 1650, 14},
        {"LED10C", "LAMPADINA LED E27 10W LUCE CALDA", "LAM", "LUMERINA", "PZ", 22, 327, 150, 200},
        {"SMALTB", "SMALTO ALL'ACQUA BIANCO LUCIDO 0,75 LT", "VER", "COLORALBA", "PZ", 22, 1229, 710, 40},
        {"RUBLAV", "RUBINETTO LAVELLO MONOCOMANDO CROMATO", "RUB", "ACQUERELLA", "PZ", 22, 4098, 2300, 9},
        {"CAVO315", "CAVO ELETTRICO 3G1,5 AL METRO", "ELE", "FILORAME", "MT", 22, 115, 60, 500},
        {"CONC5", "CONCIME UNIVERSALE GRANULARE KG 5", "ORT", "VERDORTO", "PZ", 4, 961, 560, 30},
        {"BASIL14", "BASILICO IN VASO CM 14", "ORT", "VASELLA", "PZ", 5, 238, 130, 24},
        {"LEGNA15", "LEGNA DA ARDERE SACCO KG 15", "ORT", "LEGNOVIVO", "PZ", 10, 545, 320, 60},
        {"CHIODI370", "CHIODI PIANI 3X70 SFUSI AL KG", "CHI", "FERMASALDO", "KG", 22, 368, 190, 80},
        {"ACQRAG", "ACQUARAGIA SFUSA AL LITRO", "VER", "COLORALBA", "LT", 22, 246, 120, 150},
    };
    return elenco;
}

namespace {

// One article of a family: which variant, size and brand.
struct Articolo {
    const Famiglia* famiglia;
    QString descrizione;
    QString marca;
    double posizione;  // 0 the smallest size of its family, 1 the largest
};

void aggiungiFamiglia(std::vector<Articolo>& articoli, const Famiglia& f) {
    const QStringList varianti = QString(f.varianti).split(';');
    const QStringList misure = QString(f.misure).split(';');
    const QStringList marche = QString(f.marche).split(';');
    const double passi = std::max(1.0, static_cast<double>(misure.size() - 1));
    for (const QString& variante : varianti) {
        for (int i = 0; i < misure.size(); ++i) {
            for (const QString& marca : marche) {
                QString descrizione = QString(f.base) + " " + variante + " " + misure[i];
                if (marche.size() > 1) descrizione += " " + marca;
                articoli.push_back({&f, descrizione, marca, i / passi});
            }
        }
    }
}

// So many articles of the catalogue, chosen by the dice, in the order of the catalogue; a shop that wants
// more of them has each in several series.
std::vector<Articolo> scegliArticoli(Casuale& casuale, size_t quanti) {
    std::vector<Articolo> articoli;
    for (const Famiglia& f : catalogo())
        aggiungiFamiglia(articoli, f);
    const size_t interi = articoli.size();
    for (size_t i = interi; i < quanti; ++i) {
        Articolo altro = articoli[i % interi];
        altro.descrizione += QString(" SERIE %1").arg(i / interi + 1);
        articoli.push_back(std::move(altro));
    }
    while (articoli.size() > quanti) {
        articoli.erase(articoli.begin() + casuale.tra(0, static_cast<int>(articoli.size()) - 1));
    }
    return articoli;
}

// A price with VAT that ends as shop prices do, in cents.
int prezzoAlPubblico(Casuale& casuale, const Articolo& a) {
    const Famiglia& f = *a.famiglia;
    const double base = f.prezzoMin + (f.prezzoMax - f.prezzoMin) * a.posizione;
    const int mosso = static_cast<int>(base * casuale.tra(90, 115) / 100.0);
    return mosso < 300 ? std::max(5, mosso / 5 * 5) : mosso / 10 * 10 + (casuale.percento(60) ? 9 : 0);
}

int scorpora(int lordo, int iva) {
    return (lordo * 200 + (100 + iva)) / (2 * (100 + iva));
}

// Four price lists: the shop, craftsmen, builders (not on every article) and dealers.
void aggiungiListini(Riga& riga, int listino1, int acquisto, bool listino3, int giorno) {
    const auto ridotto = [&](int percento) { return std::max(acquisto, listino1 * percento / 100); };
    riga.insert(riga.end(), {{"LISTINO1", euro(listino1)},
                             {"LISTINO2", euro(ridotto(95))},
                             {"LISTINO3", euro(listino3 ? ridotto(90) : 0)},
                             {"LISTINO4", euro(ridotto(80))},
                             {"PLISTINO", euro(acquisto * 130 / 100)},
                             {"DATALISTINO", dataDb(QDate(2026, 1, 2).addDays(giorno))},
                             {"PREZZOACQUISTO", euro(acquisto)}});
}

QString codiceEan(Casuale& casuale, int numero) {
    static const std::vector<const char*> stranieri = {"300", "330", "400", "425", "500",
                                                       "570", "590", "690", "760"};
    const QString prefisso =
        casuale.percento(85) ? QString::number(casuale.tra(801, 839)) : QString(casuale.uno(stranieri));
    // A maker numbers ten thousand articles of its own.
    const int fabbricante = 10000 + numero / 10000 % 90 * 1000 + casuale.tra(0, 999);
    return ean13(prefisso + QString("%1%2").arg(fabbricante).arg(numero % 10000, 4, 10, QChar(u'0')));
}

const Categoria& categoriaDi(const QString& codice) {
    return *std::find_if(categorie().begin(), categorie().end(),
                         [&](const Categoria& c) { return codice == c.codice; });
}

void aggiungiClassi(Riga& riga, const ContestoDemo& c, const QString& categoria, int iva,
                    const QString& unita) {
    const Categoria& classe = categoriaDi(categoria);
    riga.insert(riga.end(), {{"FK_CATEGORIA", c.categorie.at(categoria)},
                             {"FK_GRUPPO", c.gruppi.at(classe.gruppo)},
                             {"FK_IVA", c.iva.at(QString::number(iva))},
                             {"FK_UNITAMISURA", c.unita.at(unita)}});
}

void scriviFissi(ContestoDemo& c, Scorte& scorte) {
    for (const ProdottoFisso& p : prodottiFissi()) {
        const int posizione = static_cast<int>(&p - prodottiFissi().data()) + 1;
        Riga riga = {{"CODICE", QString(p.codice)},
                     {"BARCODE", demoBarcode(posizione)},
                     {"DESCRIZIONE", QString(p.descrizione)},
                     {"FK_MARCA", c.marche.at(p.marca)},
                     {"SETGIACENZA", 1},
                     {"UBICAZIONE", QString("A%1").arg(posizione)},
                     {"PESO", 1},
                     {"COLLI", 1}};
        aggiungiClassi(riga, c, p.categoria, p.iva, p.unita);
        aggiungiListini(riga, p.listino1, p.acquisto, posizione % 3 != 0, posizione);
        const std::vector<Scorte::Strato> strati = {{DemoNegozio::magazzinoNegozio, p.acquisto, p.giacenza}};
        const qint64 chiave = scorte.scrivi(riga, strati);
        c.venduti.push_back({chiave, p.codice, p.descrizione, p.listino1, p.acquisto, p.iva,
                             c.iva.at(QString::number(p.iva)), c.unita.at(p.unita), false});
    }
}

// Services and kits carry no stock, and a free row has no price either: the operator says what it is.
void scriviVoci(ContestoDemo& c, Scorte& scorte) {
    struct Voce {
        const char* codice;
        const char* descrizione;
        const char* categoria;
        int listino1;
    };
    const Voce voci[] = {
        {"/", "VOCE LIBERA", "SRV", 0},
        {"/VARIE", "ARTICOLI VARI", "SRV", 0},
        {"DUPCHIAVE", "DUPLICAZIONE CHIAVI", "SRV", 205},
        {"TAGLIOLEGNO", "TAGLIO LEGNO SU MISURA", "SRV", 164},
        {"AFFILA", "AFFILATURA COLTELLI E FORBICI", "SRV", 328},
        {"TINTA", "TINTEGGIATURA A CAMPIONE", "SRV", 410},
        {"%BAGNO", "KIT MONTAGGIO BAGNO", "KIT", 0},
        {"%PITTURA", "KIT PITTURA PARETI", "KIT", 0},
        {"%CUCINA", "SET CUCINA COMPLETO", "KIT", 0},
        {"%ORTO", "KIT ORTO SUL BALCONE", "KIT", 0},
    };
    for (const Voce& v : voci) {
        Riga riga = {{"CODICE", QString(v.codice)},
                     {"DESCRIZIONE", QString(v.descrizione)},
                     {"SETGIACENZA", 0},
                     {"LISTINO1", euro(v.listino1)}};
        aggiungiClassi(riga, c, v.categoria, 22, "PZ");
        scorte.scrivi(riga, {});
    }
}

// Articles that another one has replaced, a few places further on; both are still sold.
constexpr int distanzaSostituto = 3;

std::set<int> scegliSostituiti(ContestoDemo& c) {
    std::set<int> sostituiti;
    for (int i = 0; i < 18; ++i)
        sostituiti.insert(c.casuale.tra(100, c.totaleProdotti - 10));
    return sostituiti;
}

// The flags that only a few articles have.
void aggiungiParticolarita(Riga& riga, Casuale& casuale, const Articolo& a, bool sempreInVendita) {
    const bool insetticida = a.descrizione.startsWith("INSETTICIDA CONCENTRATO");
    riga.insert(riga.end(), {{"SCONTO", casuale.percento(3) ? 10 : 0},
                             {"DISABILITATO", casuale.percento(2) && !sempreInVendita ? 1 : 0},
                             {"BLOCCAPREZZO", casuale.percento(1) ? 1 : 0},
                             {"ELENCOSPECIALE", insetticida ? 1 : 0}});
    if (insetticida) riga.push_back({"NUMREGISTRAZIONE", QString("REG-%1").arg(casuale.tra(10000, 19999))});
    if (casuale.percento(40))
        riga.push_back({"EXTRACODICE", QString("F%1").arg(casuale.tra(100000, 999999))});
}

QString scaffale(Casuale& casuale) {
    const QChar corsia(static_cast<char16_t>(u'A' + casuale.tra(0, 11)));
    return corsia + QString::number(casuale.tra(1, 30));
}

QVariant categoriaSconti(ContestoDemo& c, const QString& categoria) {
    if (c.casuale.percento(3)) return c.categorieSconti.at("NET");
    const QString codice = categoriaDi(categoria).categoriaSconti;
    return codice.isEmpty() ? QVariant() : QVariant(c.categorieSconti.at(codice));
}

void scriviArticolo(ContestoDemo& c, Scorte& scorte, const Articolo& a, const std::set<int>& sostituiti) {
    const Famiglia& f = *a.famiglia;
    const int numero = scorte.prodotti() + 1;
    const QVariant catScoVen = categoriaSconti(c, f.categoria);
    const bool sostituito = sostituiti.count(numero) > 0;
    const int listino1 = std::max(4, scorpora(prezzoAlPubblico(c.casuale, a), f.iva));
    const int acquisto = std::max(1, listino1 * c.casuale.tra(50, 72) / 100);
    Riga riga = {{"CODICE", QString("%1%2").arg(QString(f.categoria)).arg(numero, 4, 10, QChar(u'0'))},
                 {"BARCODE", codiceEan(c.casuale, numero)},
                 {"DESCRIZIONE", a.descrizione},
                 {"FK_MARCA", c.marche.at(a.marca)},
                 {"SETGIACENZA", 1},
                 {"UBICAZIONE", scaffale(c.casuale)},
                 {"PESO", f.grammi / 1000.0},
                 {"COLLI", 1},
                 {"FK_CATSCOVEN", catScoVen},
                 {"FK_SOSTITUITO", sostituito ? QVariant(numero + distanzaSostituto) : QVariant()},
                 {"FK_CATSCOACQ", c.categorieSconti.at(f.iva == 22 ? "FER" : "GIA")}};
    aggiungiClassi(riga, c, f.categoria, f.iva, f.unita);
    const bool listino3 = c.casuale.percento(70);
    aggiungiListini(riga, listino1, acquisto, listino3, c.casuale.tra(0, 150));
    aggiungiParticolarita(riga, c.casuale, a, sostituito || sostituiti.count(numero - distanzaSostituto) > 0);
    const qint64 chiave = scorte.scrivi(riga, stratiACaso(c.casuale, acquisto));
    c.venduti.push_back({chiave, riga.front().second.toString(), a.descrizione, listino1, acquisto, f.iva,
                         c.iva.at(QString::number(f.iva)), c.unita.at(f.unita),
                         catScoVen == QVariant(c.categorieSconti.at("NET"))});
}

}  // namespace

void scriviProdotti(ContestoDemo& c) {
    Scorte scorte(c.scrittore);
    scriviFissi(c, scorte);
    scriviVoci(c, scorte);
    const std::set<int> sostituiti = scegliSostituiti(c);
    const auto articoli =
        scegliArticoli(c.casuale, static_cast<size_t>(c.totaleProdotti - scorte.prodotti()));
    for (const Articolo& a : articoli)
        scriviArticolo(c, scorte, a, sostituiti);
}
