#include <cmath>
#include <span>
#include <sqlite3.h>

#include <QDateTime>

#include "core/clock.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/run_time_error.h"
#include "data/access_collation.h"
#include "data/access_sql.h"
#include "data/stored_date.h"

namespace {

using Argomenti = std::span<sqlite3_value*>;

bool nullo(sqlite3_value* valore) {
    return sqlite3_value_type(valore) == SQLITE_NULL;
}

std::string_view utf8(sqlite3_value* valore) {
    const auto* testo = reinterpret_cast<const char*>(sqlite3_value_text(valore));
    return {testo != nullptr ? testo : "", static_cast<size_t>(sqlite3_value_bytes(valore))};
}

// A value as the dialect writes it into a text: a number with the decimal comma.
QString testo(sqlite3_value* valore) {
    if (sqlite3_value_type(valore) == SQLITE_FLOAT) return testoNumero(sqlite3_value_double(valore));
    const std::string_view t = utf8(valore);
    return QString::fromUtf8(t.data(), static_cast<qsizetype>(t.size()));
}

int intero(sqlite3_value* valore) {
    return sqlite3_value_int(valore);
}

void rispondi(sqlite3_context* contesto, const QString& testo) {
    const QByteArray t = testo.toUtf8();
    sqlite3_result_text64(contesto, t.constData(), static_cast<sqlite3_uint64>(t.size()), SQLITE_TRANSIENT,
                          SQLITE_UTF8);
}
void rispondi(sqlite3_context* contesto, qint64 numero) {
    sqlite3_result_int64(contesto, numero);
}
void rispondi(sqlite3_context* contesto, double numero) {
    sqlite3_result_double(contesto, numero);
}

[[noreturn]] void argomentoNonValido() {
    throw RunTimeError(RunTimeError::ChiamataNonValida);
}

// An error of a function is the statement's error.
using Corpo = void (*)(sqlite3_context*, Argomenti);
template <Corpo corpo>
void chiama(sqlite3_context* contesto, int quanti, sqlite3_value** valori) {
    try {
        corpo(contesto, Argomenti(valori, static_cast<size_t>(quanti)));
    } catch (const std::exception& errore) {
        sqlite3_result_error(contesto, errore.what(), -1);
    }
}

// A Null argument makes the answer Null.
template <Corpo corpo>
void scalare(sqlite3_context* contesto, int quanti, sqlite3_value** valori) {
    for (sqlite3_value* valore : Argomenti(valori, static_cast<size_t>(quanti))) {
        if (nullo(valore)) return sqlite3_result_null(contesto);
    }
    chiama<corpo>(contesto, quanti, valori);
}

// ---- dates -------------------------------------------------------------------------------------------

void now(sqlite3_context* contesto, Argomenti) {
    rispondi(contesto, dataArchivio(orologio().adesso()));
}

void date(sqlite3_context* contesto, Argomenti) {
    rispondi(contesto, dataArchivio(orologio().oggi().startOfDay(Qt::UTC)));
}

template <int (*parte)(QDate)>
void parteDiData(sqlite3_context* contesto, Argomenti valori) {
    const std::string_view t = utf8(valori[0]);
    const QDate giorno = giornoArchivio(QLatin1StringView(t.data(), static_cast<qsizetype>(t.size())));
    if (giorno.isValid()) sqlite3_result_int(contesto, parte(giorno));
}

int anno(QDate data) {
    return data.year();
}
int mese(QDate data) {
    return data.month();
}
int giorno(QDate data) {
    return data.day();
}

QDateTime sommaIntervallo(const QString& intervallo, int quanti, const QDateTime& data) {
    const qint64 n = quanti;
    if (intervallo == "yyyy") return data.addYears(quanti);
    if (intervallo == "q") return data.addMonths(quanti * 3);
    if (intervallo == "m") return data.addMonths(quanti);
    if (intervallo == "y" || intervallo == "d" || intervallo == "w") return data.addDays(n);
    if (intervallo == "ww") return data.addDays(n * 7);
    if (intervallo == "h") return data.addSecs(n * 3600);
    if (intervallo == "n") return data.addSecs(n * 60);
    if (intervallo == "s") return data.addSecs(n);
    argomentoNonValido();
}

void dateAdd(sqlite3_context* contesto, Argomenti valori) {
    constexpr int limite = 4'000'000;  // days of all years that there are; keeps the months in range
    const int quanti = intero(valori[1]);
    const QString intervallo = testo(valori[0]).toLower();
    const bool lungo = intervallo != "h" && intervallo != "n" && intervallo != "s";
    if (lungo && std::abs(static_cast<qint64>(quanti)) > limite) argomentoNonValido();
    const QDateTime partenza = dataOraArchivio(testo(valori[2]));
    if (!partenza.isValid()) throw RunTimeError(RunTimeError::TipoNonCorrispondente);
    const QDateTime arrivo = sommaIntervallo(intervallo, quanti, partenza);
    const int annoArrivo = arrivo.date().year();
    if (!arrivo.isValid() || annoArrivo < 100 || annoArrivo > 9999) argomentoNonValido();
    rispondi(contesto, dataArchivio(arrivo));
}

// ---- numbers -----------------------------------------------------------------------------------------

bool numero(sqlite3_value* valore) {
    const int tipo = sqlite3_value_type(valore);
    return tipo == SQLITE_INTEGER || tipo == SQLITE_FLOAT;
}

QString formattato(sqlite3_value* valore, const QString& modello) {
    if (sqlite3_value_type(valore) == SQLITE_INTEGER)
        return Format(qint64{sqlite3_value_int64(valore)}, modello);
    if (numero(valore)) return Format(sqlite3_value_double(valore), modello);
    const QString t = testo(valore);
    const QDateTime data = dataOraArchivio(t);
    if (data.isValid()) return Format(data, modello);
    return isNumeric(t) ? Format(numeroDouble(t), modello) : t;
}

void format(sqlite3_context* contesto, Argomenti valori) {
    rispondi(contesto, formattato(valori[0], testo(valori[1])));
}

void val(sqlite3_context* contesto, Argomenti valori) {
    if (numero(valori[0])) return sqlite3_result_value(contesto, valori[0]);
    rispondi(contesto, Val(testo(valori[0])));
}

void cDbl(sqlite3_context* contesto, Argomenti valori) {
    rispondi(contesto, numero(valori[0]) ? sqlite3_value_double(valori[0]) : numeroDouble(testo(valori[0])));
}

void intDi(sqlite3_context* contesto, Argomenti valori) {
    if (sqlite3_value_type(valori[0]) == SQLITE_INTEGER) return sqlite3_result_value(contesto, valori[0]);
    const double valore =
        std::floor(numero(valori[0]) ? sqlite3_value_double(valori[0]) : numeroDouble(testo(valori[0])));
    constexpr double interiEsatti = 9007199254740992.0;
    if (std::abs(valore) <= interiEsatti) return rispondi(contesto, static_cast<qint64>(valore));
    rispondi(contesto, valore);
}

// ---- texts -------------------------------------------------------------------------------------------

void concat(sqlite3_context* contesto, Argomenti valori) {
    QString unione;
    for (sqlite3_value* valore : valori)
        unione += testo(valore);
    rispondi(contesto, unione);
}

void nz(sqlite3_context* contesto, Argomenti valori) {
    if (!nullo(valori[0])) return sqlite3_result_value(contesto, valori[0]);
    if (valori.size() > 1) return sqlite3_result_value(contesto, valori[1]);
    rispondi(contesto, QString());
}

int lunghezza(sqlite3_value* valore) {
    const int caratteri = intero(valore);
    if (caratteri < 0) argomentoNonValido();
    return caratteri;
}

void cStr(sqlite3_context* contesto, Argomenti valori) {
    rispondi(contesto, testo(valori[0]));
}
void len(sqlite3_context* contesto, Argomenti valori) {
    rispondi(contesto, qint64{testo(valori[0]).size()});
}
void uCase(sqlite3_context* contesto, Argomenti valori) {
    rispondi(contesto, testo(valori[0]).toUpper());
}
void lCase(sqlite3_context* contesto, Argomenti valori) {
    rispondi(contesto, testo(valori[0]).toLower());
}

void left(sqlite3_context* contesto, Argomenti valori) {
    rispondi(contesto, testo(valori[0]).left(lunghezza(valori[1])));
}
void right(sqlite3_context* contesto, Argomenti valori) {
    rispondi(contesto, testo(valori[0]).right(lunghezza(valori[1])));
}

void mid(sqlite3_context* contesto, Argomenti valori) {
    const int inizio = intero(valori[1]);
    if (inizio < 1) argomentoNonValido();
    rispondi(contesto, testo(valori[0]).mid(inizio - 1, valori.size() > 2 ? lunghezza(valori[2]) : -1));
}

// InStr([start,] text, what): the position counted from 1, 0 when it is not there.
void inStr(sqlite3_context* contesto, Argomenti valori) {
    const bool conInizio = valori.size() == 3;
    const int inizio = conInizio ? intero(valori[0]) : 1;
    if (inizio < 1) argomentoNonValido();
    const QString dove = testo(valori[conInizio ? 1 : 0]);
    const QString cosa = testo(valori[conInizio ? 2 : 1]);
    const bool oltre = inizio > dove.size();
    rispondi(contesto, oltre ? qint64{0} : qint64{dove.indexOf(cosa, inizio - 1, Qt::CaseInsensitive) + 1});
}

// SQLite calls like(pattern, text) for: text LIKE pattern.
void like(sqlite3_context* contesto, Argomenti valori) {
    char32_t fuga = 0;
    if (valori.size() > 2) {
        const QList<uint> carattere = testo(valori[2]).toUcs4();
        if (carattere.size() != 1) argomentoNonValido();
        fuga = dialetto::piega(carattere.front());
    }
    sqlite3_result_int(contesto, dialetto::somiglia(utf8(valori[0]), utf8(valori[1]), fuga) ? 1 : 0);
}

// ---- registration ------------------------------------------------------------------------------------

int collazione(void*, int lunghezzaA, const void* a, int lunghezzaB, const void* b) {
    return dialetto::confronta({static_cast<const char*>(a), static_cast<size_t>(lunghezzaA)},
                               {static_cast<const char*>(b), static_cast<size_t>(lunghezzaB)});
}

struct Funzione {
    const char* nome;
    int argomenti;  // -1: any number
    void (*corpo)(sqlite3_context*, int, sqlite3_value**);
};

// The answer depends on the arguments alone, so they may serve in an index.
constexpr Funzione funzioniPure[] = {
    {"Year", 1, scalare<parteDiData<anno>>},
    {"Month", 1, scalare<parteDiData<mese>>},
    {"Day", 1, scalare<parteDiData<giorno>>},
    {"DateAdd", 3, scalare<dateAdd>},
    {"Format", 2, scalare<format>},
    {"Val", 1, scalare<val>},
    {"CDbl", 1, scalare<cDbl>},
    {"Int", 1, scalare<intDi>},
    {"CStr", 1, scalare<cStr>},
    {"Len", 1, scalare<len>},
    {"UCase", 1, scalare<uCase>},
    {"LCase", 1, scalare<lCase>},
    {"Left", 2, scalare<left>},
    {"Right", 2, scalare<right>},
    {"Mid", 2, scalare<mid>},
    {"Mid", 3, scalare<mid>},
    {"InStr", 2, scalare<inStr>},
    {"InStr", 3, scalare<inStr>},
    {"like", 2, scalare<like>},
    {"like", 3, scalare<like>},
    {"CONCAT", -1, chiama<concat>},
    {"Nz", 1, chiama<nz>},
    {"Nz", 2, chiama<nz>},
};

constexpr Funzione funzioniDelTempo[] = {
    {"Now", 0, chiama<now>},
    {"GetDate", 0, chiama<now>},
    {"Date", 0, chiama<date>},
};

void verifica(int esito) {
    if (esito != SQLITE_OK) throw RunTimeError(RunTimeError::ErroreApplicazione, sqlite3_errstr(esito));
}

void registra(sqlite3* connessione, std::span<const Funzione> funzioni, int proprieta) {
    for (const Funzione& f : funzioni) {
        verifica(sqlite3_create_function_v2(connessione, f.nome, f.argomenti, SQLITE_UTF8 | proprieta,
                                            nullptr, f.corpo, nullptr, nullptr, nullptr));
    }
}

}  // namespace

void registraFunzioniAccess(sqlite3* connessione) {
    registra(connessione, funzioniPure, SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS);
    registra(connessione, funzioniDelTempo, SQLITE_INNOCUOUS);
    verifica(
        sqlite3_create_collation_v2(connessione, "ACCESS_TEXT", SQLITE_UTF8, nullptr, collazione, nullptr));
}
