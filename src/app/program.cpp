#include "app/program.h"

#include <optional>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QScreen>
#include <QSessionManager>
#include <QSocketNotifier>

#include "app/single_instance.h"
#include "app/start_up.h"
#include "backoffice/ui/frmOpzioni.h"
#include "core/errors.h"
#include "counter/accounts.h"
#include "counter/bring_back.h"
#include "counter/recovery_journal.h"
#include "counter/ui/finestra_conti.h"
#include "counter/ui/frmMain.h"
#include "counter/ui/style.h"
#include "data/settings_store.h"
#include "kit/ui/frmInfo.h"
#include "kit/ui/message_port.h"
#include "register/start.h"
#include "register/ui/register_windows.h"

namespace {

constexpr int lineeSchermoFine = 2000;
constexpr char variabileScala[] = "QT_SCALE_FACTOR";

// A signal may come at any instruction: its handler only writes to a socket, which the event loop hears.
int presaSegnali[2] = {-1, -1};

void segnaleTermine(int) {
    const char byte = 1;
    [[maybe_unused]] const ssize_t scritto = ::write(presaSegnali[0], &byte, sizeof byte);
}

// Signals that ask to close, almost as the close box does. Several that come together are one request.
std::unique_ptr<QSocketNotifier> ascoltaSegnali() {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, presaSegnali) != 0)
        return nullptr;
    for (const int segnale : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction azione {};
        azione.sa_handler = segnaleTermine;
        azione.sa_flags = SA_RESTART;
        ::sigaction(segnale, &azione, nullptr);
    }
    auto ascolto = std::make_unique<QSocketNotifier>(presaSegnali[1], QSocketNotifier::Read);
    QObject::connect(ascolto.get(), &QSocketNotifier::activated, ascolto.get(), [] {
        char byte[16];
        while (::read(presaSegnali[1], byte, sizeof byte) > 0) {
        }
        if (chiudiTuttiIConti(Chiusura::FineSessione)) chiudiApplicazione();
    });
    return ascolto;
}

// Logging out asks as the close box does, and waits for the answer.
void ascoltaFineSessione() {
    QObject::connect(
        qGuiApp, &QGuiApplication::commitDataRequest, qGuiApp,
        [](QSessionManager& sessione) {
            if (!sessione.allowsInteraction()) return;
            if (!chiudiTuttiIConti()) sessione.cancel();
            sessione.release();
        },
        Qt::DirectConnection);
}

// A 4K screen to which the desktop gives no scale of its own: everything would be half as large as meant.
bool schermoFine() {
    const QScreen* schermo = QGuiApplication::primaryScreen();
    return schermo != nullptr && schermo->devicePixelRatio() == 1.0 &&
           schermo->geometry().height() >= lineeSchermoFine;
}

// Qt reads its scale only when an application begins.
void apriApplicazione(std::optional<QApplication>& programma, int& argc, char** argv) {
    programma.emplace(argc, argv);
    if (!schermoFine() || qEnvironmentVariableIsSet(variabileScala)) return;
    programma.reset();
    qputenv(variabileScala, "2");
    programma.emplace(argc, argv);
    qunsetenv(variabileScala);  // not for the programs that are started from here
}

}  // namespace

int eseguiProgramma(int argc, char* argv[]) {
    std::optional<QApplication> applicazione;
    apriApplicazione(applicazione, argc, argv);
    QApplication& programma = *applicazione;
    QApplication::setApplicationName("Bottegon");
    QApplication::setQuitOnLastWindowClosed(false);
    applicaStile(programma, aspettoImpostato());

    FinestraConti finestra(titoloFinestra());
    QtOperatorPort operatore(&finestra);
    frmInfo info;
    SingleInstance istanza(SettingsOnDisk::cartellaUtente());
    impostaFabbricaConti([&](int indice) { return new frmMain(indice, finestra, operatore); });
    impostaChiudiApplicazione(&chiudiApplicazione);
    FinestreRegCassa finestreRegCassa(&finestra);
    impostaDialoghiRegCassa(&finestreRegCassa);
    const auto segnali = ascoltaSegnali();
    ascoltaFineSessione();

    const PortiAvvio porti{
        .operatore = operatore,
        .primaIstanza = [&] { return istanza.prima([&] { finestra.richiama(); }); },
        .mostraInfo = [&](const QString& testo) { info.startMe(testo); },
        .nascondiInfo = [&] { info.hide(); },
        .apriOpzioni = [] { frmOpzioni().startMe(); },
        .apriPrimoConto = [] { getConto(0, false); },
        .setRegCassa = [&] { setRegCassa(operatore); },
    };
    if (!Main(porti)) chiudiApplicazione();
    GiornaleVendite giornale(GiornaleVendite::percorsoUtente());
    riprendiVendite(giornale, operatore);
    return QApplication::exec();
}
