#pragma once

#include <functional>

#include <QString>

#include "core/operator_port.h"

// What the start needs of the windows. Every function must be set.
struct PortiAvvio {
    OperatorPort& operatore;
    // False when another client of the same settings runs; it has then been called to the front.
    std::function<bool()> primaIstanza;
    // The waiting window.
    std::function<void(const QString&)> mostraInfo;
    std::function<void()> nascondiInfo;
    // The options screen, to repair the settings.
    std::function<void()> apriOpzioni;
    // The first counter screen.
    std::function<void()> apriPrimoConto;
    // The register link.
    std::function<void()> setRegCassa;
};

// Brings the client up, from the single instance to the first screen. False when the process has to end:
// a previous instance runs, the archive cannot be reached, or an error was reported.
bool Main(const PortiAvvio& porti);

// Ends the process at once, whatever is open: an open transaction is rolled back by the archive.
[[noreturn]] void chiudiApplicazione();

// The caption of every counter screen.
QString titoloFinestra();
