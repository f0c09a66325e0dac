#include "demo_till.h"

#include <QTextStream>

#include "core/errors.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "data/options_table.h"
#include "data/prepare_sql.h"
#include "data/sqlite_connection.h"

namespace {

const char* const vendibile =
    "DISABILITATO = 0 AND FK_SOSTITUITO IS NULL AND LISTINO1 > 0 AND CODICE GLOB '[A-Z]*'";

int pauseChieste = 0;

class OperatoreAssente final : public OperatorPort {
  public:
    using OperatorPort::messaggio;
    void messaggio(const QString&, Icona, const QString&) override {}
    Risposta domanda(const QString&, Pulsanti, Icona) override { return Risposta::No; }
    bool avviso(const Errore& errore) override { qFatal("%s", qPrintable(errore.descrizione)); }
    void beep() override {}
    void clessidra(bool) override {}
    void pausa(int) override { ++pauseChieste; }
    void avvisoAttesa(const QString&) override {}
};

void eseguiTutte(SqliteConnection& connessione, const QStringList& istruzioni) {
    for (const QString& sql : istruzioni) {
        if (!connessione.eseguiNativo(sql)) qFatal("%s", qPrintable(connessione.errore().descrizione));
    }
}

// Copies of the products that sell without a question, with codes and barcodes of their own, each with one
// cost layer.
void ingrandisci(SqliteConnection& connessione, int prodotti) {
    const QString colonne =
        "DESCRIZIONE, DISABILITATO, FK_MARCA, FK_CATEGORIA, FK_IVA, FK_UNITAMISURA, FK_CATSCOVEN, "
        "FK_CATSCOACQ, "
        "LISTINO1, LISTINO2, LISTINO3, LISTINO4, SCONTO, PREZZOACQUISTO, GIACENZA, SETGIACENZA, PLISTINO";
    eseguiTutte(
        connessione,
        {"CREATE TEMP TABLE Ultimo AS SELECT MAX(RID) AS RID, COUNT(*) AS QUANTI FROM Prodotti",
         QString(
             "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 1000) "
             "INSERT INTO Prodotti (CODICE, BARCODE, %1) SELECT CODICE || '.' || I, BARCODE || I, %1 FROM "
             "Prodotti, N WHERE %2 AND RID <= (SELECT RID FROM Ultimo) LIMIT max(0, %3 - (SELECT QUANTI FROM "
             "Ultimo))")
             .arg(colonne, vendibile)
             .arg(prodotti),
         "INSERT INTO DettagliProdotto (FK_PRODOTTO, FK_MAGAZZINO, TAGLIO, QUANTITA) SELECT RID, (SELECT "
         "MIN(RID) FROM Magazzini), 1, 100 FROM Prodotti WHERE RID > (SELECT RID FROM Ultimo)"});
}

// In an order that jumps about the catalogue, as what customers bring to the till does.
QStringList leggiBarcode(SqliteConnection& connessione) {
    Recordset righe;
    connessione.eseguiNativo(
        QString("SELECT BARCODE FROM Prodotti WHERE %1 ORDER BY RID * 7919 % 100003 LIMIT "
                "2000")
            .arg(vendibile),
        &righe);
    QStringList elenco;
    for (; !righe.eof(); righe.moveNext()) {
        elenco << righe.campo(0).toString();
    }
    return elenco;
}

}  // namespace

TillDimostrativa::TillDimostrativa(int prodotti) : TillDimostrativa({.demo = true}, prodotti) {}

TillDimostrativa::TillDimostrativa(const MisureNegozio& misure) : TillDimostrativa({.misure = misure}, 0) {}

int TillDimostrativa::pause() {
    return pauseChieste;
}

TillDimostrativa::TillDimostrativa(const OpzioniCreazione& opzioni, int prodotti)
    : mOperatore(std::make_unique<OperatoreAssente>()) {
    QString esito;
    QTextStream uscita(&esito);
    if (!creaArchivio(archivio(), opzioni, uscita)) qFatal("%s", qPrintable(esito));
    {
        ErroreServer errore;
        const auto connessione = SqliteConnection::apri(archivio(), errore);
        if (prodotti > 0) ingrandisci(*connessione, prodotti);
        mBarcode = leggiBarcode(*connessione);
    }
    ripristinaGlobali();
    gStrConnessione = "Data Source=" + archivio();
    gAdo.TipoServer = Access;
    gAdo.impostaStringaConnessione([] { return gStrConnessione; });
    gErr.imposta(mCartella.path(), mOperatore.get());
    getAllOpzioni();
    impostaFabbricaConti([this](int indice) { return mConto = new ContoDiProva(indice, *mOperatore); });
    impostaChiudiApplicazione([] {});
    getConto(0, false);
}

TillDimostrativa::~TillDimostrativa() {
    gConti[0].reset();
    delete mConto;
    gAdo.chiudiConnessioniCalde();
    gErr.imposta({}, nullptr);
}

QStringList TillDimostrativa::istruzioni(const std::function<void()>& azione) {
    QStringList viste;
    sondaIstruzioni() = [&viste](const QString& sql) -> std::optional<ErroreServer> {
        viste << sql;
        return std::nullopt;
    };
    azione();
    sondaIstruzioni() = {};
    return viste;
}
