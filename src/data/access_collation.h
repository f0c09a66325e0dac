#pragma once

#include <string_view>

// How code and name columns compare: without regard to case, accents and trailing blanks, as the servers
// do by default. Texts are UTF-8; bytes that are none order behind every character.
namespace dialetto {

// The code point of a letter without case and accents; 0 for an accent by itself, which plays no part.
char32_t piega(char32_t carattere);

// Below, equal to or above 0. A total order of the folded texts, on which indexes rest.
int confronta(std::string_view a, std::string_view b);

// LIKE: "%" any text, "_" one character, both literal behind `fuga` (0 for none). Trailing blanks count.
bool somiglia(std::string_view modello, std::string_view testo, char32_t fuga = 0);

}  // namespace dialetto
