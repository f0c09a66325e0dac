#include "counter/ui/frmMain.h"

#include <QApplication>
#include <QKeyEvent>

#include "backoffice/ui/frmOpzioni.h"
#include "core/errors.h"
#include "core/numbers.h"
#include "counter/badge.h"
#include "counter/commands.h"
#include "counter/fields.h"
#include "counter/keys.h"
#include "counter/recovery_journal.h"
#include "counter/register_indicator.h"
#include "counter/ui/assembly.h"
#include "counter/ui/finestra_conti.h"
#include "counter/ui/frmCodiceVenditore.h"
#include "counter/ui/frmElencoProdottiMovimento.h"
#include "counter/ui/frmVaiVendita.h"
#include "counter/ui/grid_view.h"
#include "counter/ui/key_text.h"
#include "data/gateway.h"
#include "kit/ui/campo_edit.h"
#include "kit/ui/frmPagamento.h"
#include "kit/ui/frmRicerca.h"
#include "kit/ui/frmSelectElement.h"
#include "sale/alternatives.h"
#include "sale/grid.h"
#include "sale/kits.h"
#include "sale/row_editor.h"

namespace {

constexpr int comandoNuovaRiga = 15;

}  // namespace

template <class Corpo>
auto frmMain::evento(const char* nome, Corpo&& corpo) {
    struct Esecuzione {
        frmMain& schermo;
        explicit Esecuzione(frmMain& f) : schermo(f) { ++schermo.mInCorso; }
        ~Esecuzione() {
            if (--schermo.mInCorso > 0) return;
            if (GiornaleVendite* giornale = giornaleVendite()) giornale->annota();
            if (schermo.mDaEliminare) schermo.deleteLater();
        }
    };
    const Esecuzione inCorso(*this);
    if constexpr (std::is_void_v<std::invoke_result_t<Corpo>>) {
        protetto(moduloFrmMain, nome, corpo);
    } else {
        return protetto(moduloFrmMain, nome, corpo, std::invoke_result_t<Corpo>{});
    }
}

frmMain::frmMain(int indice, FinestraConti& finestra, OperatorPort& operatore)
    : Conto(indice), mFinestra(finestra), mOperatore(operatore) {
    setObjectName("frmMain_" + QString::number(indice));
    costruisci();
    collegaGriglia();
    collegaTimer();
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* nuovo) { fuocoCambiato(nuovo); });
}

frmMain::~frmMain() {
    // The widgets show the sale: they go before it.
    disconnect(qApp, nullptr, this, nullptr);
    delete mContenuto;
    ContoAperto& posto = gConti[static_cast<size_t>(vendita().indice)];
    if (posto.get() == this) posto.release();
}

void frmMain::mostra() {
    mFinestra.mostra(this);
}

void frmMain::elimina() {
    mDaEliminare = true;
    for (QTimer& timer : mTimer) {
        timer.stop();
    }
    mFinestra.togli(this);
    if (mInCorso == 0) deleteLater();
}

QString frmMain::codiceVenditore(const RichiestaVenditore& richiesta) {
    frmCodiceVenditore finestra(richiesta, window());
    finestra.startMe();
    return finestra.codice();
}

void frmMain::mostraOpzioni() {
    frmOpzioni(window()).startMe();
}

void frmMain::attivata() {
    if (mDaEliminare) return;
    evento("Form_Activate", [this] {
        Vendita& v = vendita();
        if (!attivaConto(*this)) return;
        fuoco(Val(v.txtCodCliente.testo()) == 0.0 ? v.txtCodCliente : v.txtCodProdotto);
    });
}

void frmMain::fuoco(Campo& campo) {
    QWidget* widget = mContenuto->findChild<QWidget*>(campo.nome());
    if (widget != nullptr && campo.abilitato() && campo.visibile()) widget->setFocus(Qt::OtherFocusReason);
}

void frmMain::ridisegno(bool acceso) {
    mGriglia->ridisegno(acceso);
}

void frmMain::mostraRiga(int riga) {
    mGriglia->mostraRiga(riga);
}

bool frmMain::selezionaElemento(Recordset& righe, const QString& colonne) {
    frmSelectElement elenco(window());
    elenco.startMe(righe, colonne, false, false);
    return elenco.elementoSelezionato();
}

QString frmMain::ricerca(const RichiestaRicerca& richiesta) {
    frmRicerca finestra(mOperatore, window());
    finestra.startMe(richiesta);
    return finestra.risultato();
}

EsitoIncasso frmMain::incassa(Currency totale) {
    return frmPagamento(window()).startMe(totale);
}

void frmMain::scegliVendita(VaiVendita& scelta) {
    frmVaiVendita(window()).startMe(scelta);
}

QString frmMain::scegliRiga(ElencoMovimento& movimento) {
    return frmElencoProdottiMovimento(movimento, window()).startMe();
}

void frmMain::venditaSalvata() {
    mFinestra.assorda(FinestraConti::Sordita::Comandi);
}

// ---- Buttons and fields

EventiSchermo frmMain::eventi() {
    return {
        .tasto =
            [this](Campo& campo, QChar tasto) {
                return evento("KeyPress", [&] { return tastoInCampo(*this, campo, tasto); });
            },
        .comando =
            [this](int i) {
                if (!mFinestra.sorda()) evento("cmdComando_Click", [&] { cmdComando_Click(*this, i); });
            },
        .conto = [this](int i) { evento("cmdConto_Click", [&] { cmdConto_Click(*this, i); }); },
        .operatore = [this] { evento("cmdOperatore_Click", [&] { premiOperatore(); }); },
        .aggiungiRiga = [this] { evento("cmdAddRow_Click", [&] { premiComando(comandoNuovaRiga); }); },
        .regCassa = [this] { evento("lblRegCassa_Click", [] { lblRegCassa_Click(); }); },
        .spunta = [this](Campo& campo, bool premuta) { spuntaPremuta(campo, premuta); },
        .alternativo =
            [this](int i) {
                evento("lswAlternativi_DblClick", [&] { lswAlternativi_DblClick(vendita(), i); });
            },
        .pagamento =
            [this] { evento("lblDescPagamento_DblClick", [&] { lblDescPagamento_DblClick(*this); }); },
    };
}

