#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

#include <Qt>

#include "counter/accounts.h"
#include "kit/search_request.h"

// A counter screen without a window: keys and scans go through the same rules as on the real one, and the
// focus walks the fields as it does there.
class ContoDiProva final : public Conto {
  public:
    ContoDiProva(int indice, OperatorPort& operatore);
    ~ContoDiProva() override;

    // ---- What the operator does
    // One key with its character, pressed and released; Qt::Key_Return, Qt::Key_F5, ...
    void tasto(int tasto, int modificatori = Qt::NoModifier);
    // Characters, one key each.
    void digita(const QString& testo);
    void invio() { tasto(Qt::Key_Return); }
    // Prefix, code, Enter, as a scanner sends them.
    void scansiona(const QString& codice);
    // The code as a scanner without a prefix sends it, so many milliseconds a key; then Enter.
    void raffica(const QString& codice, int passo = 1, bool conInvio = true);
    void clic(Campo& campo) { fuoco(campo); }
    void clicRiga(int riga);
    // The timer, if it runs, fires.
    bool scade(Timer timer);

    // ---- What the operator sees
    Campo* fuocoSu() const { return campoAttivo(); }
    bool timerAttivo(Timer timer) const { return mTimer.contains(timer); }
    int intervallo(Timer timer) const { return mTimer.at(timer); }
    bool ridisegnoAcceso() const { return mRidisegniFermi == 0; }
    int mostrate = 0;  // how often the screen was shown
    int opzioniMostrate = 0;
    bool eliminato = false;
    int rigaMostrata = 0;
    // Which of the offered rows the operator takes, from 0; nothing: cancels. Each list uses one up.
    std::vector<std::optional<int>> scelte;
    QStringList elenchiMostrati;  // the column specifications
    // What the operator does in the search screens that come up, in order. One that comes unexpected fails
    // the test.
    std::deque<std::function<QString(const RichiestaRicerca&)>> ricerche;
    std::vector<RichiestaRicerca> ricercheAperte;
    // The next search ends with that answer.
    void rispondeRicerca(const QString& risposta) {
        ricerche.emplace_back([risposta](const RichiestaRicerca&) { return risposta; });
    }
    // What the operator enters in the dialogues that ask for a code, in order; each as it was opened. One
    // that comes unexpected fails the test.
    std::deque<QString> codiciVenditore;
    std::vector<RichiestaVenditore> richiesteVenditore;
    // What the operator does in the tender dialogues, the go-to dialogues and the lists of a movement that
    // come up, in order. One that comes unexpected fails the test.
    std::deque<std::function<EsitoIncasso(Currency)>> incassi;
    std::deque<std::function<void(VaiVendita&)>> vaiA;
    std::deque<std::function<QString(ElencoMovimento&)>> righeMovimento;
    // Hears of the print question, which nobody answers yet.
    std::function<void(bool simula)> quandoStampa;
    // Sees each list as it is offered.
    std::function<void(Recordset& righe, const QString& colonne)> quandoOffre;

    // ---- Conto and SchermoVendita
    void mostra() override { ++mostrate; }
    void elimina() override { eliminato = true; }
    QString codiceVenditore(const RichiestaVenditore& richiesta) override;
    void mostraOpzioni() override { ++opzioniMostrate; }
    EsitoIncasso incassa(Currency totale) override { return prossimo(incassi, "incasso", totale); }
    void scegliVendita(VaiVendita& scelta) override { prossimo(vaiA, "vai alla vendita", scelta); }
    QString scegliRiga(ElencoMovimento& movimento) override {
        return prossimo(righeMovimento, "righe del movimento", movimento);
    }
    void messaggioStampa(bool simula) override {
        quandoStampa ? quandoStampa(simula) : Conto::messaggioStampa(simula);
    }
    OperatorPort& operatore() override { return mOperatore; }
    void fuoco(Campo& campo) override;
    void ridisegno(bool acceso) override { mRidisegniFermi += acceso ? -1 : 1; }
    void mostraRiga(int riga) override { rigaMostrata = riga; }
    void avviaTimer(Timer timer, int millisecondi) override { mTimer[timer] = millisecondi; }
    void fermaTimer(Timer timer) override { mTimer.erase(timer); }
    bool selezionaElemento(Recordset& righe, const QString& colonne) override;
    QString ricerca(const RichiestaRicerca& richiesta) override;

  private:
    class CasellaDiProva;

    void carattere(QChar c);
    // The next of a dialogue's scripted answers, on what it shows.
    template <class Esito, class Mostrato>
    static Esito prossimo(std::deque<std::function<Esito(Mostrato)>>& copione, const char* dialogo,
                          std::type_identity_t<Mostrato> mostrato) {
        if (copione.empty()) {
            inatteso(dialogo);
            return Esito();
        }
        const auto risposta = std::move(copione.front());
        copione.pop_front();
        return risposta(mostrato);
    }
    static void inatteso(const char* dialogo);

    OperatorPort& mOperatore;
    std::vector<std::unique_ptr<CasellaDiProva>> mCaselle;
    std::map<Timer, int> mTimer;
    int mRidisegniFermi = 0;
    qint64 mIstante = -1;  // of the key that a scanner is sending; below 0 a hand's
};
