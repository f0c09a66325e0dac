#include <algorithm>
#include <cstdio>

#include <QFile>
#include <QFileInfo>

#include "scenari/scena.h"

// Plays a scene and compares what the shop saw with the golden text beside it.

namespace {

const char* const uso =
    "Usage: bottegon-scena [--aggiorna | --stampa] SCENE.scena...\n"
    "Plays the scenes and compares each with SCENE.atteso beside it; the differences are printed.\n"
    "  --aggiorna  write what was seen as the new SCENE.atteso\n"
    "  --stampa    print what was seen, compare nothing\n";

QStringList righe(const QString& percorso, bool& letto) {
    QFile file(percorso);
    letto = file.open(QIODevice::ReadOnly);
    if (!letto) return {};
    QStringList tutte = QString::fromUtf8(file.readAll()).split('\n');
    if (tutte.last().isEmpty()) tutte.removeLast();
    return tutte;
}

void stampa(const QString& prima, const QStringList& tutte) {
    for (const QString& riga : tutte) {
        std::printf("%s%s\n", qUtf8Printable(prima), qUtf8Printable(riga));
    }
}

// The lines that differ, between what both have in front and behind.
void stampaDifferenze(const QStringList& atteso, const QStringList& visto) {
    qsizetype davanti = 0;
    while (davanti < std::min(atteso.size(), visto.size()) && atteso[davanti] == visto[davanti]) {
        ++davanti;
    }
    qsizetype dietro = 0;
    while (dietro < std::min(atteso.size(), visto.size()) - davanti &&
           atteso[atteso.size() - 1 - dietro] == visto[visto.size() - 1 - dietro]) {
        ++dietro;
    }
    std::printf("@ %lld\n", static_cast<long long>(davanti + 1));
    stampa(" ", atteso.mid(std::max<qsizetype>(0, davanti - 3), std::min<qsizetype>(3, davanti)));
    stampa("-", atteso.mid(davanti, atteso.size() - davanti - dietro));
    stampa("+", visto.mid(davanti, visto.size() - davanti - dietro));
    stampa(" ", atteso.mid(atteso.size() - dietro, 3));
}

bool aggiorna(const QString& percorso, const QStringList& visto) {
    QFile file(percorso);
    const QByteArray testo = (visto.join('\n') + '\n').toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(testo) == testo.size();
}

bool confronta(const QString& percorso, const QStringList& visto) {
    bool letto = false;
    const QStringList atteso = righe(percorso, letto);
    if (!letto) std::printf("manca %s\n", qUtf8Printable(percorso));
    if (letto && atteso == visto) return true;
    stampaDifferenze(atteso, visto);
    return false;
}

enum class Modo { Confronta, Aggiorna, Stampa };

// The process's answer: 0 well, 1 not as told, 2 not to be read.
int recita(const QString& percorso, Modo modo) {
    const QFileInfo scena(percorso);
    bool letto = false;
    const QStringList copione = righe(scena.filePath(), letto);
    if (!letto) {
        std::fprintf(stderr, "%s: cannot be read\n", qUtf8Printable(scena.filePath()));
        return 2;
    }
    Scena recita;
    const bool riuscita = recita.recita(copione);
    const QString atteso = scena.path() + "/" + scena.completeBaseName() + ".atteso";
    switch (modo) {
        case Modo::Stampa:
            stampa("", recita.protocollo());
            return riuscita ? 0 : 1;
        case Modo::Aggiorna:
            if (riuscita && aggiorna(atteso, recita.protocollo())) return 0;
            stampa("", recita.protocollo());
            return 1;
        case Modo::Confronta:
            break;
    }
    return confronta(atteso, recita.protocollo()) && riuscita ? 0 : 1;
}

}  // namespace

int main(int quanti, char** argomenti) {
    QStringList scene;
    for (int i = 1; i < quanti; ++i) {
        scene << QString::fromLocal8Bit(argomenti[i]);
    }
    Modo modo = Modo::Confronta;
    if (!scene.isEmpty() && scene.first().startsWith('-')) {
        const QString opzione = scene.takeFirst();
        if (opzione != "--aggiorna" && opzione != "--stampa") scene.clear();
        modo = opzione == "--stampa" ? Modo::Stampa : Modo::Aggiorna;
    }
    if (scene.isEmpty()) {
        std::fputs(uso, stderr);
        return 2;
    }
    int peggiore = 0;
    for (const QString& scena : scene) {
        const int esito = recita(scena, modo);
        if (esito != 0) std::printf("^ %s\n", qUtf8Printable(scena));
        peggiore = std::max(peggiore, esito);
    }
    return peggiore;
}
