#include "doubles/archivio_modello.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QTextStream>

#include "archivio/create_archive.h"
#include "data/sqlite_connection.h"

namespace {

const char* const tabelle[] = {
    "INSERT INTO Iva (RID, CODICE, DESCRIZIONE, VALORE) VALUES (1,'22','Iva 22%',22),(2,'10','Iva 10%',10),"
    "(3,'04','Iva 4%',4)",
    "INSERT INTO UnitaMisura (RID, CODICE, DESCRIZIONE) VALUES (1,'PZ','Pezzi')",
    "INSERT INTO Marche (RID, CODICE, DESCRIZIONE) VALUES (1,'MA','Marca A')",
    "INSERT INTO Magazzini (RID, CODICE, DESCRIZIONE) VALUES (1,'NEG','Negozio')",
    "INSERT INTO PianoConti (RID, CODICE, DESCRIZIONE) VALUES (1,'1','Clienti'),(2,'2','Cassa'),"
    "(3,'3','Vendite'),(4,'4','Iva')",
    "INSERT INTO Pagamenti (RID, CODICE, DESCRIZIONE, NRATE) VALUES (1,'CON','Contanti',0)",
    "INSERT INTO Causali (RID, CODICE, DESCRIZIONE, OPERAZIONE, ORIGINE, DESTINAZIONE, FK_MAGAZZINOORIG, "
    "TAGLIO, GENERAPN, GENERASCAD, MOSTRAVB) VALUES (1,'VB','Vendita al banco',1,3,1,1,0,1,1,0),"
    "(2,'INC','Incasso contanti',0,0,0,NULL,0,0,0,1)",
    "INSERT INTO TipoDocumenti (RID, CODICE, DESCRIZIONE, FK_CAUSALE, NCONTATORE, USAPREZZIIVA, "
    "ACCOMPAGNATORIO, MOSTRAVB, NonStampareVB) VALUES (1,'VB','Vendita al banco',1,1,0,0,0,1)",
    "INSERT INTO Anagrafiche (RID, NUMERO, TIPO, DENOMINAZIONE, LISTINO) VALUES (1,1,'C','CLIENTE DEL "
    "BANCO',1)",
};

void riempi(const QString& file) {
    QString esito;
    QTextStream uscita(&esito);
    ASSERT_TRUE(creaArchivio(file, {}, uscita)) << esito.toStdString();
    ErroreServer errore;
    const auto connessione = SqliteConnection::apri(file, errore);
    ASSERT_TRUE(connessione) << errore.descrizione.toStdString();
    for (const char* istruzione : tabelle) {
        ASSERT_TRUE(connessione->eseguiNativo(istruzione)) << connessione->errore().descrizione.toStdString();
    }
}

}  // namespace

QString archivioModello() {
    static const QTemporaryDir cartella;
    static const QString percorso = [] {
        const QString file = cartella.filePath("modello.mdb");
        riempi(file);
        return file;
    }();
    return percorso;
}
