#pragma once

#include <QChar>

class Conto;

// An operator's badge, as a scanner types it behind its prefix and VenditoreChar. Its keys come faster than a
// window opens: they are kept together, and the dialogue opens only where there is something to ask.

// The mark has come. Until the badge ends all characters are its own.
void iniziaBadge(Conto& conto);
// A character of it; Enter '\r' and Tab '\t' end it. Always consumed.
void tastoDiBadge(Conto& conto, QChar carattere);
// Ended by the prefix of the next scan.
void badgeInterrotto(Conto& conto);
// No key has followed: the mark was typed by a hand, or the scanner sends no Enter.
void TimerBadge_Timer(Conto& conto);
