#include "exact_editor.h"

namespace {

const Binario uno{1, 0};

QString trova(const Calcolo& calcolo, const QString& campo, bool tag = false) {
    for (const Atteso& atteso : calcolo.attesi) {
        if (atteso.campo == campo && atteso.tag == tag) return atteso.valore;
    }
    return {};
}

}  // namespace

EditorEsatto::EditorEsatto(const RigaEditor& riga) : r(riga), mListino(mostrato(riga.listino)) {
    avanti();
    conferma();
}

void EditorEsatto::avanti() {
    r.listino = letto(mListino);
    const Calcolo calcolo = calcoloInAvanti(r);
    mNetto = trova(calcolo, "txtPrezzoNetto");
    mRiferimento = trova(calcolo, "txtPrezzoListino", true);
    mFinito = trova(calcolo, "txtPrezzoFinito");
    mRiga = trova(calcolo, "TxtPrezzoRiga");
    mListinoAccettato = mListino;
}

// More than a cent away from the reference, the net price was set by hand and is the list price now.
void EditorEsatto::conferma() {
    const Lungo distanza = differenza(valuta(letto(mNetto)), valuta(letto(mRiferimento))).cifre;
    if (-100 <= distanza && distanza <= 100) return;
    for (Decimale& sconto : r.sconti) {
        sconto = {0, 2};
    }
    mListino = mostrato(arrotondato(letto(mNetto), r.decimaliDopo));
    mListinoAccettato = mListino;
}

void EditorEsatto::lasciaListino() {
    if (mListino == mListinoAccettato) return;
    avanti();
    conferma();
}

void EditorEsatto::lasciaPrezzoFinito(Decimale scritto) {
    const Decimale n = valuta(doppio(valuta(scritto)) / (uno + iva()));
    mFinito = mostrato(scritto);
    mNetto = mostrato(arrotondato(n, r.decimaliDopo));
    mRiga = mostrato(arrotondato(doppio(valuta(scritto)) * singolo(r.qta), 2));
    conferma();
}

void EditorEsatto::lasciaPrezzoNetto(Decimale scritto) {
    const Decimale conIva = valuta(doppio(valuta(scritto)) * (uno + iva()));
    mNetto = mostrato(scritto);
    mRiga = mostrato(arrotondato(doppio(conIva) * singolo(r.qta), 2));
    conferma();
}

void EditorEsatto::lasciaPrezzoRiga(Decimale scritto) {
    const Decimale n = valuta(doppio(valuta(scritto)) / (uno + iva()) / singolo(r.qta));
    mRiga = mostrato(scritto);
    mNetto = mostrato(arrotondato(n, r.decimaliDopo));
    for (Decimale& sconto : r.sconti) {
        sconto = {0, 2};
    }
    mListino = mostrato(arrotondato(letto(mNetto), r.decimaliDopo));
    mRiferimento = mNetto;
    lasciaListino();
    conferma();
}

void EditorEsatto::lasciaListinoLordo(Decimale scritto) {
    const Binario conIva = uno + doppio(valuta(r.iva)) / Binario{100, 0};
    mListino = mostrato(arrotondato(doppio(valuta(scritto)) / conIva, 6));
    lasciaListino();
}

QString EditorEsatto::importo() const {
    const auto senza = [this](int i) { return uno - singolo(r.sconti[i]) / Binario{100, 0}; };
    const Binario sconti = senza(1) * senza(0) * senza(2) * singolo(r.qta);
    return mostrato(arrotondato(doppio(valuta(letto(mListino))) * (uno + iva()) * sconti, 2));
}
