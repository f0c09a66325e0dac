#pragma once

#include <functional>
#include <optional>
#include <vector>

#include <QString>

class Campo;

// The fields of a screen in the order of their making; a form binds its widgets to them by name.
class ElencoCampi {
  public:
    const std::vector<Campo*>& tutti() const { return mCampi; }
    // Nothing when there is no field of that name.
    Campo* trova(const QString& nome) const;

  private:
    friend class Campo;
    std::vector<Campo*> mCampi;
};

// A field of a screen as a value, without a widget: rules read and write it, a form shows it. Its name is
// the widget's objectName. The tag is a remembered value, a key or the last accepted text.
class Campo {
  public:
    using Osservatore = std::function<void(const Campo&)>;

    Campo(ElencoCampi& elenco, const char* nome);
    Campo(const Campo&) = delete;
    Campo& operator=(const Campo&) = delete;

    const QString& nome() const { return mNome; }

    // What the operator reads: a box's text or a label's caption.
    const QString& testo() const { return mTesto; }
    void testo(const QString& testo);
    const QString& tag() const { return mTag; }
    void tag(const QString& tag) { mTag = tag; }
    // The tag's number as a key; 0 when it holds none.
    int chiave() const;
    // Text and tag alike, as a field has them after its value was accepted.
    void testoETag(const QString& testo);

    // A tick box: 0 or 1.
    int valore() const { return mValore; }
    void valore(int valore);

    bool bloccato() const { return mBloccato; }
    void bloccato(bool bloccato);
    bool abilitato() const { return mAbilitato; }
    void abilitato(bool abilitato);
    bool visibile() const { return mVisibile; }
    void visibile(bool visibile);
    // Colours as 0xRRGGBB; nothing means the screen's own.
    std::optional<unsigned> coloreFondo() const { return mColoreFondo; }
    std::optional<unsigned> coloreTesto() const { return mColoreTesto; }
    void colori(std::optional<unsigned> fondo, std::optional<unsigned> testo);

    // One form shows a field at a time; it hears of every change but the tag's.
    void osserva(Osservatore osservatore) { mOsservatore = std::move(osservatore); }

  private:
    void cambiato() {
        if (mOsservatore) mOsservatore(*this);
    }
    template <class T>
    void assegna(T& membro, T valore) {
        if (membro == valore) return;
        membro = std::move(valore);
        cambiato();
    }

    QString mNome;
    QString mTesto;
    QString mTag;
    int mValore = 0;
    bool mBloccato = false;
    bool mAbilitato = true;
    bool mVisibile = true;
    std::optional<unsigned> mColoreFondo;
    std::optional<unsigned> mColoreTesto;
    Osservatore mOsservatore;
};
