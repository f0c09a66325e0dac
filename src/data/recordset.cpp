#include "data/recordset.h"

#include "core/numbers.h"
#include "core/run_time_error.h"

Recordset::Recordset(QStringList colonne, std::vector<QVariant> celle)
    : mColonne(std::move(colonne)), mCelle(std::move(celle)) {}

const QVariant& Recordset::campo(const QString& nome) const {
    for (int i = 0; i < mColonne.size(); ++i) {
        if (mColonne[i].compare(nome, Qt::CaseInsensitive) == 0) return campo(i);
    }
    throw RunTimeError(RunTimeError::CampoInesistente, "Campo inesistente: " + nome);
}

const QVariant& Recordset::campo(int posizione) const {
    if (posizione < 0 || posizione >= campi() || mRiga < 0 || eof()) {
        throw RunTimeError(RunTimeError::CampoInesistente, "Nessun record corrente o campo inesistente");
    }
    return mCelle[static_cast<size_t>(mRiga) * static_cast<size_t>(campi()) + static_cast<size_t>(posizione)];
}

Currency Recordset::importo(const QString& nome) const {
    const QVariant& valore = campo(nome);
    if (valore.typeId() == QMetaType::QString) {
        const auto esatto = seCurrency(valore.toString().replace('.', ','));
        if (esatto) return *esatto;
    }
    return Currency::daDouble(valore.toDouble());
}
