#pragma once

#include <functional>
#include <memory>

#include <QDialog>
#include <QTimer>

#include "kit/search_request.h"

class CampoEdit;
class GrigliaRicerca;
class OperatorPort;
class QBoxLayout;
class QLabel;
class QPushButton;
class Ricerca;

// The one look-up screen: pages of the caller's query in a grid, narrowed by typing. Letters typed anywhere
// go to the text, and a query follows them after a short rest.
class frmRicerca final : public QDialog {
    Q_OBJECT
  public:
    frmRicerca(OperatorPort& operatore, QWidget* padre);
    ~frmRicerca() override;

    // Modal.
    void startMe(RichiestaRicerca richiesta);
    // The keys chosen, each followed by "|"; empty on cancel; ricercaNuovo when a new element was asked for.
    const QString& risultato() const { return mRisultato; }
    bool elementoNuovo() const { return mRisultato == ricercaNuovo; }

  protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    using Azione = std::function<void()>;

    // ---- Layout
    void costruisci();
    QBoxLayout* rigaTesto();
    QBoxLayout* colonnaComandi();
    QBoxLayout* rigaAiuto();
    QPushButton* pulsante(const char* nome, const QString& testo, const QString& aiuto, const Azione& azione);

    // ---- Keys, seen before the controls; true when consumed
    bool tastoGiu(QObject* dove, const QKeyEvent& tasto);
    bool tastoConCtrl(int tasto);
    bool tastoInGriglia(const QKeyEvent& tasto);

    void freccia(bool giu);
    void rigaPremuta(int riga);
    void comandoTesto(const Azione& azione);
    // What is chosen ends the search.
    void seleziona();
    void chiudi(const QString& risultato);
    void mostra();
    void cercaDalVivo();

    OperatorPort& mOperatore;
    std::unique_ptr<Ricerca> mRicerca;
    QWidget* mContenuto = nullptr;
    CampoEdit* txtRicerca = nullptr;
    GrigliaRicerca* flxRicerca = nullptr;
    QLabel* pctNessuna = nullptr;
    QPushButton* cmdSelect = nullptr;
    QTimer tmrNessuna;
    QTimer mTimerDalVivo;
    QString mRisultato;
};
