#pragma once

#include <optional>

#include <QChar>
#include <QString>

#include "kit/campo.h"

// A typed field: filters the keys, formats the value when it is left, paints the box while it has the
// focus, turns Enter into a move to the next field and takes characters from the on-screen keypad.
class CTextBox {
  public:
    enum Tipo { Nessuno = 0, Intero = 1, Importo = 2, Data = 3 };

    // The box's caret and the focus, which only a widget has.
    class Casella {
      public:
        virtual ~Casella() = default;
        virtual void selezionaTutto() = 0;
        virtual void cursoreAllaFine() = 0;
        // Puts the text in place of the selection, or at the caret.
        virtual void inserisci(const QString& testo) = 0;
        virtual void prendiFuoco() = 0;
        // To the next field, as a Tab does.
        virtual void tab() = 0;
        // As if Enter was pressed in the box.
        virtual void invio() = 0;
    };

    explicit CTextBox(Campo& campo) : mCampo(campo) {}
    ~CTextBox();
    CTextBox(const CTextBox&) = delete;
    CTextBox& operator=(const CTextBox&) = delete;

    void casella(Casella* casella) { mCasella = casella; }
    Campo& campo() const { return mCampo; }

    // The normal back colour, applied at once, and the one while focused; 0xRRGGBB.
    void txtBGColor(unsigned colore);
    void txtGotFocusColor(unsigned colore) { mColoreFuoco = colore; }
    void txtForeColor(unsigned colore);
    void usaTastierino(bool usa) { mUsaTastierino = usa; }
    void sepMigliaia(bool usa) { mSepMigliaia = usa; }
    bool sepMigliaia() const { return mSepMigliaia; }
    void decimali(int decimali) { mDecimali = decimali; }
    // One-shot: the next Enter does not move on.
    void cancelTabStep(bool annulla) { mCancelTabStep = annulla; }
    void txtType(Tipo tipo) { mTipo = tipo; }
    Tipo txtType() const { return mTipo; }
    // Numbers stand right-aligned; a date has 10 characters at most.
    bool allineatoADestra() const { return mTipo == Intero || mTipo == Importo; }
    int lunghezzaMassima() const { return mTipo == Data ? 10 : 0; }

    void addChar(const QString& carattere);
    void setFocus();
    bool isLocked() const { return mCampo.bloccato(); }
    void clearText() { mCampo.testo({}); }
    int textLen() const { return static_cast<int>(mCampo.testo().size()); }
    QString textContent() const { return mCampo.testo(); }
    void textContent(const QString& testo) { mCampo.testo(testo); }
    void selezionaTutto();
    void setLastPositionChar();
    void setLostFocus();
    // Enter, for the on-screen keypad: the box's rules run as for the key.
    void inviaInvio();

    // ---- The events of the wrapped box
    void gotFocus();
    void lostFocus();
    void validate();
    // The key as it goes on to the box, maybe turned into another; nothing when it is swallowed.
    std::optional<QChar> keyPress(QChar tasto);

    void formattaValore();

  private:
    std::optional<QChar> ammesso(QChar tasto) const;
    QString formaData() const;

    Campo& mCampo;
    Casella* mCasella = nullptr;
    Tipo mTipo = Nessuno;
    int mDecimali = 2;
    bool mSepMigliaia = true;
    bool mUsaTastierino = false;
    bool mCancelTabStep = false;
    std::optional<unsigned> mColoreFondo;
    std::optional<unsigned> mColoreFuoco;
    std::optional<unsigned> mColoreTesto;
};

// The field that the on-screen keypad types into: the one that last had the focus.
extern CTextBox* mTextBoxCorrente;
