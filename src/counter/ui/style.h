#pragma once

#include <QColor>

class QApplication;

// The look of the till: one palette, one sheet, in a light and a dark scheme. The colours are those of the
// scheme in force.
namespace tinte {
inline QRgb sfondo, pannello, alternata, bordo, bordoTenue, testo, testoTenue, accento, accentoScuro, barra,
    display, displayTenue, conferma, confermaPremuta, pericolo, avviso, selezione, cambiato, reso;
// Alike in both: ink on what is painted in a colour of its own.
constexpr QRgb bianco = 0xFFFFFFFF;
constexpr QRgb inchiostro = 0xFF10202E;
}  // namespace tinte

// How this workstation wants to see it: settings Tema ("scuro", else light) and CarattereGrande ("1"),
// section Client.
struct Aspetto {
    bool scuro = false;
    bool carattereGrande = false;
    int larghezzaSchermo = 0;  // in pixels; 0: the first screen's own
};
Aspetto aspettoImpostato();

// Parts of a panel that the sheet tells apart by the dynamic property "ruolo".
namespace ruoli {
constexpr char proprieta[] = "ruolo";
constexpr char pannello[] = "pannello";
constexpr char barra[] = "barra";
constexpr char display[] = "display";
constexpr char didascalia[] = "didascalia";
constexpr char valore[] = "valore";
constexpr char titolo[] = "titolo";
constexpr char allarme[] = "allarme";
constexpr char avviso[] = "avviso";
constexpr char salvata[] = "salvata";
constexpr char chiusa[] = "chiusa";
constexpr char sospesa[] = "sospesa";
constexpr char lampada[] = "lampada";
constexpr char principale[] = "principale";
constexpr char distruttivo[] = "distruttivo";
}  // namespace ruoli

// A width or height that is right for the normal type, in the type in force.
int aMisura(int pixel);

// Distances between and inside panels, in pixels.
constexpr int spazio = 6;

void applicaStile(QApplication& applicazione, Aspetto aspetto);
