#include "sale/product_entry.h"

#include <QStringList>

#include "core/globals.h"
#include "core/operator_port.h"
#include "sale/grid.h"
#include "sale/product_row.h"
#include "sale/row_editor.h"
#include "sale/sale_document.h"
#include "sale/totals.h"
#include "sale/vendita.h"

namespace {

bool cercaProdottoDigitato(Vendita& v, bool& presente) {
    const RidisegnoFermo fermo(v.schermo);
    const Clessidra clessidra(v.schermo.operatore());
    int riga = 0;
    const bool trovato = getProdotto(v, v.txtCodProdotto.chiave(), v.txtCodProdotto.testo(), riga,
                                     v.chkCodiceProdotto.valore() == 1, presente);
    v.mDaLaser = false;
    if (!trovato) return false;
    calcolaTotali(v, false);
    selFlexRow(v, riga);
    return true;
}

void avvisaPresente(Vendita& v) {
    if (gPrdEsistente == 1) {
        v.schermo.operatore().messaggio("Prodotto già inserito!", OperatorPort::Icona::Nessuna, "Avviso");
    } else {
        v.schermo.operatore().beep();
    }
}

void entraCodice(Vendita& v) {
    if (!controlloDataMovimento(v)) return;
    v.caselle.codProdotto.cancelTabStep(true);
    bool presente = false;
    const bool trovato = cercaProdottoDigitato(v, presente);
    if (presente) avvisaPresente(v);
    if (!trovato) {
        v.schermo.fuoco(v.txtCodProdotto);
    } else if (gNuovaRiga != 0) {
        v.schermo.premiComando(15);
    } else {
        v.schermo.fuoco(rigaLibera(v.txtCodProdotto.testo()) ? v.txtDescProdotto : v.txtQta);
    }
    v.lblCodProdotto.testo(v.txtCodProdotto.testo());
}

// The rest of a customer card is typed behind its mark.
void iniziaTessera(Vendita& v) {
    v.schermo.fuoco(v.txtCodCliente);
    v.txtCodCliente.testo(gClienteChar);
    v.caselle.codCliente.setLastPositionChar();
}

// A scanned card or badge begins with its own mark, right behind the scanner's prefix.
bool tesseraOBadge(Vendita& v, QChar tasto) {
    if (!v.mDaLaser || !v.txtCodProdotto.testo().isEmpty()) return false;
    if (!gClienteChar.isEmpty() && tasto.toUpper() == gClienteChar[0].toUpper()) {
        v.mDaLaser = false;
        const bool altroConto = v.txtCodCliente.bloccato() || v.indice == 0;
        if (Vendita* conto = altroConto ? v.schermo.apriNuovoConto({}) : &v) iniziaTessera(*conto);
        return true;
    }
    if (!gVenditoreChar.isEmpty() && tasto == gVenditoreChar[0]) {
        v.mDaLaser = false;
        v.schermo.leggiBadge();
        return true;
    }
    return false;
}

}  // namespace

std::optional<QChar> txtCodProdotto_KeyPress(Vendita& v, QChar tasto) {
    if (tesseraOBadge(v, tasto)) return std::nullopt;
    if (tasto != u'\r') return tasto;
    // A scan enters its code without an Enter in the box: what it would have used up is not of this one.
    v.caselle.codProdotto.cancelTabStep(false);
    const QString& testo = v.txtCodProdotto.testo();
    if (testo == v.lblCodProdotto.testo()) return tasto;
    if (!testo.isEmpty() || v.txtCodProdotto.chiave() > 0) entraCodice(v);
    return tasto;
}

void iniziaScansione(Vendita& v) {
    v.mDaLaser = true;
    pulisciCampiRiga(v, false);
    v.schermo.fuoco(v.txtCodProdotto);
}

void setArticoloGrid(Vendita& v, const QString& elenco) {
    const QStringList parti = elenco.split('|');
    bool presente = false;
    {
        const RidisegnoFermo fermo(v.schermo);
        const Clessidra clessidra(v.schermo.operatore());
        int ultima = 0;
        for (qsizetype i = 0; i + 1 < parti.size(); ++i) {
            pulisciCampiRiga(v, false);
            v.txtCodProdotto.tag(parti[i]);
            int riga = 0;
            bool suo = false;
            if (getProdotto(v, v.txtCodProdotto.chiave(), {}, riga, false, suo)) ultima = riga;
            presente = presente || suo;
        }
        if (parti.size() < 2) pulisciCampiRiga(v, false);
        if (ultima > 0) {
            calcolaTotali(v, false);
            selFlexRow(v, ultima);
        }
    }
    if (presente) avvisaPresente(v);
    v.schermo.fuoco(v.txtCodProdotto);
}
