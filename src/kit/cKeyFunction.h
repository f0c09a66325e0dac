#pragma once

#include <functional>

class Campo;

// Passes function keys on, from the field or dialogue that has the keyboard to whoever acts on them. F3 to F7
// only: the others are commands of the counter's screen, or nobody's.
class cKeyFunction {
  public:
    // Hears a key: Qt::Key, Qt::KeyboardModifiers, and the field it came from, if any.
    using Evento = std::function<void(int keyCode, int shift, Campo* source)>;
    void evtFunctionKey(Evento evento) { mEvento = std::move(evento); }

    void setFunctionKey(int keyCode, int shift, Campo* source) const;

  private:
    Evento mEvento;
};
