#include <atomic>
#include <csignal>
#include <map>
#include <random>
#include <set>
#include <sys/time.h>

#include <QFile>
#include <QTemporaryDir>

#include "core/errors.h"
#include "counter/bring_back.h"
#include "counter/counter_shop.h"
#include "counter/recovery_journal.h"
#include "data/disk.h"
#include "data/gateway.h"
#include "data/server_driver.h"
#include "doubles/child_process.h"
#include "doubles/kit_di_prova.h"
#include "sale/gesti.h"

// A shift at the till whose program is killed again and again at a moment of chance. Sale n begins with n
// pieces of one product, so that each can be told in the books.

namespace {

constexpr int venditePerGiro = 4;
// Fewer pieces are those of a sale whose number was still being typed.
constexpr int primaVendita = 1000;
// What a row or a save takes on a slow machine; microseconds.
constexpr int momentoMassimo = 30000;
constexpr int passiMassimi = 300;

// When a program dies: a moment after so many lines of its account, or at one of its steps.
struct Morte {
    int righe = -1;
    int microsecondi = 1;
    int passi = 0;
};

// The process ends at a step of its way to the books or to the disk: just before a statement, or before a
// file or a name is brought to the disk.
class UltimoPasso final : public Disco {
  public:
    explicit UltimoPasso(int passi) : mPassi(passi) {
        if (passi < 1) return;
        impostaDisco(this);
        sondaIstruzioni() = [this](const QString&) -> std::optional<ErroreServer> {
            passo();
            return std::nullopt;
        };
    }
    bool scarica(int file) override {
        passo();
        return Disco::scarica(file);
    }
    bool scaricaCartellaDi(const QString& file) override {
        passo();
        return Disco::scaricaCartellaDi(file);
    }

  private:
    void passo() {
        if (--mPassi == 0) ::kill(::getpid(), SIGKILL);
    }
    std::atomic<int> mPassi;
};

// What happens on the till, told to the test line by line: "R n" when the row of sale n is on the screen and
// written down, "S n" when its save has ended.
class Resoconto {
  public:
    Resoconto(int uscita, const Morte& morte) : mUscita(uscita), mMorte(morte) {}
    void di(char cosa, int vendita) {
        const QByteArray riga = QByteArray(1, cosa) + ' ' + QByteArray::number(vendita) + '\n';
        if (::write(mUscita, riga.constData(), static_cast<size_t>(riga.size())) < 0) _exit(3);
        if (mMorte.righe-- == 0) muoreTraPoco();
    }

  private:
    // Nothing catches that signal.
    void muoreTraPoco() const {
        const itimerval tempo{{}, {0, mMorte.microsecondi}};
        if (::setitimer(ITIMER_REAL, &tempo, nullptr) != 0) _exit(3);
    }

    int mUscita;
    Morte mMorte;
};

// Wants the sales back and every sale as a document of its own; what it is told ends the program as failed.
class OperatoreDiTurno final : public OperatorPort {
  public:
    using OperatorPort::messaggio;
    void messaggio(const QString& testo, Icona, const QString&) override { esci(testo); }
    Risposta domanda(const QString& testo, Pulsanti, Icona) override {
        const bool si = testo == "Riprendere le vendite non salvate?" || testo.startsWith("Eliminare ");
        return si ? Risposta::Si : Risposta::No;
    }
    bool avviso(const Errore& errore) override {
        esci(errore.modulo + ": " + errore.descrizione);
        return false;
    }
    void beep() override {}
    void clessidra(bool) override {}
    void pausa(int) override {}
    void avvisoAttesa(const QString&) override {}

  private:
    static void esci(const QString& testo) {
        qCritical("%s", qPrintable(testo));
        _exit(4);
    }
};

class KilledShift : public BancoDiProva {
  protected:
    KilledShift() {
        n.cliente(7, "ROSSI");
        distinta(n, "%KIT", {{n.prodotto({.codice = "B", .listino1 = 5}), 1, 2}});
    }

