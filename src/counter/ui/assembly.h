#pragma once

#include <functional>
#include <optional>

#include <QBoxLayout>
#include <QString>

class Campo;
class CampoEdit;
class PulsanteComando;
class QCheckBox;
class QFrame;
class QLabel;
class QWidget;
struct Vendita;

// What the operator does on a counter screen, as its panels hand it on.
struct EventiSchermo {
    std::function<std::optional<QChar>(Campo&, QChar)> tasto;
    std::function<void(int)> comando;
    std::function<void(int)> conto;
    std::function<void()> operatore;
    std::function<void()> aggiungiRiga;
    std::function<void()> regCassa;
    std::function<void(Campo&, bool)> spunta;
    std::function<void(int)> alternativo;
    std::function<void()> pagamento;  // double click on the payment reason
};

// Makes the widgets of a screen, each bound to its field in one call.
class Montaggio {
  public:
    Montaggio(Vendita& vendita, EventiSchermo eventi) : v(vendita), mEventi(std::move(eventi)) {}

    const EventiSchermo& eventi() const { return mEventi; }

    CampoEdit* campo(Campo& campo, const QString& nomeAccessibile, QWidget* padre) const;
    QCheckBox* spunta(Campo& campo, const QString& testo, QWidget* padre) const;
    PulsanteComando* comando(int indice, QWidget* padre) const;
    // A button of an account, or one that leads to a field and stands before it in place of a caption.
    PulsanteComando* conto(int indice, QWidget* padre) const;
    // A button of its own name.
    PulsanteComando* pulsante(Campo& campo, const std::function<void()>& premuto, QWidget* padre) const;
    // What a field says, shortened where there is no room.
    QLabel* testo(Campo& campo, const QString& nomeAccessibile, QWidget* padre) const;
    // A light with words of its own.
    QLabel* spia(Campo& campo, const QString& testo, const char* ruolo, QWidget* padre) const;

    Vendita& v;

  private:
    EventiSchermo mEventi;
};

// A light that leaves its place free while it is out, so that nothing around it moves.
QLabel* postoFisso(QLabel* spia);
void alDoppioClic(QWidget* widget, std::function<void()> azione);
QFrame* nuovoPannello(const char* ruolo, QWidget* padre);
QLabel* nuovaDidascalia(const QString& testo, const char* ruolo, QWidget* padre);
// A row or column without margins of its own.
template <class Disposizione>
Disposizione* nuovaDisposizione(int distanza) {
    auto* nuova = new Disposizione;
    nuova->setContentsMargins(0, 0, 0, 0);
    nuova->setSpacing(distanza);
    return nuova;
}
