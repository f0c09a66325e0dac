#pragma once

#include <QString>

// Which archive a person means: a file, or a database on a server.
struct NomeArchivio {
    int tipoServer;       // as in prepare_sql.h
    QString connessione;  // the path of the file, or the connection string with its password

    // From a command line: "mysql:Server=..;Database=..;Uid=..;Pwd=..", "sqlserver:..", or a path. A password
    // that the string leaves out comes from the environment variable BOTTEGON_PASSWORD, or is asked for at
    // the terminal.
    static NomeArchivio da(const QString& testo);

    // Whether such a text means a file; asks nobody.
    static bool indicaFile(const QString& testo);

    bool file() const;
    // As it may be shown and logged: without the password.
    QString leggibile() const;
    QString database() const;
};
