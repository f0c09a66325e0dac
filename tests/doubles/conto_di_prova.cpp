#include "doubles/conto_di_prova.h"

#include <gtest/gtest.h>

#include "core/globals.h"
#include "counter/badge.h"
#include "counter/fields.h"
#include "counter/keys.h"
#include "data/recordset.h"
#include "sale/grid.h"

// A box with a text of its own only: typing replaces a selected text, otherwise it goes to the end.
class ContoDiProva::CasellaDiProva final : public CTextBox::Casella {
  public:
    CasellaDiProva(ContoDiProva& conto, CTextBox& casella) : mConto(conto), mCasella(casella) {
        casella.casella(this);
    }
    ~CasellaDiProva() override { mCasella.casella(nullptr); }

    void selezionaTutto() override { mTuttoSelezionato = true; }
    void cursoreAllaFine() override { mTuttoSelezionato = false; }
    void inserisci(const QString& testo) override {
        Campo& campo = mCasella.campo();
        campo.testo(mTuttoSelezionato ? testo : campo.testo() + testo);
        mTuttoSelezionato = false;
    }
    void cancella() {
        Campo& campo = mCasella.campo();
        campo.testo(mTuttoSelezionato ? QString() : campo.testo().chopped(campo.testo().isEmpty() ? 0 : 1));
        mTuttoSelezionato = false;
    }
    void prendiFuoco() override { mConto.fuoco(mCasella.campo()); }
    void tab() override {
        const auto ordine = ordineTab(mConto.vendita());
        auto da = std::find(ordine.begin(), ordine.end(), &mCasella.campo());
        for (size_t i = 0; i < ordine.size(); ++i) {
            da = da == ordine.end() || std::next(da) == ordine.end() ? ordine.begin() : std::next(da);
            if ((*da)->visibile() && (*da)->abilitato()) return mConto.fuoco(**da);
        }
    }

    void invio() override { mConto.invio(); }

  private:
    ContoDiProva& mConto;
    CTextBox& mCasella;
    bool mTuttoSelezionato = false;
};

ContoDiProva::ContoDiProva(int indice, OperatorPort& operatore) : Conto(indice), mOperatore(operatore) {
    for (CTextBox* casella : vendita().caselle.tutte()) {
        mCaselle.push_back(std::make_unique<CasellaDiProva>(*this, *casella));
    }
}

ContoDiProva::~ContoDiProva() = default;

void ContoDiProva::fuoco(Campo& campo) {
    if (campo.visibile() && campo.abilitato()) fuocoPassa(*this, &campo);
}

void ContoDiProva::carattere(QChar c) {
    if ((c.isPrint() || c == u'\r' || mIstante >= 0) && Form_KeyPress(*this, c, mIstante)) return;
    Campo* campo = campoAttivo();
    if (campo == nullptr) return;
    const auto passa = tastoInCampo(*this, *campo, c);
    if (!passa || campo->bloccato()) return;
    const auto tutte = vendita().caselle.tutte();
    const auto trovata =
        std::find_if(tutte.begin(), tutte.end(), [&](CTextBox* t) { return &t->campo() == campo; });
    if (trovata == tutte.end()) return;
    CasellaDiProva& casella = *mCaselle[static_cast<size_t>(trovata - tutte.begin())];
    if (*passa == u'\b') {
        casella.cancella();
    } else if (passa->isPrint()) {
        casella.inserisci(QString(*passa));
    }
}

void ContoDiProva::tasto(int tasto, int modificatori) {
    if (!Form_KeyDown(*this, tasto, modificatori)) {
        if (tasto == Qt::Key_Return) carattere(u'\r');
        if (tasto == Qt::Key_Backspace) carattere(u'\b');
        if (tasto == Qt::Key_Tab && campoAttivo() != nullptr) {
            if (CTextBox* casella = vendita().caselle.di(*campoAttivo())) casella->setLostFocus();
        }
    }
    if (!eliminato) Form_KeyUp(*this, tasto, modificatori);
}

void ContoDiProva::digita(const QString& testo) {
    for (const QChar c : testo) {
        carattere(c);
    }
}

void ContoDiProva::scansiona(const QString& codice) {
    digita(gLaserChar + codice);
    invio();
}

void ContoDiProva::raffica(const QString& codice, int passo, bool conInvio) {
    static qint64 adesso = 0;
    mIstante = adesso += 1000;
    for (const QChar c : codice) {
        carattere(c);
        mIstante += passo;
    }
    if (conInvio) carattere(u'\r');
    mIstante = -1;
}

void ContoDiProva::clicRiga(int riga) {
    flxVB_RowColChange(vendita(), riga);
    flxVB_Click(vendita(), riga);
}

bool ContoDiProva::scade(Timer timer) {
    if (!mTimer.contains(timer)) return false;
    switch (timer) {
        case Timer::Griglia:
            TimerGrid_Timer(vendita());
            break;
        case Timer::Tasti:
            timerTasti(*this);
            break;
        case Timer::Raffica:
            TimerRaffica_Timer(*this);
            break;
        case Timer::Badge:
            TimerBadge_Timer(*this);
            break;
        default:
            break;
    }
    return true;
}

bool ContoDiProva::selezionaElemento(Recordset& righe, const QString& colonne) {
    elenchiMostrati << colonne;
    if (quandoOffre) quandoOffre(righe, colonne);
    if (scelte.empty()) return false;
    const std::optional<int> scelta = scelte.front();
    scelte.erase(scelte.begin());
    if (!scelta) return false;
    righe.moveFirst();
    for (int i = 0; i < *scelta; ++i) {
        righe.moveNext();
    }
    return true;
}

void ContoDiProva::inatteso(const char* dialogo) {
    ADD_FAILURE() << dialogo << ": dialogo inatteso";
}

QString ContoDiProva::ricerca(const RichiestaRicerca& richiesta) {
    ricercheAperte.push_back(richiesta);
    if (ricerche.empty()) {
        ADD_FAILURE() << "ricerca inattesa: " << richiesta.sql.toStdString();
        return {};
    }
    const auto risposta = std::move(ricerche.front());
    ricerche.pop_front();
    return risposta(richiesta);
}

QString ContoDiProva::codiceVenditore(const RichiestaVenditore& richiesta) {
    richiesteVenditore.push_back(richiesta);
    if (codiciVenditore.empty()) {
        ADD_FAILURE() << "codice operatore inatteso";
        return {};
    }
    const QString codice = codiciVenditore.front();
    codiciVenditore.pop_front();
    return codice;
}
