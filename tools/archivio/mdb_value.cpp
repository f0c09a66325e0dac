#include "archivio/mdb_value.h"

#include <charconv>

#include <QRegularExpression>

#include "archivio/mdb_tools.h"
#include "core/run_time_error.h"

namespace {

using schema::Tipo;

// mdb-export writes a number of single precision with eight decimals, one of double precision with sixteen.
bool singolaPrecisione(const QString& numero) {
    static const QRegularExpression forma(R"(^-?\d\.\d{8}e[+-]\d+$)");
    return forma.match(numero).hasMatch();
}

template <class Numero>
QString piuBreve(Numero numero) {
    char cifre[64];
    const auto fine = std::to_chars(cifre, cifre + sizeof cifre, numero);
    return QString::fromLatin1(cifre, fine.ptr - cifre);
}

// "1.20000005e+00" as the 1.2 that somebody typed.
QString numeroLeggibile(const QString& numero) {
    bool valido = false;
    if (singolaPrecisione(numero)) {
        const float singolo = numero.toFloat(&valido);
        return valido ? piuBreve(singolo) : numero;
    }
    if (!numero.contains('e')) return numero;
    const double doppio = numero.toDouble(&valido);
    return valido ? piuBreve(doppio) : numero;
}

}  // namespace

QVariant valoreMdb(const CampoCsv& campo, const schema::Colonna& colonna) {
    if (campo.nullo()) return {};
    if (campo.traVirgolette) {
        if (campo.testo.toUtf8().size() >= testoMdbMassimo)
            throw RunTimeError(RunTimeError::TipoNonCorrispondente,
                               colonna.nome + ": il testo è troppo lungo, mdb-export lo ha tagliato");
        return campo.testo;
    }
    if (colonna.tipo == Tipo::Flag && campo.testo == "-1") return 1;
    return numeroLeggibile(campo.testo);
}
