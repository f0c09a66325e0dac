#include "ecr/conformance.h"

#include "ecr/frame_reader.h"
#include "ecr/till_side.h"

namespace {

const QByteArray ack("\x06");
const QByteArray nak("\x15");
// Latin-1 for the field separator.
const QByteArray riga(
    "REPPROVA\xA4"
    "RIGA DI PROVA\xA4"
    "2\xA4"
    "1.5\xA4"
    "1\xA4"
    "22\xA4");
const QByteArray totale("TOT3\xA4");
constexpr int attesaSilenzio = 300;  // milliseconds

QString leggibile(QByteArray byte) {
    byte.replace('\x02', "<STX>").replace('\x03', "<ETX>").replace('\x06', "<ACK>").replace('\x15', "<NAK>");
    return QString::fromLatin1(byte);
}

bool rifiuto(const QByteArray& risposta) {
    return risposta == nak || risposta.startsWith(
                                  "\x02"
                                  "ERR");
}

// Each check answers what is wrong, or an empty text.
class Prove {
  public:
    Prove(int porta, int attesa) : mPorta(porta), mCassa(attesa) {}

    QString ascolta() {
        return mCassa.connetti(mPorta) ? QString()
                                       : "nessuno ascolta su 127.0.0.1:" + QString::number(mPorta);
    }
    QString tace() {
        const QByteArray venuti = mCassa.inatteso(attesaSilenzio);
        return venuti.isEmpty() ? QString() : "manda senza essere interrogato: " + leggibile(venuti);
    }
    QString scontrino() {
        for (const QByteArray& comando : {QByteArray("RST"), riga, totale}) {
            mCassa.manda(cornice(comando));
            const QString difetto = vuoleAck(comando);
            if (!difetto.isEmpty()) return difetto;
        }
        return tace();
    }
    QString byteAByte() {
        for (const char c : cornice("RST")) {
            mCassa.manda(QByteArray(1, c));
        }
        return vuoleAck("RST a un byte per volta");
    }
    QString dueInsieme() {
        mCassa.manda(cornice("RST") + cornice(riga));
        const QString prima = vuoleAck("la prima di due cornici insieme");
        return prima.isEmpty() ? vuoleAck("la seconda di due cornici insieme") : prima;
    }
    QString controlloSbagliato() {
        mCassa.manda("\x02RST48\x03");
        return vuoleRifiuto("una cornice con il checksum sbagliato (RST48)");
    }
    QString comandoIgnoto() {
        mCassa.manda(cornice("XYZ"));
        return vuoleRisposta("un comando sconosciuto");
    }
    QString corniceVuota() {
        mCassa.manda(cornice({}));
        return vuoleRisposta("una cornice vuota");
    }
    QString ricomincia() {
        for (const QByteArray& comando : {QByteArray("RST"), riga, QByteArray("RST"), riga, totale}) {
            mCassa.manda(cornice(comando));
            const QString difetto = vuoleAck(comando);
            if (!difetto.isEmpty()) return difetto + " (RST in mezzo a uno scontrino)";
        }
        return {};
    }
    QString ritorna() {
        mCassa.manda("\x02REPmezza");
        mCassa.riaggancia();
        if (!mCassa.connetti(mPorta)) return "non accetta un nuovo collegamento dopo che la cassa ha chiuso";
        mCassa.manda(cornice("RST"));
        return vuoleAck("RST dopo un nuovo collegamento");
    }
    QString fine() {
        mCassa.manda(cornice("OFF"));
        const QByteArray risposta = mCassa.risposta();
        if (risposta == ack || (risposta.isEmpty() && !mCassa.collegato())) return {};
        return "a OFF risponde " + leggibile(risposta);
    }

  private:
    QString vuoleAck(const QByteArray& cosa) {
        const QByteArray risposta = mCassa.risposta();
        if (risposta == ack) return {};
        if (risposta.isEmpty()) return "nessuna risposta a " + leggibile(cosa);
        return "a " + leggibile(cosa) + " risponde " + leggibile(risposta);
    }
    QString vuoleRifiuto(const QString& cosa) {
        const QByteArray risposta = mCassa.risposta();
        if (rifiuto(risposta)) return {};
        return risposta == ack ? "accetta " + cosa : "non rifiuta " + cosa + ": " + leggibile(risposta);
    }
    QString vuoleRisposta(const QString& cosa) {
        const QByteArray risposta = mCassa.risposta();
        if (risposta == ack || rifiuto(risposta)) return {};
        return risposta.isEmpty() ? "nessuna risposta a " + cosa : "a " + cosa + ": " + leggibile(risposta);
    }

    int mPorta;
    LatoCassa mCassa;
};

struct Voce {
    const char* nome;
    QString (Prove::*prova)();
};
constexpr Voce elenco[] = {
    {"Ascolta su 127.0.0.1", &Prove::ascolta},
    {"Tace finché non riceve nulla", &Prove::tace},
    {"Accetta uno scontrino, un ACK per cornice", &Prove::scontrino},
    {"Accetta una cornice che arriva un byte per volta", &Prove::byteAByte},
    {"Risponde a ciascuna di due cornici arrivate insieme", &Prove::dueInsieme},
    {"Rifiuta un checksum sbagliato", &Prove::controlloSbagliato},
    {"Risponde a un comando sconosciuto", &Prove::comandoIgnoto},
    {"Risponde a una cornice vuota", &Prove::corniceVuota},
    {"Ricomincia da capo con RST", &Prove::ricomincia},
    {"Accetta un nuovo collegamento", &Prove::ritorna},
    {"Accetta OFF", &Prove::fine},
};

}  // namespace

std::vector<Conformita::Esito> Conformita::esegui(const std::function<void(const Esito&)>& detto) {
    Prove prove(mPorta, mAttesa);
    std::vector<Esito> esiti;
    for (const Voce& voce : elenco) {
        esiti.push_back({voce.nome, (prove.*voce.prova)()});
        if (detto) detto(esiti.back());
        // Without a connection there is nothing more to check.
        if (esiti.size() == 1 && !esiti.back().difetto.isEmpty()) break;
    }
    return esiti;
}
