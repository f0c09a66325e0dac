#pragma once

#include <QColor>

class QApplication;

// The look of the till: one palette, one sheet.
namespace tinte {
constexpr QRgb sfondo = 0xFFE6ECF2;
constexpr QRgb pannello = 0xFFFFFFFF;
constexpr QRgb alternata = 0xFFF1F5F9;
constexpr QRgb bordo = 0xFF93A4B5;
constexpr QRgb bordoTenue = 0xFFCBD5DF;
constexpr QRgb testo = 0xFF10202E;
constexpr QRgb testoTenue = 0xFF44576A;
constexpr QRgb accento = 0xFF0B5CAD;
constexpr QRgb accentoScuro = 0xFF083F78;
constexpr QRgb barra = 0xFF16293B;
constexpr QRgb display = 0xFF0D1C2B;
constexpr QRgb displayTenue = 0xFFB7C7D6;
constexpr QRgb bianco = 0xFFFFFFFF;
constexpr QRgb conferma = 0xFF13713A;
constexpr QRgb confermaPremuta = 0xFF0C4F28;
constexpr QRgb pericolo = 0xFFB3261E;
constexpr QRgb avviso = 0xFFFFC857;
constexpr QRgb selezione = 0xFFC0C0FF;
constexpr QRgb cambiato = 0xFF8A4B00;
}  // namespace tinte

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
constexpr char lampada[] = "lampada";
constexpr char principale[] = "principale";
constexpr char distruttivo[] = "distruttivo";
}  // namespace ruoli

// Distances between and inside panels, in pixels.
constexpr int spazio = 6;

void applicaStile(QApplication& applicazione);
