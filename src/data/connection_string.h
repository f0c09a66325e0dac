#pragma once

#include <optional>

#include <QString>

// The connection string as it may be shown and logged: what follows a password key, up to the next known
// key, is masked; nothing else is changed. Works on texts that are no good connection strings too.
QString mascheraPassword(const QString& stringaConnessione);

// The archive's path in a connection string of the form "...;Data Source=<path>;...".
QString percorsoArchivio(const QString& stringaConnessione);

// What a connection string to a server says; empty and 0 for what it does not say.
struct DatiConnessione {
    enum class Cifratura {
        SePossibile,
        Mai,
        Richiesta,
        Verificata,  // and the server's certificate is signed by `certificati`
    };
    QString server;
    int porta = 0;
    QString socket;  // MySQL: the socket's file, instead of server and port
    QString database;
    QString utente;
    QString password;
    QString driver;  // SQL Server: the name of an ODBC driver, FreeTDS when empty
    Cifratura cifratura = Cifratura::SePossibile;
    QString certificati;        // file of the certification authorities
    int secondi = 0;            // to connect
    int secondiIstruzione = 0;  // for an answer
};

// Reads the `key=value;` pairs that a user pastes, in the spellings that the makers of servers use. `nome`
// is the server's name for messages. Nothing when the text is of no use, with the reason in `errore`, which
// names the key and never tells a password.
std::optional<DatiConnessione> leggiStringaConnessione(const QString& stringa, int tipoServer,
                                                       QString& errore);
// As above, for tools that reach a server before there is a database: Database may be missing.
std::optional<DatiConnessione> leggiStringaServer(const QString& stringa, int tipoServer, QString& errore);
