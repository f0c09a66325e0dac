#include "postings/lost_save.h"

#include <algorithm>

#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "data/schema.h"
#include "postings/row_statements.h"
#include "sale/vendita.h"

namespace {

// The stock gives it out during the save; it follows from the rest of the row.
const char* const colonnaTaglio = "Taglio";

QString sorgente() {
    return gNomeModulo + ".salvaVendita";
}

const schema::Tabella& tabella(const char* nome) {
    const auto& tutte = schema::tabelle();
    return *std::find_if(tutte.begin(), tutte.end(),
                         [&](const schema::Tabella& t) { return t.nome == QLatin1String(nome); });
}

schema::Tipo tipoDi(const schema::Tabella& tabella, const QString& nome) {
    return std::find_if(
               tabella.colonne.begin(), tabella.colonne.end(),
               [&](const schema::Colonna& c) { return c.nome.compare(nome, Qt::CaseInsensitive) == 0; })
        ->tipo;
}

// A value of the books as a save would write it.
QString comeScritto(const Recordset& letta, const QString& colonna, schema::Tipo tipo) {
    if (letta.campo(colonna).isNull()) return "Null";
    switch (tipo) {
        case schema::Tipo::Importo:
            return getSqlNumber(letta.importo(colonna));
        case schema::Tipo::Reale:
            return getSqlNumber(letta.campo(colonna));
        case schema::Tipo::Testo:
        case schema::Tipo::Note:
            return testoSQL(letta.testo(colonna));
        case schema::Tipo::DataOra:
            return gAdo.getSQLDate(letta.campo(colonna));
        default:
            return letta.testo(colonna);
    }
}

bool contiene(const Recordset& letta, const RigaScritta& scritta, const schema::Tabella& tabella) {
    return std::all_of(scritta.begin(), scritta.end(), [&](const auto& colonna) {
        return comeScritto(letta, colonna.first, tipoDi(tabella, colonna.first)) == colonna.second;
    });
}

QString nomi(const RigaScritta& riga) {
    QStringList colonne;
    for (const auto& [colonna, valore] : riga)
        colonne << colonna;
    return colonne.join(", ");
}

std::optional<bool> testataRegistrata(const SalvataggioIncerto& s) {
    const Lettura m(
        "SELECT " + nomi(s.testata) + " FROM Movimenti WHERE RID = " + QString::number(s.idMovimento),
        sorgente());
    if (!m) return std::nullopt;
    return m.trovata() && contiene(*m, s.testata, tabella("Movimenti"));
}

// The rows are there as they were written, and no others.
bool coincidono(Recordset& lette, const RigheSalvate& attese) {
    const schema::Tabella& dettagli = tabella("DettagliMovimento");
    std::vector<RigaScritta> mancanti = attese.nuove;
    size_t mutate = 0;
    for (; !lette.eof(); lette.moveNext()) {
        const int rid = lette.intero("RID");
        if (attese.cancellate.contains(rid)) return false;
        const auto mutata = attese.mutate.find(rid);
        if (mutata != attese.mutate.end() && contiene(lette, mutata->second, dettagli)) ++mutate;
        if (attese.note.contains(rid)) continue;
        const auto nuova = std::find_if(mancanti.begin(), mancanti.end(), [&](const RigaScritta& riga) {
            return contiene(lette, riga, dettagli);
        });
        if (nuova == mancanti.end()) return false;
        mancanti.erase(nuova);
    }
    return mutate == attese.mutate.size() && mancanti.empty();
}

// The columns that have to be read; a new row has written all that a changed one has.
QString colonneDaLeggere(const RigheSalvate& s) {
    if (!s.nuove.empty()) return "RID, " + nomi(s.nuove.front());
    if (!s.mutate.empty()) return "RID, " + nomi(s.mutate.begin()->second);
    return "RID";
}

std::optional<bool> dettagliRegistrati(const SalvataggioIncerto& s) {
    const Lettura righe("SELECT " + colonneDaLeggere(s.righe) +
                            " FROM DettagliMovimento WHERE FK_MOVIMENTO = " + QString::number(s.idMovimento) +
                            " AND EXTRAPROG = " + QString::number(s.extraProg),
                        sorgente());
    if (!righe) return std::nullopt;
    return coincidono(*righe, s.righe);
}

}  // namespace

RigheSalvate descriviRighe(const Vendita& v, int idMovimento, int extraProg, bool trasferimento) {
    const FlexVB& g = v.flxVB;
    const auto scritta = [&](int r, int pos, bool nuova) {
        RigaScritta colonne = colonneRiga({g, r, idMovimento, extraProg, pos, {}, trasferimento}, nuova);
        std::erase_if(colonne, [](const auto& colonna) { return colonna.first == colonnaTaglio; });
        return colonne;
    };
    RigheSalvate s;
    int pos = 0;
    for (int r = 1; r <= g.ultima(); ++r) {
        if (g.viva(r)) ++pos;
        const int rid = g.chiave(r, Colonna::Rid);
        const int stato = g.gestione(r);
        if (rid > 0) s.note.insert(rid);
        if (stato == RigaCancellata && rid > 0) s.cancellate.insert(rid);
        if (stato == RigaModificata && rid > 0) s.mutate[rid] = scritta(r, pos, false);
        const bool nuova = stato == RigaNuova || (stato == RigaModificata && rid < 1);
        if (nuova) s.nuove.push_back(scritta(r, pos, true));
    }
    return s;
}

QStringList descriviSchermo(const Vendita& v) {
    QStringList s{v.txtData.testo(), QString::number(v.cliente()), QString::number(v.idTipoDocumento),
                  QString::number(v.idPagamento), QString::number(v.chkPagato.valore())};
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        for (int c = 0; c < numeroColonne; ++c)
            s << v.flxVB.cella(r, static_cast<Colonna>(c));
    }
    return s;
}

EsitoCommit cercaSalvataggio(OperatorPort& operatore, const SalvataggioIncerto& s) {
    return cercaDopoCommitPerso(operatore, sorgente(), [&s]() -> std::optional<bool> {
        const std::optional<bool> testata = testataRegistrata(s);
        if (testata != true || !s.conRighe()) return testata;
        return dettagliRegistrati(s);
    });
}
