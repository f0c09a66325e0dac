#pragma once

#include <QString>

// The fiscal register as the books see it.
class CollegamentoRegCassa {
  public:
    virtual ~CollegamentoRegCassa() = default;

    // The register answers; what is handed over while it does not is lost.
    virtual bool statoConnessione() const = 0;
    // Takes the commands of one receipt, parted by "¥"; goes out by itself, without a wait.
    virtual void sendData(const QString& buffer) = 0;
};

// The link in force; before one is set, and after it was taken away, one that is never connected.
CollegamentoRegCassa& collegamentoRegCassa();
void impostaCollegamentoRegCassa(CollegamentoRegCassa* collegamento);
