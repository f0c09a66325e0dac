#include <csignal>
#include <map>
#include <random>
#include <set>

#include <QFile>
#include <QTemporaryDir>

#include "core/errors.h"
#include "counter/bring_back.h"
#include "counter/counter_shop.h"
#include "counter/recovery_journal.h"
#include "data/gateway.h"
#include "doubles/child_process.h"

// A shift at the till whose program is killed again and again at a moment of chance. Sale n is n pieces of
// one product, so that each can be told in the books.

namespace {

constexpr int venditePerGiro = 4;

// What happens on the till, told to the test line by line: "R n" when the row of sale n is on the screen and
// written down, "S n" when its save has ended.
class Resoconto {
  public:
    explicit Resoconto(int uscita) : mUscita(uscita) {}
    void di(char cosa, int vendita) const {
        const QByteArray riga = QByteArray(1, cosa) + ' ' + QByteArray::number(vendita) + '\n';
        if (::write(mUscita, riga.constData(), static_cast<size_t>(riga.size())) < 0) _exit(3);
    }

  private:
    int mUscita;
};

// Wants the sales back and every sale as a document of its own; what it is told ends the program as failed.
class OperatoreDiTurno final : public OperatorPort {
  public:
    using OperatorPort::messaggio;
    void messaggio(const QString& testo, Icona, const QString&) override { esci(testo); }
    Risposta domanda(const QString& testo, Pulsanti, Icona) override {
        return testo == "Riprendere le vendite non salvate?" ? Risposta::Si : Risposta::No;
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
    KilledShift() { n.cliente(7, "ROSSI"); }

    // The life of one program: brings back what was open, saves it, and sells on.
    void lavora(const Resoconto& resoconto, int prima, int ultima) {
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
    void giro(GiornaleVendite& giornale, const Resoconto& resoconto, int vendita) {
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
            resoconto.di('R', vendita + i);
        }
        for (int i = 0; i < venditePerGiro; ++i) {
            salva(giornale, resoconto, i);
        }
    }

    void salva(GiornaleVendite& giornale, const Resoconto& resoconto, int conto) {
        ContoDiProva& c = n.apriConto(conto);
        const int vendita = static_cast<int>(c.vendita().flxVB.single(1, Colonna::Quantita));
        c.tasto(Qt::Key_F5);
        giornale.annota();
        resoconto.di('S', vendita);
    }

    // Runs a program and kills it after so many lines of its account; never when below 0.
    void vita(int prima, int ultima, int righe) {
        int tubo[2];
        ASSERT_EQ(::pipe(tubo), 0);
        gAdo.chiudiConnessioniCalde();
        const pid_t figlio = avviaFiglio([&] {
            ::close(tubo[0]);
            lavora(Resoconto(tubo[1]), prima, ultima);
            return 0;
        });
        ::close(tubo[1]);
        QFile racconto;
        ASSERT_TRUE(racconto.open(tubo[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
        for (QByteArray riga = racconto.readLine(); !riga.isEmpty(); riga = racconto.readLine()) {
            ascolta(riga);
            if (righe-- == 0) ::kill(figlio, SIGKILL);
        }
        const int fine = attendiFiglio(figlio);
        EXPECT_TRUE(fine == 0 || fine == -SIGKILL) << fine;
    }
    void ascolta(const QByteArray& riga) {
        const int vendita = riga.mid(2).trimmed().toInt();
        mIniziate.insert(vendita);
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
        for (const QString& pezzi : n.righe("SELECT QUANTITA + 0.0 FROM DettagliMovimento")) {
            ++volte[static_cast<int>(pezzi.toDouble())];
        }
        return volte;
    }

    void turno(int uccisioni, int vendite, unsigned seme) {
        RecordProperty("seme", static_cast<int>(seme));
        std::mt19937 caso(seme);
        for (int i = 0; i < uccisioni; ++i) {
            const int prima = numeriNuovi();
            vita(prima, prima + 100 * venditePerGiro, static_cast<int>(caso() % 20));
        }
        const int prima = numeriNuovi();
        const int mancano = std::max(0, vendite - static_cast<int>(mIniziate.size()));
        vita(prima, prima + (mancano / venditePerGiro + 1) * venditePerGiro, -1);
        const std::map<int, int> libri = venditeNeiLibri();
        for (const int vendita : mIniziate) {
            EXPECT_EQ(libri.contains(vendita) ? libri.at(vendita) : 0, 1)
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
    std::set<int> mIniziate;  // sales whose row had been written down
    int mUltima = 0;
    int mPrima = 0;  // the first number of the last round
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
