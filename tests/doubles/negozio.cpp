#include "doubles/negozio.h"

#include <gtest/gtest.h>

#include <QFile>

#include "core/errors.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "data/schema.h"
#include "doubles/archivio_sqlite.h"
#include "doubles/celle.h"

namespace {

QString testo(const QString& valore) {
    return "'" + QString(valore).replace("'", "''") + "'";
}

QString chiave(int valore) {
    return valore > 0 ? QString::number(valore) : QString("NULL");
}

}  // namespace

Negozio::Negozio()
    : orologio(QDateTime(QDate(2026, 3, 16), QTime(10, 30))),
      mArchivio(nuovoArchivioDiProva(mCartella.path())) {
    ripristinaGlobali();
    gTipoDB = mArchivio->tipoServer();
    gPathDB = percorso();
    gStrConnessione = mArchivio->stringaConnessione();
    gAdo.TipoServer = gTipoDB;
    gAdo.impostaDriver(gTipoDB, mArchivio->driver());
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

QString Negozio::percorso() const {
    return ArchivioSqlite::percorso(mCartella.path());
}

void Negozio::sql(const QString& istruzione) {
    mArchivio->esegui(istruzione);
}

QString Negozio::valore(const QString& query) const {
    const Recordset righe = mArchivio->esegui(query);
    return righe.eof() ? QString() : testoCella(righe.campo(0));
}

QString Negozio::riga(const QString& query) const {
    const Recordset righe = mArchivio->esegui(query);
    return righe.eof() ? QString() : testoRiga(righe);
}

QStringList Negozio::righe(const QString& query) const {
    QStringList tutte;
    for (Recordset righe = mArchivio->esegui(query); !righe.eof(); righe.moveNext()) {
        tutte << testoRiga(righe);
    }
    return tutte;
}

QStringList Negozio::verifica() const {
    return mArchivio->verifica();
}

int Negozio::conta(const QString& tabella, const QString& condizione) const {
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

QStringList libri(const Negozio& negozio) {
    QStringList tutte;
    for (const schema::Tabella& tabella : schema::tabelle()) {
        for (const QString& riga : negozio.righe("SELECT * FROM " + tabella.nome + " ORDER BY 1")) {
            tutte << tabella.nome + ": " + riga;
        }
    }
    return tutte;
}