    // The life of one program: brings back what was open, saves it, and sells on.
    void lavora(Resoconto& resoconto, int prima, int ultima) {
        OperatoreDiTurno operatore;
        std::vector<std::unique_ptr<ContoDiProva>> schermi;
        impostaFabbricaConti([&](int indice) {
            schermi.push_back(std::make_unique<ContoDiProva>(indice, operatore));
            return schermi.back().get();
        });
        gAdo.impostaOperatore(&operatore);
        gErr.imposta(cartella.path(), &operatore);
        GiornaleVendite giornale(percorso);
        getConto(0, false);
        riprendiVendite(giornale, operatore);
        for (int i = contiMassimi - 1; i >= 0; --i) {
            if (gConti[static_cast<size_t>(i)] && n.vendita(i).venditaModificata)
                salva(giornale, resoconto, i);
        }
        for (int vendita = prima; vendita + venditePerGiro - 1 <= ultima; vendita += venditePerGiro) {
            giro(giornale, resoconto, vendita);
        }
    }

    // Four customers at once.
    void giro(GiornaleVendite& giornale, Resoconto& resoconto, int vendita) {
        for (int i = 0; i < venditePerGiro; ++i) {
            ContoDiProva& c = n.apriConto(i);
            if (i == 0) c.tasto(Qt::Key_F2);
            if (i > 0) {
                c.digita("7");
                c.invio();
            }
            giornale.annota();
            c.scansiona("8001");
            c.clic(c.vendita().txtQta);
            c.digita(QString::number(vendita + i));
            c.tasto(Qt::Key_F6);
            giornale.annota();
            contorno(c, vendita + i);
            giornale.annota();
            resoconto.di('R', vendita + i);
        }
        for (int i = 0; i < venditePerGiro; ++i) {
            salva(giornale, resoconto, i);
        }
    }

    // What else is rung up with that sale: nothing, a return, a kit, or a row that is taken off again.
    static void contorno(ContoDiProva& c, int vendita) {
        if (vendita % venditePerGiro == 1) return;
        if (vendita % venditePerGiro == 3) return vendi(c, "%KIT");
        if (vendita % venditePerGiro == 0) return venditaTolta(c);
        c.digita("B");
        c.invio();
        rendi(c, "2");
    }
    static void venditaTolta(ContoDiProva& c) {
        vendi(c, "B");
        c.clicRiga(c.vendita().flxVB.ultima());
        c.tasto(Qt::Key_F9);
    }
    // Its rows but the first, in the books.
    static QStringList righeDiContorno(int vendita) {
        if (vendita % venditePerGiro == 2) return {"B -2"};
        if (vendita % venditePerGiro == 3) return {"%KIT 1", "B 1"};
        return {};
    }

    void salva(GiornaleVendite& giornale, Resoconto& resoconto, int conto) {
        ContoDiProva& c = n.apriConto(conto);
        const int vendita = static_cast<int>(c.vendita().flxVB.single(1, Colonna::Quantita));
        c.tasto(Qt::Key_F5);
        giornale.annota();
        resoconto.di('S', vendita);
    }

