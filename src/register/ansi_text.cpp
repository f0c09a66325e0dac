#include "register/ansi_text.h"

#include <algorithm>
#include <array>

namespace {

// Bytes 0x80 to 0x9F; the rest of the page is Latin-1. The five unused ones stand for themselves.
constexpr std::array<char16_t, 32> partePropria{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr char16_t inizioParte = 0x80;
constexpr char16_t fineParte = inizioParte + partePropria.size();

char byteDi(char16_t c) {
    if (c < inizioParte || (c >= fineParte && c <= 0xFF)) return static_cast<char>(c);
    const auto trovato = std::find(partePropria.begin(), partePropria.end(), c);
    if (trovato == partePropria.end()) return '?';
    return static_cast<char>(inizioParte + (trovato - partePropria.begin()));
}

char16_t carattereDi(char byte) {
    const auto codice = static_cast<unsigned char>(byte);
    return codice >= inizioParte && codice < fineParte ? partePropria[codice - inizioParte] : codice;
}

}  // namespace

QByteArray inAnsi(QStringView testo) {
    QByteArray byte(testo.size(), Qt::Uninitialized);
    std::transform(testo.utf16(), testo.utf16() + testo.size(), byte.begin(), byteDi);
    return byte;
}

QString daAnsi(const QByteArray& byte) {
    QString testo(byte.size(), Qt::Uninitialized);
    std::transform(byte.begin(), byte.end(), testo.begin(), [](char b) { return QChar(carattereDi(b)); });
    return testo;
}
