#include <sys/stat.h>

#include <QFile>

#include "core/globals.h"
#include "data/gateway.h"
#include "data/sqlite_connection.h"
#include "doubles/other_program.h"
#include "postings/books.h"

// The archive is a file, and another program or the disk stands in the way of a save.

namespace {

const char* const inizio = "cAdoSqlServer.beginTrasaction -> .saveRecordbBottegonClientVB";

// An operator who does something as soon as the notice of waiting is up.
class OperatoreInAttesa final : public OperatorPort {
  public:
    explicit OperatoreInAttesa(std::function<void()> allAvviso) : mAllAvviso(std::move(allAvviso)) {
        gAdo.impostaOperatore(this);
    }
    using OperatorPort::messaggio;
    void messaggio(const QString& testo, Icona, const QString&) override {
        ADD_FAILURE() << testo.toStdString();
    }
    Risposta domanda(const QString&, Pulsanti, Icona) override { return Risposta::No; }
    bool avviso(const Errore&) override { return true; }
    void beep() override {}
    void clessidra(bool) override {}
    void pausa(int) override {}
    void avvisoAttesa(const QString& testo) override {
        if (!testo.isEmpty() && mostrati++ == 0) mAllAvviso();
        attesa = testo;
    }

    int mostrati = 0;
    QString attesa;  // the notice that stands now

  private:
    std::function<void()> mAllAvviso;
};

class FaultsOnFile : public testing::Test {
  protected:
    void SetUp() override {
        gNomeModulo = "bBottegonClientVB";
        n.prodotto({.codice = "A", .listino1 = 10});
        vendi(conto, "A");
        prima = schermata(conto.vendita());
        gAdo.chiudiConnessioniCalde();
    }
    ~FaultsOnFile() override { SqliteConnection::attesaMassima = mAttesa; }

    void venditaNeiLibri() {
        EXPECT_EQ(n.riga("SELECT COUNT(*), MAX(PROGRESSIVO), SUM(TOTDOCUMENTO) FROM Movimenti"), "1|1|12.2");
        EXPECT_EQ(n.conta("DettagliMovimento"), 1);
        EXPECT_EQ(n.verifica(), QStringList());
    }

    Negozio n;
    ContoDiProva& conto = n.apriConto();
    QStringList prima;

  private:
    const int mAttesa = SqliteConnection::attesaMassima;
};

TEST_F(FaultsOnFile, ArchiveThatAnotherProgramKeepsIsSaidAndTheSaleStays) {
    SqliteConnection::attesaMassima = 200;
    AltroProgramma altro(n.percorso(), {"BEGIN EXCLUSIVE"});
    n.operatore.attendiAvviso(inizio);
    conto.tasto(Qt::Key_F5);
    EXPECT_EQ(schermata(conto.vendita()), prima);
    EXPECT_EQ(n.operatore.attesa, QString());
    altro.lascia();
    conto.tasto(Qt::Key_F5);
    venditaNeiLibri();
}

TEST_F(FaultsOnFile, ArchiveThatIsBusyForAMomentIsWaitedForUnderANotice) {
    AltroProgramma altro(n.percorso(), {"BEGIN EXCLUSIVE"});
    OperatoreInAttesa operatore([&] { altro.lascia(); });
    conto.tasto(Qt::Key_F5);
    gAdo.impostaOperatore(&n.operatore);
    EXPECT_GT(operatore.mostrati, 0);
    EXPECT_EQ(operatore.attesa, QString());
    venditaNeiLibri();
}

// A reader does not stand in the way.
TEST_F(FaultsOnFile, ArchiveThatIsBeingReadTakesTheSale) {
    AltroProgramma altro(n.percorso(), {"BEGIN", "SELECT * FROM Prodotti"});
    conto.tasto(Qt::Key_F5);
    altro.lascia();
    venditaNeiLibri();
}

TEST_F(FaultsOnFile, ReadOnlyArchiveIsSaidAndTheSaleStays) {
    const QByteArray file = QFile::encodeName(n.percorso());
    ASSERT_EQ(chmod(file.constData(), 0444), 0);
    ASSERT_EQ(chmod(file.left(file.lastIndexOf('/')).constData(), 0755), 0);
    EXPECT_EQ(comeUtenteComune([&] {
                  const RegistroAvvisi avvisi;
                  conto.tasto(Qt::Key_F5);
                  if (avvisi.moduli != QStringList("cAdoSqlServer.Connect -> N/D")) return 1;
                  return schermata(conto.vendita()) == prima ? 0 : 2;
              }),
              0);
    ASSERT_EQ(chmod(file.constData(), 0644), 0);
    conto.tasto(Qt::Key_F5);
    venditaNeiLibri();
}

}  // namespace
