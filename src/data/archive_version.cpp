#include "data/archive_version.h"

#include "data/schema.h"

namespace {

int apertureSenzaVerifica = 0;

// "No such table" of MySQL and of SQL Server.
bool tabellaInesistente(const ErroreServer& errore) {
    return errore.codice == 1146 || errore.codice == 208;
}

QString motivo(const Recordset& righe) {
    if (righe.eof() || righe.campo(0).toInt() == versioneIncompleta) {
        return "L'archivio è incompleto: la sua creazione, copia o importazione è in corso oppure è stata "
               "interrotta. Se è stata interrotta va ripetuta.";
    }
    return "L'archivio è di un'altra versione (" + righe.campo(0).toString() +
           "), il programma ne usa una (" + QString::number(schema::versione) + ").";
}

}  // namespace

QStringList creaMarchio(int versione) {
    return {"CREATE TABLE BottegonArchivio (VERSIONE INTEGER NOT NULL)",
            "INSERT INTO BottegonArchivio (VERSIONE) VALUES (" + QString::number(versione) + ")"};
}

QString cambiaMarchio(int versione) {
    return "UPDATE BottegonArchivio SET VERSIONE = " + QString::number(versione);
}

QString leggiMarchio() {
    return "SELECT VERSIONE FROM BottegonArchivio";
}

bool verificaVersione(Connessione& connessione, ErroreServer& errore) {
    if (apertureSenzaVerifica > 0) return true;
    Recordset righe;
    if (!connessione.eseguiNativo(leggiMarchio(), &righe)) {
        errore = connessione.errore();
        if (tabellaInesistente(errore)) errore.descrizione = "Il database non è un archivio di Bottegon.";
        return false;
    }
    if (!righe.eof() && righe.campo(0).toInt() == schema::versione) return true;
    errore = {};
    errore.classe = ErroreServer::Classe::ConnessionePersa;
    errore.descrizione = motivo(righe);
    return false;
}

AperturaSenzaVerifica::AperturaSenzaVerifica() {
    ++apertureSenzaVerifica;
}

AperturaSenzaVerifica::~AperturaSenzaVerifica() {
    --apertureSenzaVerifica;
}
