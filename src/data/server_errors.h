#pragma once

#include <algorithm>
#include <iterator>
#include <span>

#include "data/server_driver.h"

// What a native code of a server means.
struct SignificatoErrore {
    int codice;
    ErroreServer::Classe classe;
    const char* testo;  // plain Italian where the reader can do something about it; nullptr: the server's own
};

// The first meaning that one of the codes has; nullptr for none.
template <class Codici>
const SignificatoErrore* cercaSignificato(std::span<const SignificatoErrore> tavola, const Codici& codici) {
    const auto trovato = std::find_if(tavola.begin(), tavola.end(), [&](const SignificatoErrore& s) {
        return std::find(std::begin(codici), std::end(codici), s.codice) != std::end(codici);
    });
    return trovato == tavola.end() ? nullptr : &*trovato;
}

// The plain text with the server's own behind it. Without a meaning: class Altro, code `codice`.
ErroreServer comeErroreServer(const SignificatoErrore* significato, int codice, const QString& testoServer,
                              const char* origine);
