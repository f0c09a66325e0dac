#pragma once

#include <vector>

#include <QString>
#include <QStringList>

#include "kit/campo.h"

class Conto;

// All rows of a movement, of all the sales that share its header; read-only.
class ElencoMovimento {
  public:
    explicit ElencoMovimento(int idMovimento);

    struct Riga {
        QString chiave;  // "DM_" and the row's key
        int extraProg = 0;
        QStringList celle;  // in the order of titoli()
    };

    ElencoCampi elenco;
    Campo lblData{elenco, "lblData"};
    Campo lblNumero{elenco, "lblNumero"};
    Campo lblCodCliente{elenco, "lblCodCliente"};
    Campo lblDescCliente{elenco, "lblDescCliente"};
    Campo lblTotale{elenco, "lblTotale"};

    static const QStringList& titoli();
    // Columns of numbers stand at the right.
    static bool aDestra(int colonna);
    const std::vector<Riga>& righe() const { return mRighe; }

  private:
    // Reads Movimenti and Anagrafiche into the fields; false when there is no such movement.
    bool showVendita();
    // Reads DettagliMovimento into the rows.
    void showDettagli();

    int mIdMovimento;
    std::vector<Riga> mRighe;
};

// The list of the movement on the screen; the row picked there is shown and selected here, with the sale it
// belongs to. Nothing for a sale that is not in the books.
void showMovimento(Conto& conto);
