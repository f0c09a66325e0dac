#include "kit/search.h"

#include <algorithm>

#include "core/errors.h"
#include "core/globals.h"
#include "core/operator_port.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "kit/search_statement.h"

namespace {

const char* const modulo = "frmRicerca";
const char* const colonnePredefinite = "<CODICE¤0|<DESCRIZIONE¤0";
constexpr int colonnaPredefinita = 3;
constexpr int colonnaRid = 1;
constexpr unsigned coloreTesto = 0xFFFFC0;
constexpr unsigned coloreFuoco = 0xC0FFC0;
constexpr unsigned fondoNotizia = 0xFFC857;
constexpr unsigned testoNotizia = 0x10202E;
constexpr unsigned testoEsito = 0xB3261E;

}  // namespace

Ricerca::Ricerca(RichiestaRicerca richiesta, OperatorPort& operatore)
    : mRichiesta(std::move(richiesta)),
      mOperatore(operatore),
      mMultiSel(mRichiesta.multi && gMultiSel >= 1),
      mColonne(getAddInfoCOls(mRichiesta.colonne)) {
    mColonnePredefinite = mColonne.size() < 2;
    if (mColonnePredefinite) mColonne = getAddInfoCOls(colonnePredefinite);
    pctNessuna.visibile(false);
    pctNessuna.colori(fondoNotizia, testoNotizia);
    lblEsito.colori(std::nullopt, testoEsito);
    casella.txtBGColor(coloreTesto);
    casella.txtGotFocusColor(coloreFuoco);
    cercaInColonna(colonnaPredefinita);
    cmdInvio();
}

// ---- The grid

const ColonnaElenco& Ricerca::colonna(int colonna) const {
    return mColonne.at(static_cast<size_t>(colonna - primaColonna));
}

const QString& Ricerca::cella(int riga, int colonna) const {
    static const QString vuota;
    const QStringList& celle = mRighe.at(static_cast<size_t>(riga - 1)).celle;
    return colonna >= colonnaRid && colonna <= celle.size() ? celle[colonna - colonnaRid] : vuota;
}

bool Ricerca::segnata(int riga) const {
    return mRighe.at(static_cast<size_t>(riga - 1)).segnata;
}

int Ricerca::segnate() const {
    return static_cast<int>(
        std::count_if(mRighe.begin(), mRighe.end(), [](const Riga& r) { return r.segnata; }));
}

void Ricerca::rigaCorrente(int riga) {
    mRigaCorrente = std::clamp(riga, 0, righe());
}

int Ricerca::colonnaRicerca() const {
    return lblDesc.chiave();
}

int Ricerca::colonnaChiave() const {
    return mRichiesta.colonnaChiave == 0 ? colonnaPredefinita : mRichiesta.colonnaChiave + 1;
}

// ---- Pages

Ricerca::Riga Ricerca::rigaDa(const Recordset& record) const {
    Riga riga;
    if (mRichiesta.prezzi) {
        riga.celle = {record.testo("RID"), record.testo("CODICE"), record.testo("DESCRIZIONE")};
        const PrezziRicerca prezzi = mRichiesta.prezzi(record.intero("RID"));
        riga.celle << formattaImporto(prezzi.giacenza, 2) << formattaImporto(prezzi.netto, 2)
                   << formattaImporto(prezzi.finale, 2);
        return riga;
    }
    for (int i = 0; i <= static_cast<int>(mColonne.size()); ++i) {
        riga.celle << testoCampo(record.campo(i));
    }
    return riga;
}

Ricerca::Esito Ricerca::fillGrid(int direzione, const QString& valore) {
    if (direzione == PaginaPrima) mDomanda = domanda();
    return protetto(
        modulo, "fillGrid", [&] { return leggiPagina(direzione, valore); }, Esito::Fallita);
}

Ricerca::Esito Ricerca::leggiPagina(int direzione, const QString& valore) {
    const Clessidra clessidra(mOperatore);
    const QString campo = getNomeCampo(mRichiesta.sql, colonnaRicerca());
    const QString filtrata =
        conFiltro(mRichiesta.sql, campo, txtRicerca.testo(), chkCodiceProdotto.valore() == 1);
    const Lettura record(
        conPagina(filtrata, {mRichiesta.campoChiave, mRichiesta.discendente, direzione, valore}),
        modulo + QString(".fillGrid"));
    if (!record) return Esito::Fallita;
    if (record->eof()) return Esito::Vuota;
    std::vector<Riga> righe;
    for (; !record->eof(); record->moveNext()) {
        righe.push_back(rigaDa(*record));
    }
    // The page before is asked in reverse order; it reads as every other.
    if (direzione == PaginaPrecedente) std::reverse(righe.begin(), righe.end());
    mRighe = std::move(righe);
    mRigaCorrente = 1;
    mFineLista = false;
    pctNessuna.visibile(false);
    if (mNuovaPagina) mNuovaPagina();
    return Esito::Trovate;
}

