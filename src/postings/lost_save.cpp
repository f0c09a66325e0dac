#include "postings/lost_save.h"

#include <algorithm>
#include <iterator>

#include "core/globals.h"
#include "core/value_helpers.h"
#include "data/gateway.h"
#include "data/prepare_sql.h"
#include "data/schema.h"
#include "postings/stored_row.h"
#include "sale/vendita.h"

namespace {

using Colonne = std::vector<const char*>;

// What a later sale under the same header leaves as it is: it changes the totals, the entries, the payment.
const Colonne identitaTestata{"PROGRESSIVO", "ID_CASSA"};
// What another desk that changes a row leaves as it is.
const Colonne identitaRiga{"FK_Movimento", "ExtraProg", "FK_Prodotto", "CodProdotto"};

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

RigaScritta soltanto(const Colonne& colonne, const RigaScritta& riga) {
    RigaScritta alcune;
    std::copy_if(riga.begin(), riga.end(), std::back_inserter(alcune), [&](const auto& colonna) {
        return std::find(colonne.begin(), colonne.end(), colonna.first) != colonne.end();
    });
    return alcune;
}

// How many of these rows, by their keys, the table holds as they are told. They all tell the same columns.
std::optional<size_t> quanteNeiLibri(const char* nome, const std::map<int, RigaScritta>& righe) {
    QStringList chiavi;
    for (const auto& [rid, riga] : righe)
        chiavi << QString::number(rid);
    QStringList colonne{"RID"};
    for (const auto& [colonna, valore] : righe.begin()->second)
        colonne << colonna;
    const Lettura lette(QString("SELECT %1 FROM %2 WHERE RID IN (%3)")
                            .arg(colonne.join(", "), QString(nome), chiavi.join(", ")),
                        sorgente());
    if (!lette) return std::nullopt;
    size_t quante = 0;
    for (; !lette->eof(); lette->moveNext()) {
        if (contiene(*lette, righe.at(lette->intero("RID")), tabella(nome))) ++quante;
    }
    return quante;
}

std::optional<bool> testataNeiLibri(const SalvataggioIncerto& s, const RigaScritta& attesa) {
    const auto trovate = quanteNeiLibri("Movimenti", {{s.idMovimento, attesa}});
    return trovate ? std::optional(*trovate == 1) : std::nullopt;
}

// One of them is enough: another desk may have taken the others away since.
std::optional<bool> nuoveNeiLibri(const std::map<int, RigaScritta>& nuove) {
    std::map<int, RigaScritta> attese;
    for (const auto& [rid, riga] : nuove)
        attese[rid] = soltanto(identitaRiga, riga);
    const auto trovate = quanteNeiLibri("DettagliMovimento", attese);
    return trovate ? std::optional(*trovate > 0) : std::nullopt;
}

std::optional<bool> mutateNeiLibri(const std::map<int, RigaScritta>& mutate) {
    if (mutate.empty()) return true;
    const auto trovate = quanteNeiLibri("DettagliMovimento", mutate);
    return trovate ? std::optional(*trovate == mutate.size()) : std::nullopt;
}

// The save is there as a whole or not at all. A row that came or went tells by its key, whatever others have
// done to the document since; without such a one all that was written tells. A key alone would not do: a
// server gives it once more when what it was given for was rolled back.
std::optional<bool> registrato(const SalvataggioIncerto& s) {
    const RigheSalvate& righe = s.righe;
    const bool perChiave = s.conRighe() && !(righe.nuove.empty() && righe.cancellate.empty());
    const auto testata = testataNeiLibri(s, perChiave ? soltanto(identitaTestata, s.testata) : s.testata);
    if (testata != true || !s.conRighe()) return testata;
    if (!righe.nuove.empty()) return nuoveNeiLibri(righe.nuove);
    return righe.cancellate.empty() ? mutateNeiLibri(righe.mutate)
                                    : righeSparite(righe.cancellate, sorgente());
}

}  // namespace

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
    return cercaDopoCommitPerso(operatore, sorgente(), [&s] { return registrato(s); });
}
