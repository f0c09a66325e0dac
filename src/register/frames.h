#pragma once

#include <QString>

// The frames of the register's wire: STX, the command, its checksum, ETX. Nothing is escaped: a command that
// holds one of the marks breaks its frame.

// The module's name in error reports.
inline const char* const moduloFrmRegCassa = "frmRegCassa";

constexpr QChar mSTX(u'\x02');
constexpr QChar mETX(u'\x03');
constexpr QChar mACK(u'\x06');
constexpr QChar mNAK(u'\x15');
// Between the commands of one receipt as they are handed over; never on the wire.
constexpr QChar mSepComandi(u'\u00A5');

// The last two digits of the sum of the characters' codes in the wire's code page; one digit when the sum is
// below 10. A sum beyond 32 bits is reported as "getCKS" and gives an empty text.
QString getCKS(const QString& testo);

QString cornice(const QString& comando);

// The frames of a text of commands: a "RST" first, then one for each command, empty ones too. Empty for a
// single command, which is no receipt; an empty text is no command at all, and gives the "RST" alone.
QString corniciDi(const QString& comandi);

// How many pieces the pump makes of such a text.
qsizetype numeroCornici(const QString& cornici);

// Where the first frame ends, counted from 1: at the first ACK, NAK or ETX. 0 when the text is empty or its
// end is not within 9999 characters. A mark whose position is beyond 16 bits is reported as "getPosEOB" and
// gives 0.
int getPosEOB(const QString& testo);

// The text with names for its marks: "<STX>", "<ETX>", "<ACK>", "<NAK>".
QString conNomi(QString testo);
