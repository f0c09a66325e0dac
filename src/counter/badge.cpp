#include "counter/badge.h"

#include "counter/accounts.h"
#include "counter/operator_entry.h"

namespace {

constexpr int attesaTasto = 200;  // milliseconds; behind its prefix a slow scanner is still one

QString prendiCodice(Conto& conto) {
    conto.fermaTimer(SchermoVendita::Timer::Badge);
    return std::exchange(conto.badge, std::nullopt).value_or(QString());
}

void entraBadge(Conto& conto, const QString& codice) {
    if (codice.isEmpty() || cercaVenditore(conto, codice) == EsitoVenditore::NonTrovato)
        chiediVenditore(conto, {codice, !codice.isEmpty()});
}

}  // namespace

void iniziaBadge(Conto& conto) {
    conto.badge = QString();
    conto.avviaTimer(SchermoVendita::Timer::Badge, attesaTasto);
}

void tastoDiBadge(Conto& conto, QChar carattere) {
    if (carattere == u'\r' || carattere == u'\t') return entraBadge(conto, prendiCodice(conto));
    conto.badge = conto.badge.value_or(QString()) + carattere;
    conto.avviaTimer(SchermoVendita::Timer::Badge, attesaTasto);
}

void badgeInterrotto(Conto& conto) {
    const QString codice = prendiCodice(conto);
    if (!codice.isEmpty()) entraBadge(conto, codice);
}

void TimerBadge_Timer(Conto& conto) {
    chiediVenditore(conto, {prendiCodice(conto), false});
}
