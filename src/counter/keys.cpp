#include "counter/keys.h"

#include <exception>

#include <QScopedValueRollback>
#include <Qt>

#include "core/globals.h"
#include "counter/accounts.h"
#include "counter/badge.h"
#include "counter/commands.h"
#include "counter/fields.h"
#include "counter/next_sale.h"
#include "sale/grid.h"
#include "sale/product_entry.h"
#include "sale/returns.h"

namespace {

constexpr int intervalloTasti = 100;  // milliseconds between two steps of a held cursor key

// The command that a function key presses; -1 for none.
int comandoDelTasto(int tasto) {
    switch (tasto) {
        case Qt::Key_F2:
            return 0;
        case Qt::Key_F5:
            return 9;
        case Qt::Key_F6:
            return 15;
        case Qt::Key_F8:
            return 5;
        case Qt::Key_F9:
            return 6;
        case Qt::Key_F10:
            return 7;
        case Qt::Key_F11:
            return 12;
        case Qt::Key_F12:
            return 8;
        default:
            return -1;
    }
}

int comandoConShift(int tasto) {
    switch (tasto) {
        case Qt::Key_Left:
            return 1;
        case Qt::Key_Right:
            return 2;
        case Qt::Key_F1:
            return 10;
        case Qt::Key_F7:
            return 4;
        case Qt::Key_F8:
            return 14;
        case Qt::Key_F11:
            return 16;
        default:
            return -1;
    }
}

int campoConShift(int tasto) {
    switch (tasto) {
        case Qt::Key_F2:
            return contoListino;
        case Qt::Key_F9:
            return contoSconti;
        default:
            return -1;
    }
}

bool premi(Conto& conto, int comando) {
    if (comando < 0) return false;
    conto.premiComando(comando);
    return true;
}

bool premiCampo(Conto& conto, int campo) {
    if (campo < 0) return false;
    cmdConto_Click(conto, campo);
    return true;
}

// The search that fills that field.
void cercaPerIlCampo(Conto& conto, const Campo* campo) {
    const Vendita& v = conto.vendita();
    if (campo == &v.txtCodCliente) cmdConto_Click(conto, contoCliente);
    if (campo == &v.txtCodProdotto) cmdConto_Click(conto, contoProdotto);
    if (campo == &v.txtIVA) cmdConto_Click(conto, contoIva);
}

bool apriOpzioni(Conto& conto) {
    const QScopedValueRollback aperta(gModaleAperta, true);
    conto.mostraOpzioni();
    return true;
}

// F3 and F7 belong to the field that they are pressed in; the others of the broker are commands.
bool tastoDelCampo(Conto& conto, int tasto, int modificatori) {
    if (tasto != Qt::Key_F3 && tasto != Qt::Key_F7) return false;
    conto.tastiFunzione.setFunctionKey(tasto, modificatori, conto.campoAttivo());
    return true;
}

bool fermaPassi(Conto& conto) {
    // A tap shorter than the timer still moves one row.
    if (!conto.passoFatto) TimerKeys_Timer(conto.vendita());
    lasciaTasti(conto);
    return true;
}

bool tastoSu(Conto& conto, int tasto, int modificatori) {
    Vendita& v = conto.vendita();
    if (tasto == Qt::Key_Shift) v.tastoShift = false;
    if (tasto == Qt::Key_Control) v.tastoCtrl = false;
    // A cursor key that comes up ends its steps whatever else is held.
    if (tasto == Qt::Key_Up || tasto == Qt::Key_Down) return fermaPassi(conto);
    const int stato = modificatori & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    if (stato == Qt::ShiftModifier && tasto == Qt::Key_F6) {
        setReso(v, 3);
        return true;
    }
    if (stato == Qt::ShiftModifier) {
        // A hand may have let go of Shift first.
        const QScopedValueRollback shift(v.tastoShift, true);
        return premi(conto, comandoConShift(tasto)) || premiCampo(conto, campoConShift(tasto));
    }
    if (stato == Qt::ControlModifier && tasto == Qt::Key_F11) return apriOpzioni(conto);
    if (stato != Qt::NoModifier) return false;
    if (tasto == Qt::Key_F4) {
        spuntaCambiata(conto, v.chkCodiceProdotto, 1 - v.chkCodiceProdotto.valore());
        return true;
    }
    return tastoDelCampo(conto, tasto, stato) || premi(conto, comandoDelTasto(tasto));
}

}  // namespace

void timerTasti(Conto& conto) {
    conto.passoFatto = true;
    TimerKeys_Timer(conto.vendita());
}

void lasciaTasti(Conto& conto) {
    conto.fermaTimer(SchermoVendita::Timer::Tasti);
    conto.passoFatto = true;
    conto.vendita().direzioneTasti = 0;
}

bool Form_KeyDown(Conto& conto, int tasto, int modificatori) {
    Vendita& v = conto.vendita();
    v.tastoShift = (modificatori & Qt::ShiftModifier) != 0 || tasto == Qt::Key_Shift;
    v.tastoCtrl = (modificatori & Qt::ControlModifier) != 0 || tasto == Qt::Key_Control;
    const bool su = tasto == Qt::Key_Up;
    if (!su && tasto != Qt::Key_Down) return false;
    const int direzione = su ? 1 : 2;
    if (v.direzioneTasti != direzione) {
        v.direzioneTasti = direzione;
        conto.passoFatto = false;
        conto.avviaTimer(SchermoVendita::Timer::Tasti, intervalloTasti);
    }
    return true;
}

bool Form_KeyPress(Conto& conto, QChar carattere, qint64 istante) {
    const bool prefisso = !gLaserChar.isEmpty() && carattere == gLaserChar[0];
    if (conto.badge && !prefisso) {
        tastoDiBadge(conto, carattere);
        return true;
    }
    if (!prefisso) return tastoDiRaffica(conto, carattere, istante);
    badgeInterrotto(conto);
    TimerRaffica_Timer(conto);
    terminaCampo(conto);
    primaDelProdotto(conto);
    iniziaScansione(conto.vendita());
    return true;
}

void ascoltaTastiFunzione(Conto& conto) {
    conto.tastiFunzione.evtFunctionKey([&conto](int tasto, int, const Campo* campo) {
        if (tasto == Qt::Key_F3) cercaPerIlCampo(conto, campo);
        // A price is corrected all day long, and its button has no letter of its own.
        if (tasto == Qt::Key_F7) cmdConto_Click(conto, contoPrezzo);
    });
}

bool Form_KeyUp(Conto& conto, int tasto, int modificatori) {
    try {
        return tastoSu(conto, tasto, modificatori);
    } catch (const std::exception&) {
        // A key that fails is as if it had not been pressed. The commands that it presses report their own.
        return true;
    }
}
