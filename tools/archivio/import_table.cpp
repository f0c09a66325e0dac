#include "archivio/import_table.h"

#include <algorithm>

#include "archivio/mdb_value.h"
#include "core/run_time_error.h"

namespace {

// More than a person reads at once.
constexpr qsizetype motiviMassimi = 20;

}  // namespace

void EsitoTabella::rifiuta(const QString& motivo) {
    ++rifiutate;
    if (motivi.size() < motiviMassimi) motivi << motivo;
}

void ImportazioneTabella::intestazione(const RigaCsv& campi) {
    const auto postoDi = [&](const QString& nome) {
        const auto trovato = std::find_if(campi.begin(), campi.end(), [&](const CampoCsv& c) {
            return c.testo.compare(nome, Qt::CaseInsensitive) == 0;
        });
        return static_cast<size_t>(trovato - campi.begin());
    };
    QStringList colonne;
    for (const schema::Colonna& c : mTabella.colonne) {
        const size_t posto = postoDi(c.nome);
        const bool manca = posto == campi.size();
        if (c.tipo == schema::Tipo::Chiave && manca) mSenzaChiave = true;
        if (manca) mEsito.mancanti << c.nome;
        if (manca && c.tipo != schema::Tipo::Chiave) continue;
        colonne << c.nome;
        if (!manca) mPosti.push_back(posto);
    }
    for (size_t i = 0; i < campi.size(); ++i) {
        if (std::find(mPosti.begin(), mPosti.end(), i) == mPosti.end()) mEsito.ignote << campi[i].testo;
    }
    mDove = &mScrittore.tabella(mTabella.nome, colonne);
}

void ImportazioneTabella::pretendiObbligatorie() const {
    for (size_t i = 0; i < mValori.size(); ++i) {
        const schema::Colonna& c = *mDove->colonne[i];
        const bool serve = c.obbligatoria || c.tipo == schema::Tipo::Chiave;
        if (serve && mValori[i].isNull())
            throw RunTimeError(RunTimeError::TipoNonCorrispondente, c.nome + ": manca");
    }
}

void ImportazioneTabella::riga(const RigaCsv& campi) {
    if (mDove == nullptr) return intestazione(campi);
    mValori.clear();
    if (mSenzaChiave) mValori.push_back(mScrittore.nuovaChiave(mTabella.nome));
    try {
        for (const size_t posto : mPosti)
            mValori.push_back(valoreMdb(campi.at(posto), *mDove->colonne[mValori.size()]));
        pretendiObbligatorie();
        mScrittore.scrivi(*mDove, mValori);
        ++mEsito.righe;
    } catch (const RunTimeError& errore) {
        mEsito.rifiuta("riga " + campi.front().testo + ": " + errore.descrizione());
    }
}
