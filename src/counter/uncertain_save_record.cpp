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
    QJsonObject mutate;
    for (const auto& [rid, colonne] : s.righe.mutate) {
        mutate[QString::number(rid)] = colonneDi(colonne);
    }
    QJsonArray nuove;
    for (const RigaScritta& riga : s.righe.nuove) {
        nuove.append(colonneDi(riga));
    }
    // The receipt's number is left out: the list that it counts in begins anew with each program.
    return {{"movimento", s.idMovimento},
            {"extraProg", s.extraProg},
            {"testata", colonneDi(s.testata)},
            {"note", jsonDi(s.righe.note)},
            {"cancellate", jsonDi(s.righe.cancellate)},
            {"mutate", mutate},
            {"nuove", nuove},
            {"parte", static_cast<int>(s.parte)},
            {"schermo", QJsonArray::fromStringList(s.schermo)}};
}

SalvataggioIncerto salvataggioDa(const QJsonObject& o) {
    SalvataggioIncerto s{o["movimento"].toInt(), o["extraProg"].toInt(), colonneDa(o["testata"]), {}, {}};
    s.parte = static_cast<SalvataggioIncerto::Parte>(o["parte"].toInt());
    s.righe.note = chiaviDa(o["note"]);
    s.righe.cancellate = chiaviDa(o["cancellate"]);
    const QJsonObject mutate = o["mutate"].toObject();
    for (auto m = mutate.begin(); m != mutate.end(); ++m) {
        s.righe.mutate[m.key().toInt()] = colonneDa(m.value());
    }
    for (const QJsonValue& nuova : o["nuove"].toArray()) {
        s.righe.nuove.push_back(colonneDa(nuova));
    }
    for (const QJsonValue& riga : o["schermo"].toArray()) {
        s.schermo << riga.toString();
    }
    return s;
}
