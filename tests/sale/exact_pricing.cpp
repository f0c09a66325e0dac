#include "exact_pricing.h"

namespace {

const Binario uno{1, 0};
const Binario cento{100, 0};

class Conto {
  public:
    explicit Conto(const RigaEditor& riga) : r(riga), q(singolo(riga.qta)) {
        for (int i = 0; i < 3; ++i) {
            s[i] = singolo(r.sconti[i]);
        }
    }

    Calcolo esegui(void (Conto::*verso)()) {
        try {
            (this->*verso)();
        } catch (const Traboccato&) {
            c.trabocca = true;
        }
        return c;
    }

    void avanti() {
        const Decimale listino = valuta(r.listino);
        const Binario iva = singolo(r.iva);
        const Decimale netto = prezzoNetto(listino, iva);
        tag("txtPrezzoNetto", piano(netto));
        const QString nettoMostrato = mostrato(arrotondato(netto, r.decimaliDopo));
        testo("txtPrezzoNetto", nettoMostrato);
        testo("lblPrezzoNetto", nettoMostrato);
        tag("txtPrezzoListino", nettoMostrato);
        const Binario conIva = uno + iva / cento;
        const Binario finito = doppio(listino) * conIva * fattore(0) * fattore(1) * fattore(2);
        testoETag("txtPrezzoFinito", arrotondato(finito, 2));
        testoETag("TxtPrezzoRiga", arrotondato(doppio(netto) * q * conIva, 2));
    }

    void indietro() {
        const Decimale unitario = valuta(doppio(valuta(r.prezzoRiga)) / q);
        const QString lordo = mostrato(arrotondato(unitario, 2));
        testo("txtPrezzoListinoLordo", lordo);
        testo("lblPrezzoListinoLordo", lordo);
        const Binario conIva = uno + doppio(valuta(r.iva)) / cento;
        const Decimale netto = arrotondato(doppio(unitario) / conIva, r.decimaliDopo);
        testoETag("txtPrezzoNetto", netto);
        testo("lblPrezzoNetto", mostrato(netto));
        Decimale x = valuta(netto);
        for (int i = 2; i >= 0; --i) {
            x = valuta(doppio(x) / ((cento - s[i]) / cento));
        }
        const Decimale listino = arrotondato(x, r.decimaliDopo);
        testoETag("txtPrezzoListino", listino);
        testo("lblPrezzoListino", mostrato(listino));
    }

  private:
    Binario fattore(int i) const { return uno - s[i] / cento; }

    // The net unit price, with the hidden amounts of the line.
    Decimale prezzoNetto(Decimale listino, Binario iva) {
        const Binario scontato = doppio(listino) * fattore(0) * fattore(1) * fattore(2);
        const Decimale sconto = arrotondato(differenza(listino, valuta(scontato)), 6);
        testo("lblScNetto", mostrato(sconto));
        const Decimale netto = differenza(listino, valuta(singolo(sconto)));
        const Decimale totaleNetto = arrotondato(doppio(netto) * q, 6);
        testo("lblTotPrezzoNetto", mostrato(totaleNetto));
        const Decimale ivaPezzo = arrotondato(doppio(netto) * iva / cento, 6);
        testo("lblIvaProdotto", mostrato(ivaPezzo));
        const Decimale totaleIva = arrotondato(singolo(ivaPezzo) * q, 6);
        testo("lblTotIVA", mostrato(totaleIva));
        testo("lblTotRiga", mostrato(arrotondato(somma(valuta(totaleNetto), valuta(totaleIva)), 6)));
        return netto;
    }

    void testo(const char* campo, const QString& valore) { c.attesi.push_back({campo, false, valore}); }
    void tag(const char* campo, const QString& valore) { c.attesi.push_back({campo, true, valore}); }
    void testoETag(const char* campo, Decimale valore) {
        testo(campo, mostrato(valore));
        tag(campo, mostrato(valore));
    }

    const RigaEditor& r;
    Binario q;
    Binario s[3];
    Calcolo c;
};

}  // namespace

Calcolo calcoloInAvanti(const RigaEditor& riga) {
    return Conto(riga).esegui(&Conto::avanti);
}

Calcolo calcoloAllIndietro(const RigaEditor& riga) {
    return Conto(riga).esegui(&Conto::indietro);
}
