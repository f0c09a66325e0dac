#pragma once

#include <QDateTime>
#include <QTemporaryDir>

#include "core/clock.h"
#include "data/recordset.h"
#include "doubles/archivio_di_prova.h"
#include "doubles/conto_di_prova.h"
#include "doubles/operatore_scritto.h"
#include "doubles/settings_in_memory.h"

// A clock that stands until it is set.
class OrologioDiProva final : public Clock {
  public:
    explicit OrologioDiProva(QDateTime istante) : istante(std::move(istante)) { impostaOrologio(this); }
    ~OrologioDiProva() override { impostaOrologio(nullptr); }
    OrologioDiProva(const OrologioDiProva&) = delete;
    OrologioDiProva& operator=(const OrologioDiProva&) = delete;
    QDateTime adesso() const override { return istante; }

    QDateTime istante;
};

// A product of the test shop; what is not said is plain: no discount, VAT 22 %, stock not managed.
struct Prodotto {
    QString codice;
    double listino1 = 0;
    QString barcode = {};
    QString descrizione = {};  // the code when empty
    int idIva = 1;
    double sconto = 0;
    double giacenza = 0;
    bool gestioneGiacenza = false;
    bool disabilitato = false;
    int idSostituito = 0;
    bool bloccaPrezzo = false;
    double listino2 = 0;
    double listino3 = 0;
    double prezzoAcquisto = 0;
    QString extraCodice = {};
};

// A small shop of its own for each test: books as new on the server in force (doubles/archivio_di_prova.h),
// settings in memory, a clock at 16/03/2026 10:30:00, a scripted operator, and the globals as a start leaves
// them.
//
// Keys that are always there: VAT 1 = 22 % "22", 2 = 10 % "10", 3 = 4 % "04"; customer 1 is the walk-in one
// (NUMERO 1, no band, price list 1), gClientePredefinito; document type 1 "VB" is the counter sale
// (numerator 1, origin warehouse 1); causal 1 of sale, 2 of collection; payment 1; unit 1 "PZ"; brand 1 "MA".
class Negozio {
  public:
    Negozio();
    ~Negozio();
    Negozio(const Negozio&) = delete;
    Negozio& operator=(const Negozio&) = delete;

    // Each answers the new row's key.
    int prodotto(const Prodotto& prodotto);
    int cliente(int numero, const QString& denominazione, int listino = 1, double sconto = 0,
                int idFascia = 0);

    // Statements and queries beside the gateway, in words that every server knows; "||" joins texts.
    void sql(const QString& istruzione);
    // The first column of the first row as text (doubles/celle.h); empty for Null or no row.
    QString valore(const QString& query) const;
    Recordset interroga(const QString& query) const { return mArchivio->esegui(query); }
    // The first row, and all rows, cells parted by "|".
    QString riga(const QString& query) const;
    QStringList righe(const QString& query) const;
    int conta(const QString& tabella, const QString& condizione = "1=1") const;
    // What the archive tool finds wrong in the books.
    QStringList verifica() const;

    // Opens account `indice` (0 to 3) as the program does, and answers its screen.
    ContoDiProva& apriConto(int indice = 0);
    // The open account's sale.
    Vendita& vendita(int indice = 0);
    // The archive, when it is a file.
    QString percorso() const;
    // Err.log so far.
    QString registroErrori() const;

    OperatoreScritto operatore;
    OrologioDiProva orologio;
    SettingsInMemory impostazioni;
    bool terminato = false;  // the last account was closed
    // Sees the screen of the account that opens next, before anything happens on it.
    std::function<void(ContoDiProva&)> allaProssimaApertura;

  private:
    QTemporaryDir mCartella;
    std::unique_ptr<ArchivioDiProva> mArchivio;
    std::vector<std::unique_ptr<ContoDiProva>> mConti;
};

// The whole contents of a shop's archive: one line a row, "table: cells parted by |".
QStringList libri(const Negozio& negozio);
