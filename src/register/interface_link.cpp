#include "register/interface_link.h"

#include <QScopedValueRollback>

#include "core/errors.h"
#include "core/globals.h"
#include "core/program_folder.h"
#include "data/gateway.h"
#include "register/ansi_text.h"
#include "register/answers.h"
#include "register/frames.h"
#include "register/tcp_socket.h"

namespace {

const char* const indirizzo = "127.0.0.1";
const char* const comandoFine = "OFF";
constexpr int codiceNak = -1;
const char* const testoNak = "Errore di Acknowledge. Ricevuto NAK dall'interfaccia del Registratore di cassa";
// Dialogues inside dialogues: from here on what arrives waits in the socket, so that a peer that keeps
// refusing cannot use up the stack.
constexpr int erroriAnnidati = 4;
constexpr int pausaRilettura = 20;  // milliseconds

QString suffissoProgramma() {
#ifdef Q_OS_WIN
    return ".exe";
#else
    return {};
#endif
}

InterfacciaRegCassa* collegamentoDiProva = nullptr;

}  // namespace

InterfacciaRegCassa& gFrmRegCassa() {
    // Never destroyed: screens may still hear of it while the process ends.
    static InterfacciaRegCassa& unico = *new InterfacciaRegCassa;
    return collegamentoDiProva != nullptr ? *collegamentoDiProva : unico;
}

void impostaFrmRegCassa(InterfacciaRegCassa* collegamento) {
    collegamentoDiProva = collegamento;
    impostaCollegamentoRegCassa(collegamento);
}

InterfacciaRegCassa::InterfacciaRegCassa(std::unique_ptr<PresaRegCassa> presa)
    : mPresa(presa ? std::move(presa) : std::make_unique<PresaTcp>()) {
    mPresa->ascolta(notifiche());
    mRilettura.setSingleShot(true);
    mRilettura.setInterval(pausaRilettura);
    QObject::connect(&mRilettura, &QTimer::timeout, &eventi, notifiche().datiArrivati);
}

PresaRegCassa::Notifiche InterfacciaRegCassa::notifiche() {
    const auto evento = [this](const char* nome, void (InterfacciaRegCassa::*corpo)()) {
        return [this, nome, corpo] { protetto(moduloFrmRegCassa, nome, [&] { (this->*corpo)(); }); };
    };
    return {evento("wskInterfaccia_Connect", &InterfacciaRegCassa::connessa),
            evento("wskInterfaccia_Close", &InterfacciaRegCassa::chiusa),
            evento("wskInterfaccia_DataArrival", &InterfacciaRegCassa::datiArrivati),
            evento("wskInterfaccia_SendComplete", &InterfacciaRegCassa::invioCompletato)};
}

// ---- Start and end

void InterfacciaRegCassa::startMe(OperatorPort& operatore, const Avvio& avviaInterfaccia) {
    const QString percorso = cartellaProgramma() + "/prgECR" + gRegCassa + suffissoProgramma();
    if (avviaInterfaccia(percorso)) {
        connetti();
    } else {
        operatore.messaggio("Impossibile avviare l'interfaccia del Registratore di cassa: " + gRegCassa,
                            OperatorPort::Icona::Critica);
    }
    mTitolo += " " + gRegCassa;
}

void InterfacciaRegCassa::connetti() {
    mPresa->chiudi();
    if (mConnesso) chiusa();
    mPresa->connetti(indirizzo, gTCPPort);
    attiva(true);
}

void InterfacciaRegCassa::disconnect() {
    if (!mConnesso) return scarica();
    mChiusura = true;
    mPresa->invia(inAnsi(cornice(comandoFine)));
}

void InterfacciaRegCassa::scarica() {
    mConnesso = false;
    mChiusura = false;
    mPresa->chiudi();
    scontrini.collegamentoPerso();
    emit eventi.scaricato();
    emit eventi.statoCambiato();
}

// ---- Sending

void InterfacciaRegCassa::sendData(const QString& comandi) {
    const QString cornici = corniciDi(comandi);
    if (cornici.isEmpty()) return;
    if (mSospeso) return scontrini.nonConsegnato(RegistroScontrini::Esito::Sospeso);
    mBuffer += cornici;
    scontrini.consegnato(numeroCornici(cornici));
    inviaProssimo();
}

// The pump. It does not know whether a frame is still unanswered: a receipt handed over meanwhile sends one
// more at once.
void InterfacciaRegCassa::inviaProssimo() {
    if (!mConnesso) return;
    const int fine = getPosEOB(mBuffer);
    mUltimoInvio = mBuffer.left(fine);
    mBuffer.remove(0, fine);
    if (!mUltimoInvio.isEmpty()) scontrini.inviata();
    mPresa->invia(inAnsi(mUltimoInvio));
    if (!mUltimoInvio.isEmpty()) return scambio(Scambio::InAttesa);
    // A queue whose first frame has no end that can be seen is stuck.
    scambio(mBuffer.isEmpty() ? Scambio::Nessuno : Scambio::Errore);
}

