#include "data/connection_string.h"

#include <map>

#include <QRegularExpression>

#include "data/connection_pairs.h"
#include "data/prepare_sql.h"

using coppie::Coppia;
using coppie::Difetto;
using coppie::Voce;

namespace {

const char* const inizioInvito = "digitare una stringa di connessione";
constexpr int portaMassima = 65535;

struct Rifiuto {
    QString motivo;
};

QString nomeServer(int tipoServer) {
    return tipoServer == MySql ? "MySQL" : "SQL Server";
}

bool nominaPassword(const QString& testo) {
    static const QRegularExpression parole("pwd|pass", QRegularExpression::CaseInsensitiveOption);
    return parole.match(testo).hasMatch();
}

bool contienePassword(const QString& valore) {
    static const QRegularExpression chiave(R"((pwd|pass(wd|word)?)\s*=)",
                                           QRegularExpression::CaseInsensitiveOption);
    return chiave.match(valore).hasMatch();
}

// A password that was not put in quotes ends at its first ";", and its rest looks like a key.
[[noreturn]] void rifiutaSconosciuta(const Coppia& c, const Coppia* precedente) {
    if (precedente != nullptr && precedente->voce == Voce::Password) {
        throw Rifiuto{"Nella stringa di connessione il testo dopo la voce \"" + precedente->chiave +
                      "\" non si capisce. Se la password contiene \";\" va scritta tra virgolette."};
    }
    if (nominaPassword(c.chiave)) {
        throw Rifiuto{
            "Nella stringa di connessione la voce \"Pwd\" non si capisce: va scritta \"Pwd=...;\"."};
    }
    throw Rifiuto{"La voce \"" + c.chiave + "\" della stringa di connessione non è conosciuta."};
}

void controllaForma(const Coppia& c) {
    const QString voce = "La voce \"" + c.chiave + "\" della stringa di connessione";
    switch (c.difetto) {
        case Difetto::Nessuno:
            return;
        case Difetto::SenzaUguale:
            throw Rifiuto{voce + " non ha \"=\" e valore."};
        case Difetto::VirgoletteAperte:
            throw Rifiuto{voce + " ha virgolette o parentesi che non si chiudono."};
        case Difetto::TestoDopoVirgolette:
            throw Rifiuto{voce + " ha altro testo dopo le virgolette."};
        case Difetto::SuDueRighe:
            throw Rifiuto{voce + " è spezzata su più righe."};
    }
}

int numero(const Coppia& c, int massimo) {
    bool valido = false;
    const int n = c.valore.toInt(&valido);
    if (!valido || n < 1 || n > massimo) {
        throw Rifiuto{"La voce \"" + c.chiave +
                      "\" della stringa di connessione deve essere un numero da 1 a " +
                      QString::number(massimo) + "."};
    }
    return n;
}

DatiConnessione::Cifratura cifratura(const Coppia& c) {
    using enum DatiConnessione::Cifratura;
    static const std::map<QString, DatiConnessione::Cifratura> modi{
        {"none", Mai},
        {"disabled", Mai},
        {"no", Mai},
        {"false", Mai},
        {"off", Mai},
        {"0", Mai},
        {"preferred", SePossibile},
        {"prefer", SePossibile},
        {"optional", SePossibile},
        {"request", SePossibile},
        {"required", Richiesta},
        {"require", Richiesta},
        {"mandatory", Richiesta},
        {"yes", Richiesta},
        {"true", Richiesta},
        {"1", Richiesta},
        {"on", Richiesta},
        {"verifyca", Verificata},
    };
    const auto modo = modi.find(c.valore.toLower().remove('_').remove('-').remove(' '));
    if (modo == modi.end()) {
        throw Rifiuto{
            "La voce \"" + c.chiave +
            "\" della stringa di connessione deve essere Disabled, Preferred, Required o VerifyCA."};
    }
    return modo->second;
}

// "tcp:host,port" is how SQL Server's own tools write both.
void leggiServer(const Coppia& c, int tipoServer, DatiConnessione& dati) {
    QString server = c.valore;
    if (tipoServer == SqlServer) {
        if (server.startsWith("tcp:", Qt::CaseInsensitive)) server = server.mid(4).trimmed();
        const qsizetype virgola = server.indexOf(',');
        if (virgola >= 0) {
            Coppia porta = c;
            porta.valore = server.mid(virgola + 1).trimmed();
            dati.porta = numero(porta, portaMassima);
            server = server.left(virgola).trimmed();
        }
        if (server == "." || server.compare("(local)", Qt::CaseInsensitive) == 0) server = "localhost";
    }
    dati.server = server;
}

void leggiVoce(const Coppia& c, int tipoServer, DatiConnessione& dati) {
    switch (c.voce) {
        case Voce::Server:
            return leggiServer(c, tipoServer, dati);
        case Voce::Porta:
            dati.porta = numero(c, portaMassima);
            return;
        case Voce::Socket:
            dati.socket = c.valore;
            return;
        case Voce::Database:
            dati.database = c.valore;
            return;
        case Voce::Utente:
            dati.utente = c.valore;
            return;
        case Voce::Password:
            dati.password = c.valore;
            return;
        case Voce::Driver:
            dati.driver = c.valore;
            return;
        case Voce::Cifratura:
            dati.cifratura = cifratura(c);
            return;
        case Voce::Certificati:
            dati.certificati = c.valore;
            return;
        case Voce::Secondi:
            dati.secondi = numero(c, 3600);
            return;
        case Voce::SecondiIstruzione:
            dati.secondiIstruzione = numero(c, 86400);
            return;
        case Voce::Tollerata:
        case Voce::Sconosciuta:
            return;
    }
}

DatiConnessione leggiCoppie(const QString& stringa, int tipoServer) {
    DatiConnessione dati;
    std::map<Voce, QString> lette;
    const Coppia* precedente = nullptr;
    const std::vector<Coppia> tutte = coppie::leggi(stringa);
    for (const Coppia& c : tutte) {
        if (c.voce == Voce::Sconosciuta) rifiutaSconosciuta(c, precedente);
        controllaForma(c);
        if (c.voce != Voce::Tollerata && !lette.emplace(c.voce, c.chiave).second) {
            const QString& prima = lette[c.voce];
            throw Rifiuto{"La voce \"" + c.chiave + "\" della stringa di connessione " +
                          (prima == c.chiave ? QString("c'è due volte.") : "ripete \"" + prima + "\".")};
        }
        leggiVoce(c, tipoServer, dati);
        precedente = &c;
    }
    return dati;
}

void pretendi(const QString& valore, const char* voce) {
    if (valore.isEmpty()) {
        throw Rifiuto{QString("Nella stringa di connessione manca la voce \"") + voce + "\"."};
    }
}

void controllaVerifica(const DatiConnessione& dati, int tipoServer) {
    if (tipoServer == MySql) return pretendi(dati.certificati, "SslCa");
    // FreeTDS takes certificates from its own configuration only.
    if (dati.driver.isEmpty() || dati.driver.contains("FreeTDS", Qt::CaseInsensitive)) {
        throw Rifiuto{
            "Con il driver FreeTDS la voce \"SslMode\" della stringa di connessione non può chiedere "
            "di verificare il certificato: indicare Required."};
    }
}

DatiConnessione leggi(const QString& stringa, int tipoServer, bool conDatabase) {
    const QString testo = stringa.trimmed();
    if (testo.isEmpty() || testo.startsWith(inizioInvito, Qt::CaseInsensitive)) {
        throw Rifiuto{"La stringa di connessione a " + nomeServer(tipoServer) + " non è stata scritta."};
    }
    DatiConnessione dati = leggiCoppie(testo, tipoServer);
    // An ODBC driver of another kind of server may need no host.
    const bool serveServer = dati.socket.isEmpty() && (tipoServer == MySql || dati.driver.isEmpty());
    if (serveServer) pretendi(dati.server, "Server");
    if (conDatabase) pretendi(dati.database, "Database");
    if (dati.cifratura == DatiConnessione::Cifratura::Verificata) controllaVerifica(dati, tipoServer);
    return dati;
}

std::optional<DatiConnessione> prova(const QString& stringa, int tipoServer, bool conDatabase,
                                     QString& errore) {
    try {
        return leggi(stringa, tipoServer, conDatabase);
    } catch (const Rifiuto& rifiuto) {
        errore = rifiuto.motivo;
        return std::nullopt;
    }
}

}  // namespace

