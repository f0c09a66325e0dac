#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QString>

#include "data/recordset.h"

// What a server answers to a failed operation.
struct ErroreServer {
    enum class Classe {
        Nessuno,
        Integrita,  // a row that others refer to, or a reference to nothing
        ConnessionePersa,
        Conflitto,  // deadlock, or a turn waited for in vain
        SolaLettura,
        DiscoPieno,
        EsitoIgnoto,  // the answer to a commit was lost: done or not, only a look at the rows can tell
        Altro,
    };
    Classe classe = Classe::Nessuno;
    int codice = 0;       // the server's native code
    QString descrizione;  // the server's own text
    QString origine;      // the server's name
};

// Called again and again while another desk is waited for, with the milliseconds so far.
using AttesaServer = std::function<void(int millisecondi)>;

// One connection to a server. Every operation answers false on failure, with the error in errore().
class Connessione {
  public:
    virtual ~Connessione() = default;

    // Runs one statement already adapted by prepareSQL. `righe`, when given, takes the rows of a query.
    virtual bool esegui(const QString& sql, Recordset* righe) = 0;
    // As esegui, for text already in the server's own words.
    virtual bool eseguiNativo(const QString& sql, Recordset* righe) = 0;
    virtual int righeModificate() const = 0;

    // A desk's turn to write: waits until every other turn has ended, or answers false after the limit.
    virtual bool inizia() = 0;
    virtual bool conferma() = 0;
    virtual bool annulla() = 0;
    // False when the server has already rolled back by itself.
    virtual bool inTransazione() const = 0;

    virtual const ErroreServer& errore() const = 0;
};

// A server type: opens connections and keeps warm ones between operations.
class ServerDriver {
  public:
    virtual ~ServerDriver() = default;

    // A connection that works now, warm or new; nothing on failure, with the error in `errore`.
    virtual std::unique_ptr<Connessione> apri(const QString& stringaConnessione, int secondi,
                                              const AttesaServer& attesa, ErroreServer& errore) = 0;
    // Takes a connection back, to give it out again.
    virtual void restituisci(std::unique_ptr<Connessione> connessione) = 0;
    // Closes the warm connections.
    virtual void chiudi() = 0;
};

// Sees every statement on its way to a server, begin and commit too; an error that it answers takes the
// place of the statement. Tests make statements fail, or the process die, through it.
using SondaIstruzioni = std::function<std::optional<ErroreServer>(const QString& sql)>;
SondaIstruzioni& sondaIstruzioni();

// No server gets a text that it would cut or change: a NUL, half a character. False with the error.
bool inviabile(const QString& sql, const QString& origine, ErroreServer& errore);
