#include "doubles/negozio.h"

#include <gtest/gtest.h>

#include <QFile>

#include "archivio/create_archive.h"
#include "core/errors.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "data/sqlite_connection.h"

namespace {

QString testo(const QString& valore) {
    return "'" + QString(valore).replace("'", "''") + "'";
}

QString chiave(int valore) {
    return valore > 0 ? QString::number(valore) : QString("NULL");
}

std::unique_ptr<SqliteConnection> apri(const QString& percorso) {
    ErroreServer errore;
    auto connessione = SqliteConnection::apri(percorso, errore);
    EXPECT_TRUE(connessione) << errore.descrizione.toStdString();
    return connessione;
}

// A created empty archive, made once for the process and copied for each shop.
QString archivioVuoto() {
    static const QTemporaryDir cartella;
    static const QString percorso = [] {
        QString esito;
        QTextStream uscita(&esito);
        const QString file = cartella.filePath("vuoto.mdb");
        EXPECT_TRUE(creaArchivio(file, {}, uscita)) << esito.toStdString();
        return file;
    }();
    return percorso;
}

}  // namespace

Negozio::Negozio() : orologio(QDateTime(QDate(2026, 3, 16), QTime(10, 30))) {
    ripristinaGlobali();
    creaArchivio();
    gTipoDB = Access;
    gPathDB = percorso();
    gStrConnessione =
        "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + gPathDB + ";Persist Security Info=False";
    gAdo.TipoServer = Access;
    gAdo.impostaStringaConnessione([] { return gStrConnessione; });
    gAdo.impostaOperatore(&operatore);
    gErr.imposta(mCartella.path(), &operatore);
    gClientePredefinito = 1;
    gTipoDocVb = 1;
    gCausalePagVb = 2;
    gPagamentoVB = 1;
    gContoClienti = 1;
    gDistintaBase = "%";
    gRigaLibera = "/";
    gVenditoreChar = "V";
    inserisciTabelle();
    impostaFabbricaConti([this](int indice) {
        mConti.push_back(std::make_unique<ContoDiProva>(indice, operatore));
        if (allaProssimaApertura) std::exchange(allaProssimaApertura, {})(*mConti.back());
        return mConti.back().get();
    });
    impostaChiudiApplicazione([this] { terminato = true; });
}

Negozio::~Negozio() {
    for (ContoAperto& conto : gConti) {
        conto.reset();
    }
    impostaFabbricaConti({});
    impostaChiudiApplicazione({});
    sondaIstruzioni() = {};
    if (gAdo.inTransazione()) gAdo.rollbackTrasaction("Negozio");
    while (gAdo.getConnectionCount() > 0) {
        gAdo.disconnect();
    }
    gAdo.chiudiConnessioniCalde();
    gAdo.impostaOperatore(nullptr);
    gErr.imposta({}, nullptr);
    ripristinaGlobali();
}

void Negozio::creaArchivio() {
    ASSERT_TRUE(QFile::copy(archivioVuoto(), percorso()));
}

void Negozio::inserisciTabelle() {
    sql("INSERT INTO Iva (RID, CODICE, DESCRIZIONE, VALORE) VALUES (1,'22','Iva 22%',22),(2,'10','Iva "
        "10%',10),"
        "(3,'04','Iva 4%',4)");
    sql("INSERT INTO UnitaMisura (RID, CODICE, DESCRIZIONE) VALUES (1,'PZ','Pezzi')");
    sql("INSERT INTO Marche (RID, CODICE, DESCRIZIONE) VALUES (1,'MA','Marca A')");
    sql("INSERT INTO Magazzini (RID, CODICE, DESCRIZIONE) VALUES (1,'NEG','Negozio')");
    sql("INSERT INTO PianoConti (RID, CODICE, DESCRIZIONE) VALUES "
        "(1,'1','Clienti'),(2,'2','Cassa'),(3,'3','Vendite'),"
        "(4,'4','Iva')");
    sql("INSERT INTO Pagamenti (RID, CODICE, DESCRIZIONE, NRATE) VALUES (1,'CON','Contanti',0)");
    sql("INSERT INTO Causali (RID, CODICE, DESCRIZIONE, OPERAZIONE, ORIGINE, DESTINAZIONE, FK_MAGAZZINOORIG, "
        "TAGLIO, "
        "GENERAPN, GENERASCAD, MOSTRAVB) VALUES (1,'VB','Vendita al banco',1,3,1,1,0,1,1,0),"
        "(2,'INC','Incasso contanti',0,0,0,NULL,0,0,0,1)");
    sql("INSERT INTO TipoDocumenti (RID, CODICE, DESCRIZIONE, FK_CAUSALE, NCONTATORE, USAPREZZIIVA, "
        "ACCOMPAGNATORIO, "
        "MOSTRAVB, NonStampareVB) VALUES (1,'VB','Vendita al banco',1,1,0,0,0,1)");
    sql("INSERT INTO Anagrafiche (RID, NUMERO, TIPO, DENOMINAZIONE, LISTINO) VALUES (1,1,'C','CLIENTE DEL "
        "BANCO',1)");
}

