#include "postings/stock.h"

#include <optional>

#include "core/errors.h"
#include "core/globals.h"
#include "data/gateway.h"
#include "postings/average_price.h"
#include "postings/stock_row.h"
#include "sale/product_info.h"

namespace {

const char* const riuscito = "OK";
const char* const fallito = "#err";

QString conInformazioni(const QString& testo, const MovimentoMerce& m) {
    return testo + m.informazioni;
}

QString taglioIgnoto(const MovimentoMerce& m) {
    return conInformazioni(
        "Impossibile determinare il taglio.\nManca il riferimento al prezzo di costo del "
        "prodotto.\n\nInformazioni: \n - ",
        m);
}

QString azioneIgnota(const MovimentoMerce& m) {
    return conInformazioni("Azione (Inserimento/Modifica/Cancellazione) non impostata!\n\nInformazioni:\n - ",
                           m);
}

// By how much the row's quantity has grown since it was last saved; nothing for an unknown action.
std::optional<float> differenza(const MovimentoMerce& m) {
    switch (m.azione) {
        case 1:
            return m.quantita;
        case 2:
            return m.quantita - m.quantitaVecchia;
        case 3:
            return -m.quantitaVecchia;
        default:
            return std::nullopt;
    }
}

// The product's own figure. A transfer leaves it alone: `giacenza` is nothing then.
bool muoviGiacenza(const MovimentoMerce& m, std::optional<float> giacenza, float delta) {
    if (!giacenza) return true;
    if (m.idOrigine >= 1) return scriviGiacenza(m.idProdotto, *giacenza - delta);
    return m.idDestinazione <= 0 || scriviGiacenza(m.idProdotto, *giacenza + delta);
}

// The stock as it stands before the row moves it. Rows of a warehouse that has none are made.
struct Situazione {
    std::optional<float> giacenza;
    float origine = 0;
    float destinazione = 0;
    float vecchioTaglio = 0;
};

// The goods that the last save put into the destination lie in another layer than the row's cost now says.
bool cambiaTaglio(const MovimentoMerce& m) {
    return m.idDestinazione > 0 && m.taglioVecchio > Currency() && m.taglioVecchio != m.taglio;
}

bool leggi(const RigaGiacenza& riga, float& quantita) {
    const auto letta = riga.quantita();
    quantita = letta.value_or(0);
    return letta.has_value();
}

RigaGiacenza strato(const MovimentoMerce& m, int idMagazzino, Currency taglio) {
    return {m.idProdotto, idMagazzino, taglio};
}

bool leggiSituazione(const MovimentoMerce& m, Situazione& s) {
    if (!m.trasferimento()) {
        s.giacenza = leggiGiacenza(m.idProdotto);
        if (!s.giacenza) return false;
    }
    if (m.idOrigine > 0 && !leggi(strato(m, m.idOrigine, m.taglio), s.origine)) return false;
    if (cambiaTaglio(m) && !leggi(strato(m, m.idDestinazione, m.taglioVecchio), s.vecchioTaglio))
        return false;
    return m.idDestinazione <= 0 || leggi(strato(m, m.idDestinazione, m.taglio), s.destinazione);
}

bool muoviStrati(const MovimentoMerce& m, const Situazione& s, float& delta) {
    if (m.idOrigine > 0 && !strato(m, m.idOrigine, m.taglio).scrivi(s.origine - delta)) return false;
    if (m.idDestinazione <= 0) return true;
    if (cambiaTaglio(m)) {
        if (!strato(m, m.idDestinazione, m.taglioVecchio).scrivi(s.vecchioTaglio - m.quantitaVecchia))
            return false;
        delta = m.quantita;
    }
    return strato(m, m.idDestinazione, m.taglio).scrivi(s.destinazione + delta);
}

QString aggiornaStrati(MovimentoMerce& m) {
    if (m.taglio < Currency() && m.idOrigine > 0) m.taglio = getTaglioProdotto(m.idProdotto, m.idOrigine);
    // A layer that could not be read is no layer that is missing.
    if (m.taglio < Currency()) return gAdo.transazioneFallita() ? fallito : taglioIgnoto(m);
    Situazione s;
    if (!leggiSituazione(m, s)) return fallito;
    auto delta = differenza(m);
    if (!delta) return azioneIgnota(m);
    return muoviStrati(m, s, *delta) && muoviGiacenza(m, s.giacenza, *delta) ? riuscito : fallito;
}

// The cost that the origin is left at, and the one that the destination gets.
Currency costoOrigine(const MovimentoMerce& m, OperatorPort& operatore) {
    if (m.trasferimento()) return m.taglio;
    const Currency medio = getPrezzoMedioProdotto(m.idProdotto, m.idOrigine, -1, costoIgnoto, -1, operatore);
    return medio == costoIgnoto ? Currency() : medio;
}

Currency costoDestinazione(const MovimentoMerce& m, OperatorPort& operatore) {
    if (m.trasferimento()) return m.taglio;
    const Currency medio = getPrezzoMedioProdotto(m.idProdotto, m.idDestinazione, m.quantita, m.taglio,
                                                  m.rigaEsclusa, operatore);
    return medio == costoIgnoto ? m.taglio : medio;
}

QString aggiornaGiacenzeSimple(MovimentoMerce& m, OperatorPort& operatore) {
    const RigaGiacenza origine{m.idProdotto, m.idOrigine, std::nullopt};
    const RigaGiacenza destinazione{m.idProdotto, m.idDestinazione, std::nullopt};
    Situazione s;
    if (!m.trasferimento()) {
        s.giacenza = leggiGiacenza(m.idProdotto);
        if (!s.giacenza) return fallito;
    }
    if (m.idOrigine > 0 && !leggi(origine, s.origine)) return fallito;
    if (m.idDestinazione > 0 && !leggi(destinazione, s.destinazione)) return fallito;
    const auto delta = differenza(m);
    if (!delta) return azioneIgnota(m);
    Currency costo = m.taglio;
    if (m.idOrigine > 0) {
        costo = costoOrigine(m, operatore);
        if (!origine.scrivi(s.origine - *delta, costo)) return fallito;
    }
    if (m.idDestinazione > 0) {
        costo = costoDestinazione(m, operatore);
        if (!destinazione.scrivi(s.destinazione + *delta, costo)) return fallito;
    }
    if (!muoviGiacenza(m, s.giacenza, *delta)) return fallito;
    m.taglio = costo;
    return riuscito;
}

}  // namespace

QString aggiornaGiacenze(MovimentoMerce& movimento, OperatorPort& operatore) {
    return protetto(
        gNomeModulo, gPrezzoMedio == 1 ? "aggiornaGiacenzeSimple" : "aggiornaGiacenze",
        [&] {
            return gPrezzoMedio == 1 ? aggiornaGiacenzeSimple(movimento, operatore)
                                     : aggiornaStrati(movimento);
        },
        QString());
}

bool giacenzeAggiornate(const QString& esito) {
    if (esito == riuscito) return true;
    if (!esito.isEmpty() && !esito.startsWith('#')) gErr.mostraMessaggio(esito, OperatorPort::Icona::Critica);
    return false;
}

bool getAggiornamentoGiacenzeByProdotto(int idProdotto) {
    return gAdo.getValueBySQL("SELECT SETGIACENZA FROM Prodotti WHERE RID = " + QString::number(idProdotto),
                              gNomeModulo + ".getAggiornamentoGiacenzeByProdotto")
               .toDouble() != 0.0;
}
