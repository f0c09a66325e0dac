#pragma once

#include <vector>

#include <QString>
#include <QStringList>
#include <QVariant>

#include "core/currency.h"

// The rows of a query, all held by the client, with a current row. Fields are addressed by name without
// regard to case, or by position from 0. A Null is a null QVariant; numbers are qlonglong or double, or their
// text where a double would lose digits; texts QString, date columns QDateTime.
class Recordset {
  public:
    Recordset() = default;
    Recordset(QStringList colonne, std::vector<QVariant> celle);

    bool eof() const { return mRiga >= righe(); }
    int righe() const { return mColonne.isEmpty() ? 0 : static_cast<int>(mCelle.size()) / campi(); }
    int campi() const { return static_cast<int>(mColonne.size()); }
    const QStringList& colonne() const { return mColonne; }

    void moveFirst() { mRiga = 0; }
    void moveLast() { mRiga = righe() > 0 ? righe() - 1 : 0; }
    void moveNext() { ++mRiga; }
    void movePrevious() { --mRiga; }
    bool bof() const { return mRiga < 0 || righe() == 0; }

    // The field of the current row. No current row or no such field: RunTimeError 3265.
    const QVariant& campo(const QString& nome) const;
    const QVariant& campo(int posizione) const;

    // The field as a plain value; a Null is the neutral one.
    QString testo(const QString& nome) const { return campo(nome).toString(); }
    int intero(const QString& nome) const { return campo(nome).toInt(); }
    bool vero(const QString& nome) const { return campo(nome).toDouble() != 0.0; }
    double reale(const QString& nome) const { return campo(nome).toDouble(); }
    float single(const QString& nome) const { return static_cast<float>(campo(nome).toDouble()); }
    // Exact from a text of digits; a number with more digits than a double has comes as one.
    Currency importo(const QString& nome) const;

  private:
    QStringList mColonne;
    std::vector<QVariant> mCelle;  // row by row
    int mRiga = 0;
};