bool Ricerca::sfoglia(int direzione, const QString& valore) {
    const Esito esito = fillGrid(direzione, valore);
    mDalVivo = esito != Esito::Fallita;
    if (esito != Esito::Fallita) lblEsito.testo({});
    if (esito == Esito::Vuota) {
        pctNessuna.visibile(true);
        casella.selezionaTutto();
        if (mNessuna) mNessuna();
    }
    return esito == Esito::Trovate;
}

// ---- Commands

QString Ricerca::domanda() const {
    if (txtRicerca.testo().isEmpty()) return {};
    return lblDesc.tag() + QString::number(chkCodiceProdotto.valore()) + txtRicerca.testo();
}

std::optional<QChar> Ricerca::tastoNelTesto(QChar tasto) {
    const bool invio = tasto == u'\r';
    // Enter asks, and stays.
    casella.cancelTabStep(invio);
    const auto passa = casella.keyPress(tasto);
    if (invio) cmdInvio();
    return passa;
}

void Ricerca::cmdInvio() {
    sfoglia(PaginaPrima, {});
}

void Ricerca::cercaDalVivo() {
    if (!mDalVivo || mDomanda == domanda()) return;
    const Esito esito = fillGrid(PaginaPrima, {});
    // A server that does not answer is told once, not at every letter.
    mDalVivo = esito != Esito::Fallita;
    lblEsito.testo(esito == Esito::Vuota ? "Nessuna corrispondenza per \u00AB" + txtRicerca.testo() + "\u00BB"
                                         : QString());
}

bool Ricerca::righeDelTesto() {
    if (!mDalVivo || mDomanda == domanda()) return true;
    cercaDalVivo();
    return mDalVivo && lblEsito.testo().isEmpty();
}

void Ricerca::cmdSu() {
    if (righeDelTesto() && righe() > 0) sfoglia(PaginaPrecedente, cella(1, colonnaChiave()));
}

void Ricerca::cmdDown() {
    if (!righeDelTesto()) return;
    sfoglia(PaginaSuccessiva,
            righe() > 0 ? cella(righe(), colonnaChiave()) : colonna(colonnaChiave()).titolo);
}

void Ricerca::cmdNuovo() {
    txtRicerca.testo({});
}

void Ricerca::cmdDel() {
    txtRicerca.testo(txtRicerca.testo().chopped(txtRicerca.testo().isEmpty() ? 0 : 1));
    casella.setLastPositionChar();
}

void Ricerca::tasto(const QString& didascalia) {
    txtRicerca.testo(txtRicerca.testo() + didascalia);
    casella.setLastPositionChar();
}

void Ricerca::cambiaOvunque() {
    chkCodiceProdotto.valore(1 - chkCodiceProdotto.valore());
}

bool Ricerca::cercabile(int colonna) const {
    return colonna >= primaColonna && colonna < colonne() && haCampo(mRichiesta.sql, colonna);
}

void Ricerca::scegliColonna(int numero) {
    if (cercabile(numero)) cercaInColonna(numero);
}

void Ricerca::cercaInColonna(int numero) {
    lblDesc.tag(QString::number(numero));
    lblDesc.testo(colonna(numero).titolo);
}

// ---- Rows

void Ricerca::freccia(bool giu) {
    if (!righeDelTesto() || righe() == 0) return;
    const int bordo = giu ? righe() : 1;
    if (mRigaCorrente != bordo) {
        mRigaCorrente += giu ? 1 : -1;
    } else if (mFineLista) {
        giraPagina(giu);
    }
    mFineLista = mRigaCorrente == 1 || mRigaCorrente == righe();
}

void Ricerca::giraPagina(bool giu) {
    if (giu) return cmdDown();
    if (sfoglia(PaginaPrecedente, cella(1, colonnaChiave()))) mRigaCorrente = righe();
}

void Ricerca::segna(int riga) {
    if (!mMultiSel || riga < 1 || riga > righe()) return;
    Riga& questa = mRighe[static_cast<size_t>(riga - 1)];
    questa.segnata = !questa.segnata;
}

std::optional<QString> Ricerca::cmdSelect() {
    return righeDelTesto() ? std::optional(scelti()) : std::nullopt;
}

QString Ricerca::scelti() const {
    if (mRigaCorrente < 1) return {};
    QString chiavi;
    for (int riga = 1; riga <= righe(); ++riga) {
        if (mMultiSel ? segnata(riga) : riga == mRigaCorrente) chiavi += cella(riga, colonnaRid) + '|';
    }
    return chiavi;
}
