#pragma once

#include <array>

#include <QHash>
#include <QTimer>
#include <QWidget>

#include "counter/accounts.h"

class FinestraConti;
class GrigliaVendita;
class QKeyEvent;
struct EventiSchermo;

// The counter screen of one account: binds the sale's fields to widgets and hands what the operator does
// to the rules. It knows none of them.
class frmMain final : public QWidget, public Conto {
    Q_OBJECT
  public:
    frmMain(int indice, FinestraConti& finestra, OperatorPort& operatore);
    ~frmMain() override;

    // The screen came to the front, in another's place. A box that closes over it is no such event.
    void attivata();
    // No rule of an event is running, nor waiting for an answer.
    bool libero() const { return mInCorso == 0 && !mDaEliminare; }

    // ---- Conto
    void mostra() override;
    void elimina() override;
    QString codiceVenditore(const RichiestaVenditore& richiesta) override;
    void mostraOpzioni() override;
    EsitoIncasso incassa(Currency totale) override;
    void scegliVendita(VaiVendita& scelta) override;
    QString scegliRiga(ElencoMovimento& movimento) override;
    void venditaSalvata() override;

    // ---- SchermoVendita
    OperatorPort& operatore() override { return mOperatore; }
    void fuoco(Campo& campo) override;
    void ridisegno(bool acceso) override;
    void mostraRiga(int riga) override;
    void avviaTimer(Timer timer, int millisecondi) override;
    void fermaTimer(Timer timer) override;
    bool selezionaElemento(Recordset& righe, const QString& colonne) override;
    QString ricerca(const RichiestaRicerca& richiesta) override;

  protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void changeEvent(QEvent* evento) override;
    void mFrmRegCassa_evtError(int codice, const QString& descrizione) override;

  private:
    static constexpr size_t numeroTimer = 6;

    // The layout, once.
    void costruisci();
    void impostaOrdineTab();
    EventiSchermo eventi();
    void collegaGriglia();
    void collegaTimer();

    bool tastoGiu(const QKeyEvent& evento);
    bool tastoSu(const QKeyEvent& evento);
    void fuocoCambiato(QWidget* nuovo);
    void spuntaPremuta(Campo& campo, bool premuta);
    void scaduto(Timer timer);
    // Runs what a rule has to do on an event: its errors end here, and the screen outlives it.
    template <class Corpo>
    auto evento(const char* nome, Corpo&& corpo);

    FinestraConti& mFinestra;
    OperatorPort& mOperatore;
    QWidget* mContenuto = nullptr;
    GrigliaVendita* mGriglia = nullptr;
    std::array<QTimer, numeroTimer> mTimer;
    // Keys that went down on this screen and are not up yet, with Shift and Ctrl as they were then: a hand
    // lets go of them in any order.
    QHash<int, int> mTastiPremuti;
    int mInCorso = 0;  // events whose rules are running, one inside the other
    bool mDaEliminare = false;
};
