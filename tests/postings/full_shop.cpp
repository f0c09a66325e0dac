#include "postings/full_shop.h"

#include <map>

#include "core/globals.h"
#include "data/schema.h"
#include "doubles/celle.h"
#include "doubles/kit_di_prova.h"

namespace {

constexpr int clienteDelBanco = 1;

const QStringList scritteDaVendita{"Contatori",        "Movimenti", "DettagliMovimento", "Prodotti",
                                   "DettagliProdotto", "PrimaNota", "PrimaNotaDettagli", "Scadenze"};

// Layers: of A 4 pieces at 3,00 and 10 at 3,50; of B 20 at 1,20; of the kit's parts 50 each. At the average
// a product has one row.
void riempiMagazzino(Negozio& n) {
    n.prodotto({.codice = "A", .listino1 = 10, .giacenza = 14, .gestioneGiacenza = true});
    n.prodotto({.codice = "B", .listino1 = 5.5, .idIva = 2, .giacenza = 20, .gestioneGiacenza = true});
    n.prodotto({.codice = "C", .listino1 = 2});
    const int vite = n.prodotto({.codice = "VITE", .listino1 = 1, .giacenza = 50, .gestioneGiacenza = true});
    const int staffa =
        n.prodotto({.codice = "STAFFA", .listino1 = 4, .giacenza = 50, .gestioneGiacenza = true});
    distinta(n, "%KIT", {{vite, 2, 0}, {staffa, 1, 0}});
    n.sql(
        "UPDATE Prodotti SET PESO = 0.5, COLLI = 1, PREZZOACQUISTO = 2, DATAULTIMOSCARICO = '2026-01-02 "
        "00:00:00', PREZZOULTIMOSCARICO = 1");
    const QString strati = "INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) ";
    n.sql(strati + (gPrezzoMedio == 1 ? "VALUES (1,1,3.5,14)" : "VALUES (1,1,3,4),(1,1,3.5,10)"));
    n.sql(strati + "VALUES (2,1,1.2,20)");
    n.sql(strati + "SELECT RID, 1, 0.5, 50 FROM Prodotti WHERE GIACENZA = 50");
}

void apriContabilita(Negozio& n) {
    n.sql(
        "UPDATE Causali SET GENERASCAD = 1, FK_CONTODARE1 = 1, FK_CONTOAVERE1 = 3, FK_CONTOAVERE2 = 4 "
        "WHERE RID = 1");
    n.sql("UPDATE Causali SET FK_CONTODARE1 = 2, FK_CONTOAVERE1 = 1 WHERE RID = 2");
    n.sql("UPDATE TipoDocumenti SET ACCOMPAGNATORIO = 1");
    n.sql("UPDATE Pagamenti SET ACCONTO = 10, NRATE = 2 WHERE RID = 1");
    n.sql("INSERT INTO DettagliPagamenti (FK_PAGAMENTO, NGIORNI, PERCENTUALE) VALUES (1,30,45),(1,60,45)");
}

QString chiaveOrdinata(std::map<QString, int>& ordine, const QVariant& chiave) {
    if (chiave.isNull()) return {};
    const QString testo = chiave.toString();
    return QString::number(ordine.try_emplace(testo, static_cast<int>(ordine.size()) + 1).first->second);
}

}  // namespace

BottegaCompleta::BottegaCompleta(bool banco, int prezzoMedio) {
    gNomeModulo = "bBottegonClientVB";
    gPrezzoMedio = prezzoMedio;
    gMesiPrezzoMedio = 12;
    riempiMagazzino(n);
    apriContabilita(n);
    const int cliente = banco ? clienteDelBanco : n.cliente(7, "ROSSI");
    n.apriConto();
    vendita().txtCodCliente.tag(QString::number(cliente));
    vendita().chkPagato.valore(1);
    for (const char* codice : {"A", "B", "C", "%KIT"})
        vendi(conto(), codice);
}

void BottegaCompleta::ritocca() {
    conto().clicRiga(1);
    conto().clic(vendita().txtQta);
    conto().digita("3");
    conto().tasto(Qt::Key_F6);
    conto().clicRiga(2);
    n.operatore.attendiDomanda("Eliminare il prodotto [B]?", OperatorPort::Risposta::Si);
    conto().tasto(Qt::Key_F9);
    vendi(conto(), "B", "7");
}

void BottegaCompleta::cancella() {
    n.operatore.attendiDomanda("Eliminare il movimento con progressivo 0001/0001?",
                               OperatorPort::Risposta::Si);
    conto().tasto(Qt::Key_F7, Qt::ShiftModifier);
}

QStringList libriSenzaChiavi(const Negozio& negozio) {
    std::map<QString, std::map<QString, int>> ordini;
    QStringList tutte;
    for (const schema::Tabella& tabella : schema::tabelle()) {
        if (!scritteDaVendita.contains(tabella.nome)) continue;
        for (Recordset r = negozio.interroga("SELECT * FROM " + tabella.nome + " ORDER BY 1"); !r.eof();
             r.moveNext()) {
            QStringList celle;
            for (int i = 0; i < r.campi(); ++i) {
                const schema::Colonna& c = tabella.colonne[static_cast<size_t>(i)];
                const bool propria = c.tipo == schema::Tipo::Chiave || c.nome == "IK_DETTAGLIOMOVIMENTO";
                const QString riferita = propria ? tabella.nome : c.riferimento;
                celle << (riferita.isEmpty() ? testoCella(r.campo(i))
                                             : chiaveOrdinata(ordini[riferita], r.campo(i)));
            }
            tutte << tabella.nome + ": " + celle.join('|');
        }
    }
    return tutte;
}
