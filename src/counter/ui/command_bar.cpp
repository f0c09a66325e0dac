#include <QFrame>
#include <QGridLayout>

#include "counter/ui/assembly.h"
#include "counter/ui/command_button.h"
#include "counter/ui/panels.h"
#include "counter/ui/style.h"

namespace {

constexpr int altezzaComando = 58;
constexpr int larghezzaComando = 104;

struct Posto {
    int comando, riga, colonna, righe, colonne;
};
// What is pressed at every sale stands at the right, larger than the rest.
constexpr Posto posti[] = {
    {0, 0, 0, 1, 1},  {1, 0, 1, 1, 1},  {2, 0, 2, 1, 1},  {3, 0, 3, 1, 1},  {5, 0, 4, 1, 1},
    {12, 0, 5, 1, 1}, {14, 0, 6, 1, 1}, {13, 0, 7, 1, 1}, {4, 0, 8, 1, 1},  {6, 0, 9, 1, 1},
    {7, 1, 0, 1, 1},  {8, 1, 1, 1, 1},  {10, 1, 2, 1, 1}, {16, 1, 3, 1, 1}, {17, 1, 4, 1, 1},
    {18, 1, 5, 1, 1}, {19, 1, 6, 1, 1}, {11, 1, 7, 1, 1}, {15, 1, 8, 1, 2}, {9, 0, 10, 2, 1},
};
constexpr int colonnaSalva = 10;

}  // namespace

QWidget* barraComandi(const Montaggio& m, QWidget* padre) {
    auto* barra = new QWidget(padre);
    auto* griglia = new QGridLayout(barra);
    griglia->setContentsMargins(0, 0, 0, 0);
    griglia->setSpacing(spazio);
    for (const Posto& posto : posti) {
        PulsanteComando* pulsante = m.comando(posto.comando, barra);
        pulsante->setMinimumHeight(aMisura(altezzaComando));
        griglia->addWidget(pulsante, posto.riga, posto.colonna, posto.righe, posto.colonne);
    }
    // Equal columns whatever the words.
    for (int c = 0; c < colonnaSalva; ++c) {
        griglia->setColumnStretch(c, 2);
        griglia->setColumnMinimumWidth(c, larghezzaComando);
    }
    griglia->setColumnStretch(colonnaSalva, 3);
    return barra;
}
