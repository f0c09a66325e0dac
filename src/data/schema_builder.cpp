#include "data/schema_builder.h"

#include <algorithm>

namespace schema {
namespace {

Colonna semplice(const QString& nome, Tipo tipo, const QString& predefinito = {}) {
    Colonna c;
    c.nome = nome;
    c.tipo = tipo;
    c.predefinito = predefinito;
    return c;
}

// The longest name that MySQL takes.
constexpr int nomeMassimo = 64;

Indice indiceSu(const Tabella& tabella, const QStringList& colonne) {
    QString parti = colonne.join('_');
    parti.remove('(').remove(')');
    return {("IX_" + tabella.nome + "_" + parti).left(nomeMassimo), colonne, false};
}

bool guidaUnIndice(const Tabella& tabella, const QString& colonna) {
    return std::any_of(tabella.indici.begin(), tabella.indici.end(),
                       [&](const Indice& i) { return i.colonne.first() == colonna; });
}

}  // namespace

Colonna chiave(const QString& nome) {
    return semplice(nome, Tipo::Chiave);
}
Colonna intero(const QString& nome) {
    return semplice(nome, Tipo::Intero);
}
Colonna flag(const QString& nome) {
    return semplice(nome, Tipo::Flag, "0");
}
Colonna importo(const QString& nome) {
    return semplice(nome, Tipo::Importo, "0");
}
Colonna reale(const QString& nome) {
    return semplice(nome, Tipo::Reale, "0");
}
Colonna note(const QString& nome) {
    return semplice(nome, Tipo::Note);
}
Colonna dataOra(const QString& nome) {
    return semplice(nome, Tipo::DataOra);
}
Colonna ora(const QString& nome) {
    return semplice(nome, Tipo::Ora);
}

Colonna testo(const QString& nome, int lunghezza) {
    Colonna c = semplice(nome, Tipo::Testo);
    c.lunghezza = lunghezza;
    return c;
}

Colonna rif(const QString& nome, const QString& tabella) {
    Colonna c = semplice(nome, Tipo::Intero);
    c.riferimento = tabella;
    return c;
}

Colonna obbligatoria(Colonna colonna) {
    colonna.obbligatoria = true;
    return colonna;
}

Tabella tabella(const QString& nome, std::vector<Colonna> colonne, const std::vector<QStringList>& indici) {
    colonne.insert(colonne.begin(), chiave());
    return tabellaConChiave(nome, std::move(colonne), indici);
}

Tabella tabellaConChiave(const QString& nome, std::vector<Colonna> colonne,
                         const std::vector<QStringList>& indici) {
    Tabella t{nome, std::move(colonne), {}};
    for (const QStringList& colonneIndice : indici)
        t.indici.push_back(indiceSu(t, colonneIndice));
    for (const Colonna& c : t.colonne) {
        if (!c.riferimento.isEmpty() && !guidaUnIndice(t, c.nome)) t.indici.push_back(indiceSu(t, {c.nome}));
    }
    return t;
}

void unico(Tabella& tabella, const QStringList& colonne) {
    Indice indice = indiceSu(tabella, colonne);
    indice.unico = true;
    tabella.indici.push_back(std::move(indice));
}

}  // namespace schema
