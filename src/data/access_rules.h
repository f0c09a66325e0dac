#pragma once

#include <vector>

#include <QString>

#include "data/access_tokens.h"

// The rules that turn Access SQL into a server's, each over the tokens of one statement. They leave their
// changes here; the statement is written once, at the end.
namespace dialetto {

class Modifiche {
  public:
    // Where several pieces meet at one position: what ends stands before what begins.
    enum Ordine { FineEspressione, FineClausola, FineSelect, Inizio, Sostituzione };

    void sostituisci(const Token& token, QString testo) {
        mModifiche.push_back({token.inizio, Sostituzione, token.testo.size(), std::move(testo)});
    }
    // From the first token to the end of the last one, with all that stands between them.
    void sostituisci(const Token& primo, const Token& ultimo, QString testo) {
        mModifiche.push_back({primo.inizio, Sostituzione, ultimo.fine() - primo.inizio, std::move(testo)});
    }
    void primaDi(const Token& token, QString testo) {
        mModifiche.push_back({token.inizio, Inizio, 0, std::move(testo)});
    }
    void dopo(const Token& token, Ordine ordine, QString testo) {
        mModifiche.push_back({token.fine(), ordine, 0, std::move(testo)});
    }

    // The statement with all changes made; the statement itself when there are none.
    QString applica(const QString& sql);

  private:
    struct Modifica {
        qsizetype posizione;
        Ordine ordine;
        qsizetype lunghezza;
        QString testo;
    };
    std::vector<Modifica> mModifiche;
};

// TOP becomes LIMIT at the end of its own SELECT; a HAVING that filters rows becomes a WHERE.
void regoleSelect(const std::vector<Token>& token, Modifiche& modifiche);
// The HAVING of regoleSelect alone, for a server that knows TOP.
void regolaHaving(const std::vector<Token>& token, Modifiche& modifiche);
// Chains of "&" become CONCAT, ISNULL of one argument becomes IS NULL.
void regoleEspressioni(const std::vector<Token>& token, Modifiche& modifiche);
// A LIKE with a known beginning also gets the range of that beginning, so that an index serves it.
void regolaLike(const std::vector<Token>& token, Modifiche& modifiche);

}  // namespace dialetto
