#include "exact_grid.h"

namespace {

const Binario uno{1, 0};
const Binario cento{100, 0};

Binario senza(Binario percentuale) {
    return uno - percentuale / cento;
}

QString piano(Binario valore, Significative cifre = DiDoppio) {
    return piano(significativo(valore, cifre));
}

}  // namespace

Binario scontoSommato(Binario vecchio, Binario aggiunto) {
    const Binario resta = cento - vecchio;
    return singolo(cento - (resta - resta * aggiunto / cento));
}

RigaScontata dopoPagamento(const RigaGriglia& riga, Decimale sconto) {
    const Binario vecchio =
        singolo(singolo(riga.sconti[0]) + singolo(riga.sconti[1]) + singolo(riga.sconti[2]));
    const Decimale nuovo = arrotondato(scontoSommato(vecchio, singolo(sconto)), 2, DiSingolo);
    const Decimale listino = valuta(riga.listino);
    const Binario q = singolo(riga.qta);
    const Decimale scNetto =
        arrotondato(differenza(listino, valuta(doppio(listino) * senza(singolo(nuovo)))), 2);
    const Decimale esteso = differenza(listino, valuta(scNetto));
    const Decimale netto = arrotondato(esteso, 2);
    const Decimale totNetto = significativo(doppio(valuta(netto)) * q);
    const Decimale ivaProd = valuta(doppio(valuta(netto)) * singolo(riga.iva) / cento);
    const Decimale totIva = significativo(singolo(ivaProd) * q);
    const Decimale importo = arrotondato(somma(valuta(totNetto), valuta(singolo(totIva))), 2);
    return {.scontoTesto = mostrato(nuovo) + "+0+0",
            .sconto = nuovo,
            .prezzoNetto = mostrato(netto),
            .prezzoNettoEsteso = piano(esteso),
            .importo = mostrato(importo),
            .scNetto = mostrato(scNetto),
            .totPrNetto = piano(totNetto),
            .ivaProd = piano(ivaProd),
            .totIvaProd = piano(totIva)};
}

RigaScontata conImmediato(const RigaGriglia& riga, Decimale sconto, int decimaliDopo) {
    const Binario s = singolo(sconto);
    const Decimale listino = valuta(riga.listino);
    const Decimale netto = valuta(doppio(listino) * senza(s));
    const Binario q = singolo(riga.qta);
    const Binario v = singolo(doppio(netto) * singolo(riga.iva) / cento);
    const Binario importo = doppio(listino) * (uno + doppio(valuta(riga.iva)) / cento) * q * senza(s);
    return {.scontoTesto = piano(sconto) + "+0+0",
            .sconto = sconto,
            .prezzoNetto = mostrato(arrotondato(netto, decimaliDopo)),
            .prezzoNettoEsteso = piano(netto),
            .importo = mostrato(arrotondato(importo, 2)),
            .scNetto = piano(sconto),
            .totPrNetto = piano(doppio(netto) * q),
            .ivaProd = piano(v, DiSingolo),
            .totIvaProd = piano(q * v)};
}

void Totali::aggiungi(const RigaGriglia& riga) {
    if (!riga.viva) return;
    const Binario q = singolo(riga.qta);
    const Binario listino = doppio(valuta(riga.listino));
    const Binario s1 = senza(singolo(riga.sconti[0]));
    const Binario s2 = senza(singolo(riga.sconti[1]));
    const Binario s3 = senza(singolo(riga.sconti[2]));
    netto = somma(netto, valuta(listino * q * (s2 * s1) * s3));
    importo = somma(importo, valuta(riga.importo));
    const Binario conIva = doppio(valuta(riga.iva)) / cento + uno;
    lordo = somma(lordo, valuta(doppio(valuta(riga.qta)) * (conIva * listino)));
    if (q.mantissa > 0) qta = singolo(qta + q);
    ++righe;
}
