#include "postings/expected_books.h"

#include "core/globals.h"
#include "postings/delete_sale.h"
#include "postings/save_sale.h"
#include "sale/customer.h"
#include "sale/document_info.h"
#include "sale/recall.h"
#include "sale/sale_document.h"

namespace {

// The header's columns that no save writes.
const QStringList altreColonne = {"DATASTAMPA",
                                  "RIFERIMENTI",
                                  "CODPARTITA",
                                  "FK_ASPETTOCONS",
                                  "FK_CAUSALETRASPORTO",
                                  "FK_SPEDIZIONE",
                                  "FK_BANCA",
                                  "DATACONS",
                                  "ORACONS",
                                  "VIACONS",
                                  "CIVICOCONS",
                                  "CAPCONS",
                                  "CITTACONS",
                                  "PROVINCIACONS",
                                  "TELEFONOCONS",
                                  "FAXCONS",
                                  "PROGELENCOSPECIALE",
                                  "DESTELENCOSPECIALE",
                                  "AUTELENCOSPECIALE",
                                  "DOCUMELENCOSPECIALE"};

QStringList tabella(const Negozio& n, const QString& colonne, const QString& da, const QString& ordine) {
    return n.righe("SELECT " + colonne + " FROM " + da + " ORDER BY " + ordine)
        .replaceInStrings(" 00:00:00", "");
}

}  // namespace

LibriAttesi leggiLibri(const Negozio& n) {
    LibriAttesi libri;
    libri.movimenti =
        tabella(n,
                "RID,PROGRESSIVO,ANNO,DATA,FK_TIPODOCUMENTO,FK_ORIGINE,FK_DESTINAZIONE,FK_CONTROPARTITA,"
                "FK_PAGAMENTO,ID_CASSA,USAPREZZIIVA,TOTIMPONIBILE,TOTIMPOSTA,TOTDOCUMENTO,FK_PRIMANOTA,"
                "FK_PNPAGAMENTO,PESOCONS,COLLICONS",
                "Movimenti", "RID");
    libri.dettagli =
        tabella(n,
                "RID,FK_MOVIMENTO,EXTRAPROG,POS,FK_PRODOTTO,CODPRODOTTO,DESCPRODOTTO,QUANTITA,PREZZO,SCONTO,"
                "SCONTO2,SCONTO3,SCONTONETTO,PREZZONETTO,TOTPREZZONETTO,FK_IVA,VALOREIVA,IVA,TOTALEIVA,"
                "TOTALERIGA,FK_UM,TAGLIO,IK_DETTAGLIOMOVIMENTO,FK_VENDITORE,ORA",
                "DettagliMovimento", "RID");
    libri.prodotti = tabella(n, "CODICE,GIACENZA,DATAULTIMOSCARICO,PREZZOULTIMOSCARICO",
                             "Prodotti WHERE SETGIACENZA <> 0", "RID");
    libri.strati = tabella(n, "FK_PRODOTTO,FK_MAGAZZINO,TAGLIO,QUANTITA", "DettagliProdotto", "RID");
    libri.primaNota =
        tabella(n,
                "RID,PROGRESSIVO,DATA,DATAVALUTA,FK_CAUSALE,FK_ANAGRAFE,DESCRIZIONE,RIFERIMENTI,NUMDOCUMENTO,"
                "IMPORTO,CODICEPARTITA,FK_PAGAMENTO,FK_CENTROCOSTO",
                "PrimaNota", "RID");
    libri.righePrimaNota =
        tabella(n, "FK_PRIMANOTA,FK_CONTO,DARE,AVERE", "PrimaNotaDettagli", "FK_PRIMANOTA, RID");
    libri.scadenze = tabella(n, "FK_PRIMANOTA,FK_MOVIMENTO,DATA,IMPORTO", "Scadenze", "RID");
    libri.contatori = tabella(n, "FK_NUMERATORE,ANNO,NUMERO,NOTE", "Contatori", "ANNO, FK_NUMERATORE");
    return libri;
}

void confrontaLibri(const Negozio& n, const LibriAttesi& attesi) {
    const LibriAttesi letti = leggiLibri(n);
    EXPECT_EQ(letti.movimenti, attesi.movimenti);
    EXPECT_EQ(letti.dettagli, attesi.dettagli);
    EXPECT_EQ(letti.prodotti, attesi.prodotti);
    EXPECT_EQ(letti.strati, attesi.strati);
    EXPECT_EQ(letti.primaNota, attesi.primaNota);
    EXPECT_EQ(letti.righePrimaNota, attesi.righePrimaNota);
    EXPECT_EQ(letti.scadenze, attesi.scadenze);
    EXPECT_EQ(letti.contatori, attesi.contatori);
    EXPECT_EQ(n.conta("Movimenti", altreColonne.join(" IS NOT NULL OR ") + " IS NOT NULL"), 0);
}

