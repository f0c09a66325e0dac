#include "data/recordset.h"

#include "core/numbers.h"
#include "core/run_time_error.h"

namespace {

// Called for every cell that is read, and most columns are another one: their first letters tell.
bool stessoNome(QStringView colonna, QLatin1StringView nome) {
    if (colonna.size() != nome.size()) return false;
    for (qsizetype i = 0; i < nome.size(); ++i) {
        const char16_t a = colonna[i].unicode();
        const char16_t b = QChar(nome[i]).unicode();
        if (a != b && QChar::toCaseFolded(a) != QChar::toCaseFolded(b)) return false;
    }
    return true;
}

}  // namespace

Recordset::Recordset(QStringList colonne, std::vector<QVariant> celle)
    : mColonne(std::move(colonne)), mCelle(std::move(celle)) {}

const QVariant& Recordset::campo(QLatin1StringView nome) const {
    for (int i = 0; i < mColonne.size(); ++i) {
        if (stessoNome(mColonne[i], nome)) return campo(i);
    }
    throw RunTimeError(RunTimeError::CampoInesistente, "Campo inesistente: " + QString(nome));
}

const QVariant& Recordset::campo(const QString& nome) const {
    return campo(QLatin1StringView(nome.toLatin1()));
}

const QVariant& Recordset::campo(int posizione) const {
    if (posizione < 0 || posizione >= campi() || mRiga < 0 || eof()) {
        throw RunTimeError(RunTimeError::CampoInesistente, "Nessun record corrente o campo inesistente");
    }
    return mCelle[static_cast<size_t>(mRiga) * static_cast<size_t>(campi()) + static_cast<size_t>(posizione)];
}

Currency Recordset::importoDi(const QVariant& valore) {
    if (valore.typeId() == QMetaType::QString) {
        const auto esatto = seCurrency(valore.toString().replace('.', ','));
        if (esatto) return *esatto;
    }
    return Currency::daDouble(valore.toDouble());
}
