#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include "register/interface_link.h"

// A register that answers each frame at once, and a link that is connected to it and in force.
class RegistratoreIstantaneo {
  public:
    RegistratoreIstantaneo();
    ~RegistratoreIstantaneo();
    RegistratoreIstantaneo(const RegistratoreIstantaneo&) = delete;
    RegistratoreIstantaneo& operator=(const RegistratoreIstantaneo&) = delete;

    InterfacciaRegCassa& collegamento() { return mCollegamento; }
    // Runs events until everything that was handed over is printed.
    void stampaTutto();

  private:
    QTcpServer mServer;
    InterfacciaRegCassa mCollegamento;
};
