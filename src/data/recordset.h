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
    const QVariant& campo(QLatin1StringView nome) const;
    const QVariant& campo(const char* nome) const { return campo(QLatin1StringView(nome)); }
    const QVariant& campo(const QString& nome) const;
    const QVariant& campo(int posizione) const;

    // The field, by name or position, as a plain value; a Null is the neutral one.
    template <class Nome>
    QString testo(const Nome& nome) const {
        return campo(nome).toString();
    }
    template <class Nome>
    int intero(const Nome& nome) const {
        return campo(nome).toInt();
    }
    // A reference; without one -1.
    template <class Nome>
    int chiave(const Nome& nome) const {
        return campo(nome).isNull() ? -1 : intero(nome);
    }
    template <class Nome>
    bool vero(const Nome& nome) const {
        return campo(nome).toDouble() != 0.0;
    }
    template <class Nome>
    double reale(const Nome& nome) const {
        return campo(nome).toDouble();
    }
    template <class Nome>
    float single(const Nome& nome) const {
        return static_cast<float>(campo(nome).toDouble());
    }
    // Exact from a text of digits; a number with more digits than a double has comes as one.
    template <class Nome>
    Currency importo(const Nome& nome) const {
        return importoDi(campo(nome));
    }

  private:
    static Currency importoDi(const QVariant& valore);

    QStringList mColonne;
    std::vector<QVariant> mCelle;  // row by row
    int mRiga = 0;
};
