#include "data/prepare_sql.h"

#include <algorithm>

#include "core/run_time_error.h"

namespace {

const QString parolaSelectTop = "SELECT TOP ";
const QString parolaFormat = "FORMAT(";

constexpr QChar pallino(u'\u2022');

QString tag(QChar lettera) {
    return QString(pallino) + lettera + pallino;
}
QString tagChiusura(QChar lettera) {
    return QString(pallino) + '/' + lettera + pallino;
}

// Character by character, so that every position holds in the text itself ("ß" does not become two).
QString testoMaiuscolo(const QString& testo) {
    QString maiuscolo = testo;
    for (QChar& c : maiuscolo)
        c = c.toUpper();
    return maiuscolo;
}

// The piece from position `da`, counted from 1.
QString taglia(const QString& testo, qsizetype da, qsizetype lunghezza) {
    if (da < 1 || lunghezza < 0) throw RunTimeError(RunTimeError::ChiamataNonValida);
    return testo.mid(da - 1, lunghezza);
}

QString da(const QString& testo, qsizetype posizione) {
    return taglia(testo, posizione, testo.size());
}

// The first position, counted from 1, at or after `da`; 0 when there is none.
qsizetype cerca(const QString& testo, const QString& cosa, qsizetype da = 1) {
    return testo.indexOf(cosa, da - 1) + 1;
}

QString senza(QString testo, const QString& pezzo) {
    return pezzo.isEmpty() ? testo : testo.remove(pezzo);
}

QString senzaBlocco(const QString& sql, QChar lettera) {
    const QString maiuscolo = testoMaiuscolo(sql);
    const qsizetype inizio = cerca(maiuscolo, tag(lettera));
    const qsizetype fine = cerca(maiuscolo, tagChiusura(lettera));
    if (inizio == 0 || fine == 0) return sql;
    return senza(sql, taglia(sql, inizio, fine - inizio + tagChiusura(lettera).size()));
}

QString senzaTag(const QString& sql, QChar lettera) {
    return senza(senza(sql, tag(lettera)), tagChiusura(lettera));
}

// The first TOP clause becomes a LIMIT at the end of the whole statement.
QString regolaTop(const QString& sql) {
    const qsizetype p = cerca(testoMaiuscolo(sql), parolaSelectTop);
    if (p == 0) return sql;
    const qsizetype q = cerca(sql, " ", p + 11);
    QString clausola = taglia(sql, p + 7, q - (p + 7));
    return sql.left(p + 6) + da(sql, q + 1) + ' ' + clausola.replace("TOP", "LIMIT");
}

// Takes the first FORMAT( away, with its second argument; its first letter stays where it was.
QString regolaFormat(const QString& sql) {
    const qsizetype p = cerca(testoMaiuscolo(sql), parolaFormat);
    if (p == 0) return sql;
    const qsizetype v = cerca(sql, ",", p + 5);
    if (v == 0) throw RunTimeError(RunTimeError::Overflow);
    const qsizetype c = cerca(sql, ")", p + 5);
    const QString coda = taglia(sql, v, c - v + 1);
    const QString senzaCoda = sql.left(v - 1) + senza(da(sql, v), coda);
    const QString testa = taglia(senzaCoda, p, parolaFormat.size());
    return senzaCoda.left(p) + senza(da(senzaCoda, p), testa);
}

// The blocks of the other servers go, the tags of the server in force are taken off.
QString applicaBlocchi(const QString& sql, int tipoServer) {
    if (!sql.contains(pallino)) return sql;
    switch (tipoServer) {
        case Access:
            return senzaTag(senzaBlocco(senzaBlocco(sql, 'M'), 'S'), 'A');
        case SqlServer:
            return senzaTag(senzaBlocco(senzaBlocco(sql, 'M'), 'A'), 'S');
        case MySql:
            return senzaTag(senzaBlocco(senzaBlocco(sql, 'A'), 'S'), 'M');
        default:
            return sql;
    }
}

QString conApici(QString sql) {
    if (!sql.contains(getSQLSeparator())) return sql;
    return sql.replace("'", "''").replace(getSQLSeparator(), "'");
}

// Whether the dialect has anything to say in this text; most statements are plain.
bool conSegni(const QString& sql) {
    return std::any_of(sql.begin(), sql.end(), [](QChar c) {
        return c == u'\u00A4' || c == u'\u00BF' || c == u'\u2021' || c == pallino;
    });
}

}  // namespace

QString preparaSQL(const QString& sql, int tipoServer) {
    if (tipoServer == Access && !conSegni(sql)) return sql;
    QString testo = applicaBlocchi(conApici(sql), tipoServer);
    if (tipoServer == SqlServer) testo.replace('`', '"');
    if (tipoServer == MySql) testo = regolaFormat(regolaTop(testo));
    return getPartSQLWithoutSP(testo).replace(QChar(u'\u00BF'), "AS");
}

QString parteSQLPerTipoServer(const QString& parte, int tipoServer) {
    const QString testo = applicaBlocchi(parte, tipoServer);
    return tipoServer == MySql ? regolaFormat(testo) : testo;
}

QString getPartSQLWithoutSP(const QString& parte) {
    return QString(parte).replace(QChar(u'\u2021'), u',');
}
