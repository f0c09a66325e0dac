#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include <QStringList>

#include "core/operator_port.h"

// An operator who follows a script: every box and question is expected, in order, with its exact text.
// An unexpected one, and one that never came, fails the test.
class OperatoreScritto final : public OperatorPort {
  public:
    OperatoreScritto() = default;
    ~OperatoreScritto() override;
    OperatoreScritto(const OperatoreScritto&) = delete;
    OperatoreScritto& operator=(const OperatoreScritto&) = delete;

    // The next question and its answer; `prima`, when given, runs while the question stands on the screen.
    void attendiDomanda(const QString& testo, Risposta risposta, std::function<void()> prima = {});
    // `icona` Nessuna: whichever it is.
    void attendiMessaggio(const QString& testo, Icona icona = Icona::Nessuna);
    // The next warning dialogue, by module and procedure ("frmMain.getProdotto"); going on, or leaving.
    void attendiAvviso(const QString& modulo, bool prosegue = true);
    // Everything expected has come.
    bool esaurito() const { return mAttesi.empty(); }

    using OperatorPort::messaggio;
    void messaggio(const QString& testo, Icona icona, const QString& titolo) override;
    Risposta domanda(const QString& testo, Pulsanti pulsanti, Icona icona) override;
    bool avviso(const Errore& errore) override;
    void beep() override { ++suoni; }
    void clessidra(bool accesa) override { clessidre += accesa ? 1 : -1; }
    void pausa(int millisecondi) override;
    void avvisoAttesa(const QString& testo) override { attesa = testo; }

    int suoni = 0;
    int clessidre = 0;  // how many are on now
    std::vector<int> pause;
    QString attesa;  // the notice of waiting that stands now
    std::vector<Errore> avvisi;
    // The boxes and questions that came, as the operator saw them: title, icon and buttons, the one of Enter
    // first.
    struct Visto {
        QString titolo;
        Icona icona;
        QStringList pulsanti;
        bool operator==(const Visto&) const = default;
    };
    std::vector<Visto> visti;
    // What happens during every pause, such as a look at the screen.
    std::function<void()> durantePausa;

  private:
    enum class Genere { Messaggio, Domanda, Avviso };
    struct Atteso {
        Genere genere;
        QString testo;
        Risposta risposta = Risposta::No;
        Icona icona = Icona::Nessuna;
        bool prosegue = true;
        std::function<void()> prima = {};
    };

    // The expected entry, or nothing after having failed the test.
    std::optional<Atteso> prendi(Genere genere, const QString& testo);

    std::deque<Atteso> mAttesi;
};
