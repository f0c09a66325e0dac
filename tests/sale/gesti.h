#pragma once

#include <gtest/gtest.h>

#include "core/globals.h"
#include "data/server_driver.h"
#include "doubles/negozio.h"

// What an operator does again and again at the counter.

// A product by its typed code, then a new row.
inline void vendi(ContoDiProva& c, const QString& codice) {
    c.digita(codice);
    c.invio();
    c.tasto(Qt::Key_F6);
}

// A text typed into a field over what it held.
inline void scrivi(ContoDiProva& c, Campo& campo, const QString& testo) {
    c.clic(campo);
    c.digita(testo);
}

// The same, and the field is left for one that has no rule of its own on an unchanged text.
inline void scriviELascia(ContoDiProva& c, Campo& campo, const QString& testo) {
    scrivi(c, campo, testo);
    c.clic(c.vendita().txtDescProdotto);
}

// A text that comes from the clipboard, which no filter of the keys has seen; the field is left.
inline void incolla(ContoDiProva& c, Campo& campo, const QString& testo) {
    c.clic(campo);
    campo.testo(testo);
    c.clic(c.vendita().txtDescProdotto);
}

// The product in the editor becomes a return of that many pieces, and the row is ended.
inline void rendi(ContoDiProva& c, const QString& quantita) {
    c.vendita().chkReso.valore(1);
    scrivi(c, c.vendita().txtQta, quantita);
    c.tasto(Qt::Key_F6);
}

inline const QString& cella(const Vendita& v, int riga, Colonna colonna) {
    return v.flxVB.cella(riga, colonna);
}

// The codes of the live rows from the top.
inline QStringList codiciVivi(const Vendita& v) {
    QStringList codici;
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        if (v.flxVB.viva(r)) codici << cella(v, r, Colonna::Codice);
    }
    return codici;
}

// The statements that reached the server while it lived.
class ContaIstruzioni {
  public:
    ContaIstruzioni() {
        sondaIstruzioni() = [this](const QString& sql) {
            istruzioni << sql;
            return std::optional<ErroreServer>();
        };
    }
    ~ContaIstruzioni() { sondaIstruzioni() = {}; }
    ContaIstruzioni(const ContaIstruzioni&) = delete;
    ContaIstruzioni& operator=(const ContaIstruzioni&) = delete;

    QStringList istruzioni;
};

// While it lives, the server refuses the statements that hold that text.
class IstruzioneRotta {
  public:
    explicit IstruzioneRotta(const QString& parte) {
        sondaIstruzioni() = [parte](const QString& sql) -> std::optional<ErroreServer> {
            if (!sql.contains(parte)) return std::nullopt;
            return ErroreServer{ErroreServer::Classe::Altro, 4711, "guasto di prova", "prova"};
        };
    }
    ~IstruzioneRotta() { sondaIstruzioni() = {}; }
    IstruzioneRotta(const IstruzioneRotta&) = delete;
    IstruzioneRotta& operator=(const IstruzioneRotta&) = delete;
};