std::optional<DatiConnessione> leggiStringaConnessione(const QString& stringa, int tipoServer,
                                                       QString& errore) {
    return prova(stringa, tipoServer, true, errore);
}

std::optional<DatiConnessione> leggiStringaServer(const QString& stringa, int tipoServer, QString& errore) {
    return prova(stringa, tipoServer, false, errore);
}

// A missing semicolon or quote can put the password anywhere.
QString mascheraPassword(const QString& stringaConnessione) {
    QString mascherata;
    qsizetype copiati = 0;
    bool dopoPassword = false;
    for (const Coppia& c : coppie::leggi(stringaConnessione)) {
        // Up to the next known key, what follows a password may be the rest of it.
        if (c.voce != Voce::Sconosciuta) dopoPassword = c.voce == Voce::Password;
        const bool dallaChiave = c.voce == Voce::Sconosciuta && (dopoPassword || nominaPassword(c.chiave));
        const qsizetype inizio = dallaChiave ? c.inizio : c.inizioValore;
        const QString pezzo = stringaConnessione.mid(inizio, c.fine - inizio);
        if (!dallaChiave && !dopoPassword && !contienePassword(pezzo)) continue;
        mascherata += stringaConnessione.mid(copiati, inizio - copiati);
        mascherata += "***";
        copiati = c.fine;
    }
    return mascherata + stringaConnessione.mid(copiati);
}

QString percorsoArchivio(const QString& stringaConnessione) {
    const QString chiave = "Data Source=";
    const auto inizio = stringaConnessione.indexOf(chiave, 0, Qt::CaseInsensitive);
    if (inizio < 0) return {};
    const auto valore = inizio + chiave.size();
    // A path may hold a semicolon: only the known next key ends it.
    auto fine = stringaConnessione.indexOf(";Persist Security Info=", valore, Qt::CaseInsensitive);
    if (fine < 0) fine = stringaConnessione.size();
    return stringaConnessione.mid(valore, fine - valore);
}
