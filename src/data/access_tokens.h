#pragma once

#include <vector>

#include <QString>
#include <QStringView>

// The words of Access SQL. Blanks and comments are no tokens: they stay between the tokens as they are.
namespace dialetto {

enum class Tipo {
    Parola,       // keyword, function or plain name
    Nome,         // [name] or `name`
    Testo,        // 'text', with '' for one quote
    TestoDoppio,  // "text", with "" for one mark
    Numero,
    Data,     // #MM/DD/YYYY hh:nn:ss#
    Simbolo,  // an operator or a mark of one or two characters
};

struct Token {
    Tipo tipo;
    QStringView testo;
    qsizetype inizio;  // position in the statement
    // A word of up to 8 ASCII letters, in upper case, as a number; 0 for everything else.
    quint64 chiave;

    qsizetype fine() const { return inizio + testo.size(); }
    bool simbolo(char16_t c) const {
        return tipo == Tipo::Simbolo && testo.size() == 1 && testo.front() == c;
    }
};

// The key of a word, to compare with Token::chiave.
constexpr quint64 parola(const char* maiuscola) {
    quint64 chiave = 0;
    for (; *maiuscola != '\0'; ++maiuscola)
        chiave = chiave << 8 | static_cast<unsigned char>(*maiuscola);
    return chiave;
}

// The tokens point into `sql`, which must outlive them. A text or a name without its end goes to the end
// of the statement.
std::vector<Token> tokenizza(const QString& sql);

}  // namespace dialetto
