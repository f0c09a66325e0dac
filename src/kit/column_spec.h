#pragma once

#include <vector>

#include <QString>
#include <QVariant>

// The columns of a list as the screens ask for them: columns parted by "|", the parts of one by "¤".

struct ColonnaElenco {
    QString titolo;     // without the sign of its alignment
    QChar allineata;    // '<' left, '>' right, '^' centre; null when nothing is said
    int larghezza = 0;  // twips; 0 hides the column
    QString campo;      // the field that it shows, where a third part names one
};

// One column for each piece, an empty one too.
std::vector<ColonnaElenco> getAddInfoCOls(const QString& specifica);

// Widths are in twips and were made for small type; so many are a pixel of the program's type.
constexpr int twipPerPixel = 10;

// A field of a recordset as a list shows it: dates as DD/MM/YYYY, numbers with the decimal comma.
QString testoCampo(const QVariant& valore);
