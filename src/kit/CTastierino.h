#pragma once

#include <functional>

#include <QString>

// The on-screen keypad: turns a pressed key into an action on the typed box that has the focus
// (mTextBoxCorrente). Keys: "0" to "9", "," the decimal comma, "C" empties the box, "D" takes its last
// character, "I" confirms.
class CTastierino {
  public:
    // Runs after Invio, so that the form can react.
    void evtInvio(std::function<void()> evento) { mInvio = std::move(evento); }

    // Any other key, and any error, does nothing.
    void sendTasto(const QString& tasto) const;

  private:
    std::function<void()> mInvio;
};
