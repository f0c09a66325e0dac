#include "counter/uncertain_save_record.h"

namespace {

QJsonArray colonneDi(const RigaScritta& riga) {
    QJsonArray colonne;
    for (const auto& [colonna, valore] : riga) {
        colonne.append(QJsonArray{colonna, valore});
    }
    return colonne;
}

RigaScritta colonneDa(const QJsonValue& valore) {
    RigaScritta riga;
    for (const QJsonValue& colonna : valore.toArray()) {
        riga.emplace_back(colonna[0].toString(), colonna[1].toString());
    }
    return riga;
}

QJsonObject righeDi(const std::map<int, RigaScritta>& righe) {
    QJsonObject perChiave;
    for (const auto& [rid, colonne] : righe) {
        perChiave[QString::number(rid)] = colonneDi(colonne);
    }
    return perChiave;
}

std::map<int, RigaScritta> righeDa(const QJsonValue& valore) {
    const QJsonObject perChiave = valore.toObject();
    std::map<int, RigaScritta> righe;
    for (auto r = perChiave.begin(); r != perChiave.end(); ++r) {
        righe[r.key().toInt()] = colonneDa(r.value());
    }
    return righe;
}

}  // namespace

QJsonArray jsonDi(const std::set<int>& chiavi) {
    QJsonArray tutte;
    for (const int chiave : chiavi) {
        tutte.append(chiave);
    }
    return tutte;
}

std::set<int> chiaviDa(const QJsonValue& valore) {
    std::set<int> tutte;
    for (const QJsonValue& chiave : valore.toArray()) {
        tutte.insert(chiave.toInt());
    }
    return tutte;
}

QJsonObject jsonDi(const SalvataggioIncerto& s) {
    // The receipt's number is left out: the list that it counts in begins anew with each program.
    return {{"movimento", s.idMovimento},         {"extraProg", s.extraProg},
            {"testata", colonneDi(s.testata)},    {"cancellate", jsonDi(s.righe.cancellate)},
            {"mutate", righeDi(s.righe.mutate)},  {"nuove", righeDi(s.righe.nuove)},
            {"parte", static_cast<int>(s.parte)}, {"schermo", QJsonArray::fromStringList(s.schermo)}};
}

SalvataggioIncerto salvataggioDa(const QJsonObject& o) {
    SalvataggioIncerto s{o["movimento"].toInt(), o["extraProg"].toInt(), colonneDa(o["testata"]), {}, {}};
    s.parte = static_cast<SalvataggioIncerto::Parte>(o["parte"].toInt());
    s.righe.cancellate = chiaviDa(o["cancellate"]);
    s.righe.mutate = righeDa(o["mutate"]);
    s.righe.nuove = righeDa(o["nuove"]);
    for (const QJsonValue& riga : o["schermo"].toArray()) {
        s.schermo << riga.toString();
    }
    return s;
}