void frmMain::mFrmRegCassa_evtError(int codice, const QString& descrizione) {
    evento("mFrmRegCassa_evtError", [&] { Conto::mFrmRegCassa_evtError(codice, descrizione); });
}

// ---- Grid

void frmMain::collegaGriglia() {
    connect(mGriglia, &GrigliaVendita::rigaCambiata, this,
            [this](int riga) { evento("flxVB_RowColChange", [&] { flxVB_RowColChange(vendita(), riga); }); });
    connect(mGriglia, &GrigliaVendita::rigaPremuta, this,
            [this](int riga) { evento("flxVB_Click", [&] { flxVB_Click(vendita(), riga); }); });
    connect(mGriglia, &GrigliaVendita::iconaPremuta, this,
            [this](int riga) { evento("flxVB_Click", [&] { piegaFigli(vendita(), riga); }); });
}

// ---- Timers

void frmMain::collegaTimer() {
    for (size_t i = 0; i < numeroTimer; ++i) {
        connect(&mTimer[i], &QTimer::timeout, this, [this, i] { scaduto(static_cast<Timer>(i)); });
    }
    for (const Timer unico : {Timer::Griglia, Timer::Raffica, Timer::Badge}) {
        mTimer[static_cast<size_t>(unico)].setSingleShot(true);
    }
}

void frmMain::avviaTimer(Timer timer, int millisecondi) {
    mTimer[static_cast<size_t>(timer)].start(millisecondi);
}

void frmMain::fermaTimer(Timer timer) {
    mTimer[static_cast<size_t>(timer)].stop();
}

void frmMain::scaduto(Timer timer) {
    if (mDaEliminare) return;
    if (gAdo.inTransazione()) {
        // A query of ours would run inside that transaction: try again at the next interval.
        mTimer[static_cast<size_t>(timer)].start();
        return;
    }
    Vendita& v = vendita();
    switch (timer) {
        case Timer::Griglia:
            evento("TimerGrid_Timer", [&] { TimerGrid_Timer(v); });
            break;
        case Timer::Tasti:
            evento("TimerKeys_Timer", [&] { timerTasti(*this); });
            break;
        case Timer::Fido:
            v.pctFido.visibile(!v.pctFido.visibile());
            break;
        case Timer::Raffica:
            evento("TimerRaffica_Timer", [&] { TimerRaffica_Timer(*this); });
            break;
        case Timer::Badge:
            evento("TimerBadge_Timer", [&] { TimerBadge_Timer(*this); });
            break;
        case Timer::Segnala:
            v.pctSegnala.visibile(!v.pctSegnala.visibile());
            break;
    }
}

// ---- Keys: the screen sees them before its fields do

bool frmMain::eventFilter(QObject* oggetto, QEvent* evento) {
    switch (evento->type()) {
        case QEvent::KeyPress:
            return tastoGiu(*static_cast<QKeyEvent*>(evento));
        case QEvent::KeyRelease:
            return tastoSu(*static_cast<QKeyEvent*>(evento));
        default:
            return QWidget::eventFilter(oggetto, evento);
    }
}

bool frmMain::tastoGiu(const QKeyEvent& tasto) {
    if (mFinestra.sorda() && tasto.key() >= Qt::Key_F1 && tasto.key() <= Qt::Key_F12) return true;
    const auto modificatori = static_cast<int>(tasto.modifiers());
    if (!tasto.isAutoRepeat()) mTastiPremuti.insert(tasto.key(), modificatori);
    return evento("Form_KeyDown", [&] {
        if (Form_KeyDown(*this, tasto.key(), modificatori)) return true;
        const auto carattere = carattereDelTasto(tasto);
        return carattere && Form_KeyPress(*this, *carattere, istanteDelTasto(tasto));
    });
}

bool frmMain::tastoSu(const QKeyEvent& tasto) {
    if (tasto.isAutoRepeat()) return true;
    // Pressed in another window, as the Enter that closed a box: not meant for this one.
    const auto premuto = mTastiPremuti.constFind(tasto.key());
    if (premuto == mTastiPremuti.constEnd()) return false;
    const int modificatori = *premuto;
    mTastiPremuti.erase(premuto);
    return evento("Form_KeyUp", [&] { return Form_KeyUp(*this, tasto.key(), modificatori); });
}

void frmMain::changeEvent(QEvent* evento) {
    QWidget::changeEvent(evento);
    // A key that is held while another window comes up is released there.
    if (evento->type() != QEvent::ActivationChange || isActiveWindow()) return;
    mTastiPremuti.clear();
    lasciaTasti(*this);
}

// ---- Focus

void frmMain::fuocoCambiato(QWidget* nuovo) {
    // Gone to a box, a menu, another window or another account: the field is still being typed in.
    if (mDaEliminare || nuovo == nullptr || !mContenuto->isAncestorOf(nuovo)) return;
    vendita().grigliaConFocus = nuovo == mGriglia;
    auto* casella = qobject_cast<CampoEdit*>(nuovo);
    Campo* preso = casella == nullptr ? nullptr : &casella->campo();
    evento("LostFocus", [&] { fuocoPassa(*this, preso); });
}

void frmMain::spuntaPremuta(Campo& campo, bool premuta) {
    evento("Click", [&] { spuntaCambiata(*this, campo, premuta ? 1 : 0); });
}
