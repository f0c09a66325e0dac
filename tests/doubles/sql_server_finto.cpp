#include "doubles/sql_server_finto.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include "data/access_rules.h"
#include "data/prepare_sql.h"
#include "data/schema.h"
#include "data/sqlserver_sql.h"

using namespace dialetto;

namespace {

const QString inizioLotto = "SET NOCOUNT ON ";
const QString fineLotto = " SELECT SCOPE_IDENTITY() SET NOCOUNT OFF";

// The statements that the process has run, each once.
class Raccolta {
  public:
    Raccolta() : mFile(qEnvironmentVariable("BOTTEGON_RACCOLTA_TSQL")) {
        if (mFile.fileName().isEmpty()) return;
        if (!mFile.open(QIODevice::Append | QIODevice::Unbuffered))
            qFatal("BOTTEGON_RACCOLTA_TSQL: %s", qPrintable(mFile.errorString()));
        for (const QString& sql : schema::ddl(SqlServer))
            aggiungi(sql);
    }

    // One write a line, so that several processes can share the file.
    void aggiungi(const QString& sql) {
        if (!mFile.isOpen() || mRaccolte.contains(sql)) return;
        mRaccolte.insert(sql);
        mFile.write(QJsonDocument(QJsonArray{sql}).toJson(QJsonDocument::Compact) + '\n');
    }

  private:
    QFile mFile;
    QSet<QString> mRaccolte;
};

class TraduttoreSqlite {
  public:
    explicit TraduttoreSqlite(const QString& sql) : mSql(sql), mToken(tokenizza(sql)) {}

    QString traduci() {
        for (size_t i = 0; i < mToken.size(); i = leggi(i)) {
        }
        regoleSelect(mToken, mModifiche);
        return mModifiche.applica(mSql);
    }

  private:
    quint64 chiave(size_t i) const { return i < mToken.size() ? mToken[i].chiave : 0; }
    bool simbolo(size_t i, char16_t c) const { return i < mToken.size() && mToken[i].simbolo(c); }
    bool unicode(size_t i) const {
        return chiave(i) == parola("N") && i + 1 < mToken.size() && mToken[i + 1].tipo == Tipo::Testo;
    }

    size_t leggi(size_t i) {
        if (unicode(i)) return leggiTesto(i);
        if (simbolo(i, u'+') && unicode(i + 1)) mModifiche.sostituisci(mToken[i], "||");
        if (chiave(i) == parola("CAST") && simbolo(i + 1, u'(')) return leggiCast(i);
        if (chiave(i) == parola("ISNULL")) mModifiche.sostituisci(mToken[i], "IFNULL");
        if (mToken[i].testo == u"REPLICATE") return leggiZeri(i);
        const bool intervallo = chiave(i) == parola("DATEADD") && chiave(i + 2) == parola("MONTH");
        if (intervallo) mModifiche.sostituisci(mToken[i + 2], "'m'");
        return i + (intervallo ? 3 : 1);
    }

    size_t leggiTesto(size_t i) {
        mModifiche.sostituisci(mToken[i], {});
        if (i > 0 && chiave(i - 1) == parola("LIKE")) {
            mModifiche.sostituisci(mToken[i + 1], mToken[i + 1].testo.toString().replace("[[]", "["));
        }
        return i + 2;
    }

    // REPLICATE(N'0', count), with no zero for a count below 0.
    size_t leggiZeri(size_t i) {
        mModifiche.sostituisci(mToken[i], "SUBSTR");
        mModifiche.sostituisci(mToken[i + 2], mToken[i + 3], "'00000', 1");
        return i + 4;
    }

    // The archive keeps dates as texts, and a time of day at day 0.
    size_t leggiCast(size_t i) {
        size_t fine = i + 2;
        while (fine < mToken.size() && chiave(fine) != parola("AS"))
            ++fine;
        const quint64 tipo = chiave(fine + 1);
        const size_t chiusura = fine + (simbolo(fine + 2, u'(') ? 5 : 2);
        if (!simbolo(chiusura, u')')) return i + 1;
        const QString testo = mToken[i + 3].testo.mid(1, mToken[i + 3].testo.size() - 2).toString();
        if (tipo == parola("DATE") && chiave(i + 2) == parola("GETDATE")) {
            mModifiche.sostituisci(mToken[i], mToken[chiusura], "Date()");
        } else if (tipo == parola("DATE")) {
            mModifiche.sostituisci(
                mToken[i], mToken[chiusura],
                "'" + testo.left(4) + '-' + testo.mid(4, 2) + '-' + testo.mid(6) + " 00:00:00'");
        } else if (tipo == parola("TIME")) {
            mModifiche.sostituisci(mToken[i], mToken[chiusura], "'1899-12-30 " + testo + "'");
        } else if (tipo == parola("NVARCHAR")) {
            mModifiche.sostituisci(mToken[i], mToken[chiusura], "''");
        } else {
            return i + 1;
        }
        return chiusura + 1;
    }

    const QString& mSql;
    std::vector<Token> mToken;
    Modifiche mModifiche;
};

class ConnessioneSqlServerFinta final : public Connessione {
  public:
    explicit ConnessioneSqlServerFinta(std::unique_ptr<Connessione> archivio)
        : mArchivio(std::move(archivio)) {}

    bool esegui(const QString& sql, Recordset* righe) override {
        return eseguiNativo(traduciSqlServer(sql), righe);
    }
    bool eseguiNativo(const QString& sql, Recordset* righe) override {
        raccogliTSql(sql);
        if (!sql.startsWith(inizioLotto) || !sql.endsWith(fineLotto))
            return mArchivio->eseguiNativo(sqliteDaTSql(sql), righe);
        const qsizetype inizio = inizioLotto.size();
        const QString istruzione = sql.mid(inizio, sql.size() - inizio - fineLotto.size());
        return mArchivio->eseguiNativo(sqliteDaTSql(istruzione), nullptr) &&
               mArchivio->eseguiNativo("SELECT last_insert_rowid()", righe);
    }
    int righeModificate() const override { return mArchivio->righeModificate(); }
    bool inizia() override { return mArchivio->inizia(); }
    bool conferma() override { return mArchivio->conferma(); }
    bool annulla() override { return mArchivio->annulla(); }
    bool inTransazione() const override { return mArchivio->inTransazione(); }
    const ErroreServer& errore() const override { return mArchivio->errore(); }

    std::unique_ptr<Connessione> lasciaArchivio() { return std::move(mArchivio); }

  private:
    std::unique_ptr<Connessione> mArchivio;
};

}  // namespace

void raccogliTSql(const QString& sql) {
    static Raccolta raccolta;
    raccolta.aggiungi(sql);
}

QString sqliteDaTSql(const QString& sql) {
    return TraduttoreSqlite(sql).traduci();
}

SqlServerFinto::SqlServerFinto(std::unique_ptr<ServerDriver> archivio) : mArchivio(std::move(archivio)) {}

std::unique_ptr<Connessione> SqlServerFinto::apri(const QString& stringaConnessione, int secondi,
                                                  const AttesaServer& attesa, ErroreServer& errore) {
    auto archivio = mArchivio->apri(stringaConnessione, secondi, attesa, errore);
    if (!archivio) return nullptr;
    return std::make_unique<ConnessioneSqlServerFinta>(std::move(archivio));
}

void SqlServerFinto::restituisci(std::unique_ptr<Connessione> connessione) {
    auto* finta = dynamic_cast<ConnessioneSqlServerFinta*>(connessione.get());
    if (finta != nullptr) mArchivio->restituisci(finta->lasciaArchivio());
}
