#pragma once

#include <functional>
#include <memory>

#include <QObject>
#include <QString>
#include <QTimer>

#include "register/interface_socket.h"
#include "register/monitor.h"
#include "register/receipt_log.h"
#include "register/register_link.h"
#include "register/register_state.h"

class OperatorPort;

// What the link tells its subscribers, every counter screen and the monitor form.
class EventiRegCassa : public QObject {
    Q_OBJECT
  signals:
    void evtMsg();  // part of the interface; never raised
    // -1 for a NAK, otherwise the code of an error frame.
    void evtError(int codice, const QString& descrizione);
    void evtStart();  // connected
    void evtStop();   // the connection was closed
    void statoCambiato();
    void scaricato();  // the link has ended for good
};

// The link to the fiscal register: starts the register's interface program, frames what it is given and sends
// one frame for each ACK. Nothing here waits or ends by time: a frame that is never answered keeps the rest
// of the queue.
class InterfacciaRegCassa final : public CollegamentoRegCassa {
  public:
    // Starts the program of that path, without arguments; false when it cannot be started.
    using Avvio = std::function<bool(const QString& percorso)>;

    // Without a socket, one of TCP.
    explicit InterfacciaRegCassa(std::unique_ptr<PresaRegCassa> presa = {});
    InterfacciaRegCassa(const InterfacciaRegCassa&) = delete;
    InterfacciaRegCassa& operator=(const InterfacciaRegCassa&) = delete;

    // The socket is connected.
    bool statoConnessione() const override { return mConnesso; }
    // The frames not yet sent.
    const QString& Buffer() const { return mBuffer; }
    // Starts the interface program and connects; says so when the program cannot be started.
    void startMe(OperatorPort& operatore, const Avvio& avviaInterfaccia);
    // Queues the commands of one receipt, parted by "¥", and sends the first frame; dropped while suspended.
    void sendData(const QString& comandi) override;
    // Says "OFF" and ends the link.
    void disconnect();
    // Suspends sending: what is handed over from now on is dropped.
    void interrompi() { attiva(false); }
    // Sends the last frame again, and goes on behind it.
    void retry();
    // Throws the queue away.
    void annullaOperazioni();

    // Closes and connects anew, and takes a suspension back.
    void connetti();
    // The tick "Attiva": off is suspended.
    bool attiva() const { return !mSospeso; }
    void attiva(bool attiva);

    StatoRegCassa stato() const;
    QString titolo() const { return mTitolo; }
    MonitorRegCassa monitor;
    RegistroScontrini scontrini;
    EventiRegCassa eventi;

  private:
    enum class Scambio { Nessuno, InAttesa, Errore };

    PresaRegCassa::Notifiche notifiche();
    void connessa();
    void chiusa();
    void datiArrivati();
    void invioCompletato();
    void analizzaRicevuto(const QString& pezzo);
    void analizeCMDLine(const QString& pezzo);
    void segnalaErrore(int codice, const QString& descrizione);
    void inviaProssimo();
    void scarica();
    void scambio(Scambio scambio);

    std::unique_ptr<PresaRegCassa> mPresa;
    QString mTitolo = "Interfaccia Registratore di Cassa:";
    QString mBuffer;
    QString mUltimoInvio;  // taken off the queue last
    bool mConnesso = false;
    bool mChiusura = false;  // "OFF" is on its way
    bool mSospeso = false;
    Scambio mScambio = Scambio::Nessuno;
    qsizetype mAccodati = 0;  // as last told to the subscribers
    int mErroriAperti = 0;
    QTimer mRilettura;
};

// The one link of the process; it is there from its first use.
InterfacciaRegCassa& gFrmRegCassa();
// For tests: another one, in force for the books too, until a null pointer puts the first back.
void impostaFrmRegCassa(InterfacciaRegCassa* collegamento);