Bottega::Bottega() {
    for (const char* istruzione : {
             "INSERT INTO Magazzini (RID, CODICE, DESCRIZIONE) VALUES (2,'DEP','Deposito')",
             "UPDATE Causali SET FK_CONTODARE1 = 1, FK_CONTOAVERE1 = 3, FK_CONTOAVERE2 = 4 WHERE RID = 1",
             "UPDATE Causali SET FK_CONTODARE1 = 2, FK_CONTOAVERE1 = 1 WHERE RID = 2",
             "INSERT INTO Causali (RID, CODICE, DESCRIZIONE, OPERAZIONE, ORIGINE, DESTINAZIONE, "
             "FK_MAGAZZINOORIG, FK_MAGAZZINODEST, TAGLIO, GENERAPN, GENERASCAD, MOSTRAVB) VALUES "
             "(3,'DT','Trasferimento',1,3,3,1,2,0,1,1,0)",
             "INSERT INTO TipoDocumenti (RID, CODICE, DESCRIZIONE, FK_CAUSALE, NCONTATORE, USAPREZZIIVA, "
             "ACCOMPAGNATORIO, MOSTRAVB) VALUES "
             "(5,'FT','Fattura',1,2,0,0,1),(6,'DT','Trasferimento',3,3,0,0,0)",
             "INSERT INTO Pagamenti (RID, CODICE, DESCRIZIONE, ACCONTO, RIMESSADIRETTA, FINEMESE, NRATE) "
             "VALUES "
             "(9,'3060','30 e 60 giorni',0,0,0,2),(10,'ACC','Acconto',20,0,0,2),"
             "(11,'FM','Fine mese',0,0,1,2),(12,'RD','Rimessa diretta',0,1,1,2)",
             "INSERT INTO DettagliPagamenti (FK_PAGAMENTO, NGIORNI, PERCENTUALE) VALUES (9,30,50),(9,60,50),"
             "(10,30,40),(10,60,40),(11,30,50),(11,60,50),(12,30,50),(12,60,50)",
         }) {
        sql(istruzione);
    }
    prodotto({.codice = "A", .listino1 = 10, .giacenza = 10, .gestioneGiacenza = true});
    prodotto({.codice = "B", .listino1 = 5, .descrizione = "Biscotti", .idIva = 2});
    prodotto({.codice = "C", .listino1 = 2.5, .descrizione = "Caffè", .idIva = 3, .sconto = 10});
    sql("INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) VALUES "
        "(1,1,6,4),(1,1,7,6)");
    cliente(7, "ROSSI");
}

void Bottega::termini(int idPagamento) {
    sql("UPDATE Anagrafiche SET FK_PAGAMENTO = " +
        (idPagamento > 0 ? QString::number(idPagamento) : QString("NULL")) + " WHERE RID = 2");
}

void Bottega::intesta(Vendita& v, int pagato, int idPagamento) {
    termini(idPagamento);
    ASSERT_TRUE(mostraCliente(v, 2));
    v.chkPagato.valore(pagato);
}

void Bottega::vendePerCarico(Vendita& v) {
    sql("INSERT INTO Causali (RID, CODICE, DESCRIZIONE, OPERAZIONE, ORIGINE, DESTINAZIONE, "
        "FK_MAGAZZINODEST, TAGLIO, GENERAPN, GENERASCAD, MOSTRAVB) VALUES "
        "(4,'CA','Carico',1,2,3,1,1,0,0,0)");
    sql("INSERT INTO TipoDocumenti (RID, CODICE, DESCRIZIONE, FK_CAUSALE, NCONTATORE, USAPREZZIIVA, "
        "ACCOMPAGNATORIO, MOSTRAVB) VALUES (7,'CA','Carico',4,4,0,0,0)");
    gTipoDocVb = 7;
    setInfoDocumento(v, 7);
}

void Bottega::causaleCarte() {
    sql("INSERT INTO Causali (RID, CODICE, DESCRIZIONE, FK_CONTODARE1, FK_CONTOAVERE1) VALUES "
        "(8,'POS','Incasso carta',2,1)");
}

bool salvaERilegge(Vendita& v) {
    if (!salvaVendita(v, false, -1)) return false;
    showVendita(v, v.rid(), -1, v.txtSottoProg.testo().toInt(), -1);
    return true;
}

void ContoInBottega::vendiESalva(const QString& codice, const QString& quantita) {
    vendi(c, codice, quantita);
    ASSERT_TRUE(salvaERilegge(v));
}

void ContoInBottega::nuovaVendita() {
    pulisciCorpo(v);
    v.txtSottoProg.testo("(Auto)");
}

bool ContoInBottega::cancella() {
    return cancellaVendita(v, v.rid(), false);
}
