#include "data/connection_pairs.h"

#include <map>

namespace coppie {
namespace {

const std::map<QString, Voce>& voci() {
    static const std::map<QString, Voce> tutte = [] {
        std::map<QString, Voce> v;
        const auto aggiungi = [&v](Voce voce, std::initializer_list<const char*> nomi) {
            for (const char* nome : nomi)
                v[nome] = voce;
        };
        aggiungi(Voce::Server, {"server", "host", "hostname", "datasource", "addr", "address",
                                "networkaddress", "servername"});
        aggiungi(Voce::Porta, {"port", "tcpport"});
        aggiungi(Voce::Socket, {"socket", "unixsocket"});
        aggiungi(Voce::Database, {"database", "initialcatalog", "db", "dbname"});
        aggiungi(Voce::Utente, {"uid", "user", "userid", "username"});
        aggiungi(Voce::Password, {"pwd", "password", "passwd", "pass"});
        aggiungi(Voce::Driver, {"driver"});
        aggiungi(Voce::Cifratura, {"sslmode", "encrypt", "encryption"});
        aggiungi(Voce::Certificati, {"sslca", "cacertificatefile", "certificatefile"});
        aggiungi(Voce::Secondi, {"timeout", "connectiontimeout", "connecttimeout", "logintimeout"});
        aggiungi(Voce::SecondiIstruzione, {"commandtimeout", "defaultcommandtimeout", "readtimeout"});
        aggiungi(Voce::Tollerata, {"option",
                                   "options",
                                   "provider",
                                   "charset",
                                   "characterset",
                                   "clientcharset",
                                   "tdsversion",
                                   "persistsecurityinfo",
                                   "integratedsecurity",
                                   "trustedconnection",
                                   "trustservercertificate",
                                   "applicationname",
                                   "app",
                                   "workstationid",
                                   "wsid",
                                   "network",
                                   "networklibrary",
                                   "language",
                                   "pooling",
                                   "allowuservariables",
                                   "allowpublickeyretrieval",
                                   "multipleactiveresultsets",
                                   "marsconnection",
                                   "stmt",
                                   "dsn",
                                   "description",
                                   "multisubnetfailover",
                                   "protocol",
                                   "connectionprotocol"});
        return v;
    }();
    return tutte;
}

QChar chiusuraDi(QChar apertura) {
    if (apertura == u'{') return u'}';
    return apertura == u'"' || apertura == u'\'' ? apertura : QChar();
}

class Lettore {
  public:
    explicit Lettore(const QString& testo) : mTesto(testo) {}

    std::vector<Coppia> coppie() {
        std::vector<Coppia> trovate;
        while (mPosizione < mTesto.size()) {
            saltaBianchi();
            if (mPosizione >= mTesto.size()) break;
            if (mTesto[mPosizione] == u';') {
                ++mPosizione;
            } else {
                trovate.push_back(coppia());
            }
        }
        return trovate;
    }

  private:
    void saltaBianchi() {
        while (mPosizione < mTesto.size() && mTesto[mPosizione].isSpace())
            ++mPosizione;
    }

    Coppia coppia() {
        Coppia c;
        c.inizio = mPosizione;
        while (mPosizione < mTesto.size() && mTesto[mPosizione] != u'=' && mTesto[mPosizione] != u';')
            ++mPosizione;
        c.chiave = mTesto.mid(c.inizio, mPosizione - c.inizio).simplified();
        c.voce = voceDi(c.chiave);
        if (mPosizione >= mTesto.size() || mTesto[mPosizione] == u';') {
            c.difetto = Difetto::SenzaUguale;
            c.inizioValore = c.fine = mPosizione;
            return c;
        }
        ++mPosizione;
        saltaBianchi();
        c.inizioValore = mPosizione;
        const QChar chiusura = mPosizione < mTesto.size() ? chiusuraDi(mTesto[mPosizione]) : QChar();
        chiusura.isNull() ? leggiNudo(c) : leggiTraVirgolette(c, chiusura);
        return c;
    }

    void leggiTraVirgolette(Coppia& c, QChar chiusura) {
        bool chiuso = false;
        for (++mPosizione; mPosizione < mTesto.size() && !chiuso; ++mPosizione) {
            const QChar carattere = mTesto[mPosizione];
            const bool doppia =
                carattere == chiusura && mPosizione + 1 < mTesto.size() && mTesto[mPosizione + 1] == chiusura;
            if (doppia) ++mPosizione;
            chiuso = carattere == chiusura && !doppia;
            if (!chiuso) c.valore += carattere;
        }
        c.fine = mPosizione;
        if (!chiuso) {
            c.difetto = Difetto::VirgoletteAperte;
            return;
        }
        const qsizetype dopo = mPosizione;
        const qsizetype fine = fineNudo();
        if (mTesto.mid(dopo, fine - dopo).trimmed().isEmpty()) return;
        c.difetto = Difetto::TestoDopoVirgolette;
        c.fine = fine;
    }

    void leggiNudo(Coppia& c) {
        const qsizetype fine = fineNudo();
        c.valore = mTesto.mid(c.inizioValore, fine - c.inizioValore).trimmed();
        c.fine = c.inizioValore + c.valore.size();
        if (c.valore.contains(u'\n') || c.valore.contains(u'\r')) c.difetto = Difetto::SuDueRighe;
    }

    // Goes to the end of an unquoted value.
    qsizetype fineNudo() {
        while (mPosizione < mTesto.size() && mTesto[mPosizione] != u';') {
            const bool aCapo = mTesto[mPosizione] == u'\n' || mTesto[mPosizione] == u'\r';
            if (aCapo && chiaveNotaDa(mPosizione + 1)) break;
            ++mPosizione;
        }
        return mPosizione;
    }

    bool chiaveNotaDa(qsizetype inizio) const {
        qsizetype uguale = inizio;
        while (uguale < mTesto.size() && mTesto[uguale] != u'=' && mTesto[uguale] != u';')
            ++uguale;
        if (uguale >= mTesto.size() || mTesto[uguale] == u';') return false;
        return voceDi(QStringView(mTesto).mid(inizio, uguale - inizio)) != Voce::Sconosciuta;
    }

    const QString& mTesto;
    qsizetype mPosizione = 0;
};

}  // namespace

Voce voceDi(QStringView chiave) {
    QString nome;
    for (const QChar c : chiave) {
        if (!c.isSpace() && c != u'_' && c != u'-') nome += c.toLower();
    }
    const auto trovata = voci().find(nome);
    return trovata == voci().end() ? Voce::Sconosciuta : trovata->second;
}

std::vector<Coppia> leggi(const QString& testo) {
    return Lettore(testo).coppie();
}

}  // namespace coppie