int Negozio::prodotto(const Prodotto& p) {
    sql(QString("INSERT INTO Prodotti (CODICE, BARCODE, EXTRACODICE, DESCRIZIONE, DISABILITATO, "
                "FK_SOSTITUITO, FK_MARCA, "
                "FK_IVA, FK_UNITAMISURA, LISTINO1, LISTINO2, LISTINO3, SCONTO, PREZZOACQUISTO, GIACENZA, "
                "SETGIACENZA, "
                "BLOCCAPREZZO) VALUES (%1,%2,%3,%4,%5,%6,1,%7,1,%8,%9,%10,%11,%12,%13,%14,%15)")
            .arg(testo(p.codice), testo(p.barcode), testo(p.extraCodice),
                 testo(p.descrizione.isEmpty() ? p.codice : p.descrizione))
            .arg(p.disabilitato ? 1 : 0)
            .arg(chiave(p.idSostituito))
            .arg(p.idIva)
            .arg(p.listino1)
            .arg(p.listino2)
            .arg(p.listino3)
            .arg(p.sconto)
            .arg(p.prezzoAcquisto)
            .arg(p.giacenza)
            .arg(p.gestioneGiacenza ? 1 : 0)
            .arg(p.bloccaPrezzo ? 1 : 0));
    return valore("SELECT MAX(RID) FROM Prodotti").toInt();
}

int Negozio::cliente(int numero, const QString& denominazione, int listino, double sconto, int idFascia) {
    sql(QString(
            "INSERT INTO Anagrafiche (NUMERO, TIPO, DENOMINAZIONE, LISTINO, SCONTO, FK_FASCIACLIENTE) VALUES "
            "(%1,'C',%2,%3,%4,%5)")
            .arg(numero)
            .arg(testo(denominazione))
            .arg(listino)
            .arg(sconto)
            .arg(chiave(idFascia)));
    return valore("SELECT MAX(RID) FROM Anagrafiche").toInt();
}

void Negozio::sql(const QString& istruzione) {
    const auto connessione = apri(percorso());
    ASSERT_TRUE(connessione->eseguiNativo(istruzione))
        << connessione->errore().descrizione.toStdString() << "\n"
        << istruzione.toStdString();
}

QString Negozio::valore(const QString& query) {
    const auto connessione = apri(percorso());
    Recordset righe;
    EXPECT_TRUE(connessione->eseguiNativo(query, &righe)) << connessione->errore().descrizione.toStdString();
    return righe.eof() ? QString() : righe.campo(0).toString();
}

int Negozio::conta(const QString& tabella, const QString& condizione) {
    return valore("SELECT COUNT(*) FROM " + tabella + " WHERE " + condizione).toInt();
}

ContoDiProva& Negozio::apriConto(int indice) {
    getConto(indice, indice > 0);
    return static_cast<ContoDiProva&>(*gConti.at(static_cast<size_t>(indice)));
}

Vendita& Negozio::vendita(int indice) {
    return gConti.at(static_cast<size_t>(indice))->vendita();
}

QString Negozio::registroErrori() const {
    QFile file(mCartella.filePath("Err.log"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}
