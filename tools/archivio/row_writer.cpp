#include "archivio/row_writer.h"

#include <algorithm>

#include <QStringList>

#include "archivio/column_value.h"
#include "core/run_time_error.h"

namespace {

[[noreturn]] void manca(const QString& cosa) {
    throw RunTimeError(RunTimeError::ErroreApplicazione, "Tabella o colonna inesistente: " + cosa);
}

const schema::Tabella& cercaTabella(const QString& nome) {
    const auto& tutte = schema::tabelle();
    const auto trovata = std::find_if(tutte.begin(), tutte.end(), [&](const schema::Tabella& t) {
        return t.nome.compare(nome, Qt::CaseInsensitive) == 0;
    });
    if (trovata == tutte.end()) manca(nome);
    return *trovata;
}

const schema::Colonna* cercaColonna(const schema::Tabella& tabella, const QString& nome) {
    const auto trovata = std::find_if(tabella.colonne.begin(), tabella.colonne.end(), [&](const auto& c) {
        return c.nome.compare(nome, Qt::CaseInsensitive) == 0;
    });
    if (trovata == tabella.colonne.end()) manca(tabella.nome + "." + nome);
    return &*trovata;
}

}  // namespace

QString TabellaScritta::elencoColonne() const {
    QStringList nomi;
    for (const schema::Colonna* c : colonne)
        nomi << c->nome;
    return nomi.join(", ");
}

const TabellaScritta& Scrittore::tabella(const QString& nome, const QStringList& colonne) {
    std::unique_ptr<TabellaScritta>& posto = mTabelle[nome + "(" + colonne.join(',')];
    if (!posto) {
        auto nuova = std::make_unique<TabellaScritta>();
        nuova->tabella = &cercaTabella(nome);
        for (const QString& colonna : colonne)
            nuova->colonne.push_back(cercaColonna(*nuova->tabella, colonna));
        posto = std::move(nuova);
    }
    return *posto;
}

const TabellaScritta& Scrittore::tabella(const schema::Tabella& intera) {
    QStringList colonne;
    for (const schema::Colonna& c : intera.colonne)
        colonne << c.nome;
    return tabella(intera.nome, colonne);
}

void Scrittore::scrivi(const TabellaScritta& dove, const std::vector<QVariant>& valori) {
    mEsatti.clear();
    for (size_t i = 0; i < valori.size(); ++i)
        mEsatti.push_back(valoreEsatto(*dove.colonne.at(i), valori[i]));
    scriviEsatti(dove, mEsatti);
}

qint64 Scrittore::inserisci(const char* nome, const Riga& riga) {
    QStringList colonne{cercaTabella(nome).colonne.front().nome};
    std::vector<QVariant> valori{nuovaChiave(nome)};
    for (const auto& [colonna, valore] : riga) {
        colonne << colonna;
        valori.push_back(valore);
    }
    scrivi(tabella(nome, colonne), valori);
    return valori.front().toLongLong();
}