void InterfacciaRegCassa::retry() {
    if (!mUltimoInvio.isEmpty()) scontrini.ripresa();
    mBuffer.prepend(mUltimoInvio);
    inviaProssimo();
}

void InterfacciaRegCassa::annullaOperazioni() {
    mBuffer.clear();
    scontrini.annullate();
    scambio(Scambio::Nessuno);
}

void InterfacciaRegCassa::attiva(bool attiva) {
    mSospeso = !attiva;
    emit eventi.statoCambiato();
}

// ---- The socket's notifications

void InterfacciaRegCassa::connessa() {
    mConnesso = true;
    // What is left of an earlier connection goes out with the next receipt, not by itself.
    mScambio = mBuffer.isEmpty() ? Scambio::Nessuno : Scambio::Errore;
    emit eventi.evtStart();
    monitor.scriviMonitor("INF: Connessione Aperta", true);
    emit eventi.statoCambiato();
}

void InterfacciaRegCassa::chiusa() {
    mConnesso = false;
    // The other side's last answer may still wait here; nothing is pumped for it any more.
    if (mRilettura.isActive()) datiArrivati();
    scontrini.collegamentoPerso();
    emit eventi.evtStop();
    monitor.scriviMonitor("INF: Connessione Chiusa", true);
    // "OFF" found nobody: no send of it completes any more.
    if (mChiusura) return scarica();
    emit eventi.statoCambiato();
}

void InterfacciaRegCassa::invioCompletato() {
    monitor.scriviMonitor("SND: " + mUltimoInvio, false);
    if (mChiusura) scarica();
}

void InterfacciaRegCassa::datiArrivati() {
    // An answer may ask the operator, and nobody is asked while the desk has its turn to write.
    if (gAdo.inTransazione() || mErroriAperti >= erroriAnnidati) return mRilettura.start();
    const QString pezzo = daAnsi(mPresa->leggi());
    if (!pezzo.isEmpty()) analizzaRicevuto(pezzo);
}

// Where the pump goes on before its answer is written down, and where after it, is the register's protocol.
void InterfacciaRegCassa::analizzaRicevuto(const QString& pezzo) {
    const QString riga = "REC: " + pezzo;
    switch (genereRisposta(pezzo)) {
        case GenereRisposta::Accettata:
            if (contieneRisposte(QStringView(pezzo).mid(1))) scontrini.rispostaNascosta();
            scontrini.accettata();
            inviaProssimo();
            monitor.scriviMonitor(riga, false);
            break;
        case GenereRisposta::Comando:
            protetto(moduloFrmRegCassa, "analizeCMDLine", [&] { analizeCMDLine(pezzo); });
            monitor.scriviMonitor(riga, false);
            break;
        case GenereRisposta::Rifiutata:
            monitor.scriviMonitor(riga, false);
            segnalaErrore(codiceNak, testoNak);
            break;
        case GenereRisposta::Ignota:
            break;
    }
}

void InterfacciaRegCassa::analizeCMDLine(const QString& pezzo) {
    if (!comandoErrore(pezzo)) return;
    const ErroreRegCassa errore = leggiErrore(pezzo);
    monitor.scriviMonitor("REC: " + pezzo, true);
    segnalaErrore(errore.codice, errore.testo);
}

void InterfacciaRegCassa::segnalaErrore(int codice, const QString& descrizione) {
    const QScopedValueRollback aperto(mErroriAperti, mErroriAperti + 1);
    scontrini.rifiutata();
    scambio(Scambio::Errore);
    emit eventi.evtError(codice, descrizione);
}

// ---- What the counter shows

void InterfacciaRegCassa::scambio(Scambio scambio) {
    const bool altroScambio = std::exchange(mScambio, scambio) != scambio;
    const qsizetype accodati = scontrini.accodati();
    const bool altraAttesa = std::exchange(mAccodati, accodati) != accodati;
    if (altroScambio || altraAttesa) emit eventi.statoCambiato();
}

StatoRegCassa InterfacciaRegCassa::stato() const {
    if (!mConnesso) return StatoRegCassa::Scollegato;
    if (mSospeso) return StatoRegCassa::Sospeso;
    if (mScambio == Scambio::Errore) return StatoRegCassa::Fermo;
    return mScambio == Scambio::InAttesa ? StatoRegCassa::AlLavoro : StatoRegCassa::Pronto;
}