    // Runs a program that dies then, or does all its work.
    void vita(int prima, int ultima, const Morte& morte) {
        int tubo[2];
        ASSERT_EQ(::pipe(tubo), 0);
        gAdo.chiudiConnessioniCalde();
        const pid_t figlio = avviaFiglio([&] {
            ::close(tubo[0]);
            const UltimoPasso passi(morte.passi);
            Resoconto resoconto(tubo[1], morte);
            lavora(resoconto, prima, ultima);
            return 0;
        });
        ::close(tubo[1]);
        QFile racconto;
        ASSERT_TRUE(racconto.open(tubo[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
        for (QByteArray riga = racconto.readLine(); !riga.isEmpty(); riga = racconto.readLine()) {
            ascolta(riga);
        }
        const int fine = attendiFiglio(figlio);
        const bool muore = morte.righe >= 0 || morte.passi > 0;
        EXPECT_TRUE(muore ? fine == -SIGKILL || fine == -SIGALRM : fine == 0) << fine;
    }
    void ascolta(const QByteArray& riga) {
        const int vendita = riga.mid(2).trimmed().toInt();
        if (vendita < primaVendita) return;
        mIniziate.insert(vendita);
        if (riga.startsWith('R')) mIntere.insert(vendita);
        mUltima = std::max(mUltima, vendita);
    }

    // Behind every number that a program may have used, also for a sale that it had no time to tell of.
    int numeriNuovi() {
        mPrima = (std::max(mUltima, mPrima) / venditePerGiro + 3) * venditePerGiro + 1;
        return mPrima;
    }

    // The pieces of each sale in the books, as told by the archive.
    std::map<int, int> venditeNeiLibri() const {
        std::map<int, int> volte;
        for (const QString& pezzi :
             n.righe("SELECT QUANTITA + 0.0 FROM DettagliMovimento WHERE CODPRODOTTO = 'A'")) {
            const int vendita = static_cast<int>(pezzi.toDouble());
            if (vendita >= primaVendita) ++volte[vendita];
        }
        return volte;
    }

    QStringList contornoNeiLibri(int vendita) const {
        QStringList righe;
        for (const QString& riga : n.righe(
                 "SELECT CODPRODOTTO, QUANTITA + 0.0 FROM DettagliMovimento WHERE CODPRODOTTO <> 'A' AND "
                 "FK_MOVIMENTO IN (SELECT FK_MOVIMENTO FROM DettagliMovimento WHERE CODPRODOTTO = 'A' AND "
                 "QUANTITA = " +
                 QString::number(vendita) + ") ORDER BY POS")) {
            righe << riga.section(u'|', 0, 0) + " " + QString::number(riga.section(u'|', 1).toDouble());
        }
        return righe;
    }

    // By turns a moment of chance and a step of chance.
    static Morte morte(int volta, std::mt19937& caso) {
        const auto fino = [&](int massimo) {
            return static_cast<int>(caso() % static_cast<unsigned>(massimo));
        };
        if (volta % 2 == 0) return {.righe = fino(20), .microsecondi = 1 + fino(momentoMassimo)};
        return {.passi = 1 + fino(passiMassimi)};
    }

    void turno(int uccisioni, int vendite, unsigned seme) {
        RecordProperty("seme", static_cast<int>(seme));
        std::mt19937 caso(seme);
        for (int i = 0; i < uccisioni; ++i) {
            const int prima = numeriNuovi();
            vita(prima, prima + 100 * venditePerGiro, morte(i, caso));
        }
        const int prima = numeriNuovi();
        const int mancano = std::max(0, vendite - static_cast<int>(mIniziate.size()));
        vita(prima, prima + (mancano / venditePerGiro + 1) * venditePerGiro, Morte());
        const std::map<int, int> libri = venditeNeiLibri();
        for (const int vendita : mIniziate) {
            EXPECT_EQ(libri.contains(vendita) ? libri.at(vendita) : 0, 1)
                << "vendita " << vendita << ", seme " << seme;
        }
        for (const int vendita : mIntere) {
            EXPECT_EQ(contornoNeiLibri(vendita), righeDiContorno(vendita))
                << "vendita " << vendita << ", seme " << seme;
        }
        for (const auto& [vendita, volte] : libri)
            EXPECT_EQ(volte, 1) << "vendita " << vendita;
        EXPECT_GE(static_cast<int>(mIniziate.size()), vendite);
        EXPECT_EQ(n.verifica(), QStringList());
        EXPECT_FALSE(QFile::exists(percorso));
    }

    QTemporaryDir cartella;
    const QString percorso = cartella.path() + "/vendite_aperte.giornale";

  private:
    std::set<int> mIniziate;  // sales whose first row had been written down
    std::set<int> mIntere;    // and all others too
    int mUltima = primaVendita;
    int mPrima = primaVendita;  // the first number of the last round
};

unsigned seme() {
    const QByteArray dato = qgetenv("BOTTEGON_SEME");
    return dato.isEmpty() ? std::random_device{}() : dato.toUInt();
}

}  // namespace

TEST_F(KilledShift, NoSaleIsLostAndNoneIsThereTwice) {
    turno(5, 40, seme());
}

TEST_F(KilledShift, FiftyDeathsInAShiftOfTwoHundredSales) {
    turno(50, 200, seme());
}
