#include "demo_till.h"

#include <QTextStream>

#include "archivio/create_archive.h"
#include "core/errors.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "data/options_table.h"
#include "data/prepare_sql.h"
#include "data/sqlite_connection.h"

namespace {

class OperatoreAssente final : public OperatorPort {
  public:
    using OperatorPort::messaggio;
    void messaggio(const QString&, Icona, const QString&) override {}
    Risposta domanda(const QString&, Pulsanti, Icona) override { return Risposta::No; }
    bool avviso(const Errore& errore) override { qFatal("%s", qPrintable(errore.descrizione)); }
    void beep() override {}
    void clessidra(bool) override {}
    void pausa(int) override {}
    void avvisoAttesa(const QString&) override {}
};

QStringList leggiBarcode(const QString& archivio) {
    ErroreServer errore;
    const auto connessione = SqliteConnection::apri(archivio, errore);
    Recordset righe;
    connessione->eseguiNativo(
        "SELECT BARCODE FROM Prodotti WHERE DISABILITATO = 0 AND FK_SOSTITUITO IS NULL AND LISTINO1 > 0 "
        "AND CODICE GLOB '[A-Z]*' ORDER BY RID LIMIT 500",
        &righe);
    QStringList elenco;
    for (; !righe.eof(); righe.moveNext()) {
        elenco << righe.campo(0).toString();
    }
    return elenco;
}

}  // namespace

TillDimostrativa::TillDimostrativa() : mOperatore(std::make_unique<OperatoreAssente>()) {
    QString esito;
    QTextStream uscita(&esito);
    if (!creaArchivio(archivio(), {.demo = true}, uscita)) qFatal("%s", qPrintable(esito));
    mBarcode = leggiBarcode(archivio());
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
