#pragma once

#include <QString>

// The neutral dialect and its rewrite for a server: 0 SQL Server, 1 Access, 2 MySQL. A pure text rewrite
// without parsing; its limits are part of the design.

enum TipoServer { SqlServer = 0, Access = 1, MySql = 2 };

// The text delimiter of the neutral dialect.
inline QString getSQLSeparator() {
    return QString(QChar(0x00A4));
}

// The adapted statement. A cut that is not possible raises RunTimeError 5.
QString preparaSQL(const QString& sql, int tipoServer);
// A fragment adapted by the blocks, and for MySQL the FORMAT rule, only.
QString parteSQLPerTipoServer(const QString& parte, int tipoServer);
// The fragment with every protected comma turned into a comma.
QString getPartSQLWithoutSP(const QString& parte);

// A value as a delimited text of the neutral dialect, the only way a text enters a statement. Whatever
// the rewrite or a server would take for a mark is encoded, and decoded again inside the literal by the
// server's driver. A NUL raises RunTimeError 5.
QString testoSQL(const QString& valore);
// Undoes the encoding of testoSQL; texts without it come back as they are.
QString decodificaTestoSQL(const QString& testo);
