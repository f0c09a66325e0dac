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
// The till rounds the sum of the rows, 1.985, and no row of it.
const QByteArray rigaFrazione(
    "REPPROVA\xA4"
    "citt\xE0 \x80\xA4"
    "1.5\xA4"
    "1.99\xA4"
    "1\xA4"
    "22\xA4");
const QByteArray rigaReso(
    "REPPROVA\xA4"
    "RESO DI PROVA\xA4"
    "-1\xA4"
    "1\xA4"
    "1\xA4"
    "22\xA4");
const QByteArray totaleMisto("TOT1.99\xA4");
const QByteArray rigaNulla(
    "REPPROVA\xA4"
    "RIGA DI PROVA\xA4"
    "Null\xA4"
    "1.5\xA4"
    "1\xA4"
    "Null\xA4");
constexpr int attesaSilenzio = 300;  // milliseconds
constexpr int giriDueInsieme = 3;
const QByteArray inizioErrore(
    "\x02"
    "ERR");
// STX, "ERR", two digits of code, one character, two digits of checksum, ETX.
constexpr qsizetype lunghezzaErrore = 10;

QString leggibile(QByteArray byte) {
    byte.replace('\x02', "<STX>").replace('\x03', "<ETX>").replace('\x06', "<ACK>").replace('\x15', "<NAK>");
    return QString::fromLatin1(byte);
}

bool cifra(char c) {
    return c >= '0' && c <= '9';
}

// What is wrong with a frame that is to say an error; the till cuts it by position.
QString difettoErrore(const QByteArray& risposta, bool inPezzi) {
    const QString quale = "la cornice d'errore " + leggibile(risposta) + " ";
    if (inPezzi) return quale + "arriva in più pezzi: la cassa non la vede";
    if (risposta.size() < lunghezzaErrore) return quale + "è troppo corta: ha meno di 10 byte";
    if (!cifra(risposta[4]) || !cifra(risposta[5])) return quale + "non ha un codice di due cifre";
    const QByteArray scritto = risposta.chopped(1).right(2);
    if (!cifra(scritto[0]) || !cifra(scritto[1])) return quale + "non ha un checksum di due cifre";
    const QByteArray giusto = controllo(risposta.mid(1).chopped(3)).rightJustified(2, '0');
    if (scritto != giusto) return quale + "ha il checksum sbagliato: doveva essere " + leggibile(giusto);
    return {};
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
        const QString difetto = accetta({"RST", riga, totale});
        return difetto.isEmpty() ? tace() : difetto;
    }
    QString scontrinoMisto() { return accetta({"RST", rigaFrazione, rigaReso, totaleMisto}); }
    QString senzaEffetto() {
        QString difetto = accetta({"RST", riga});
        if (!difetto.isEmpty()) return difetto;
        mCassa.manda(cornice(riga).chopped(2) + "x\x03");
        if (leggi().genere == Risposta::Ack) return "accetta una riga con il checksum sbagliato";
        difetto = accetta({totale});
        return difetto.isEmpty() ? difetto : difetto + " (dopo una riga rifiutata)";
    }
    QString campoNullo() {
        const QString difetto = accetta({"RST"});
        if (!difetto.isEmpty()) return difetto;
        mCassa.manda(cornice(rigaNulla));
        return vuoleRisposta("una riga con un campo Null");
    }
    QString byteAByte() {
        for (const char c : cornice("RST")) {
            mCassa.manda(QByteArray(1, c));
        }
        return vuoleAck("RST a un byte per volta");
    }
    // The two answers of a good program meet only when this one was kept from reading.
    QString dueInsieme() {
        for (int giro = 0; giro < giriDueInsieme; ++giro) {
            mCassa.manda(cornice("RST") + cornice(riga));
            const QString prima = vuoleAck("la prima di due cornici insieme");
            const bool unite = mCassa.avanza();
            const QString difetto = prima.isEmpty() ? vuoleAck("la seconda di due cornici insieme") : prima;
            if (!difetto.isEmpty() || !unite) return difetto;
        }
        return "risponde a due cornici in un colpo solo: la cassa vede soltanto la prima risposta";
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
        const QString difetto = accetta({"RST", riga, "RST", riga, totale});
        return difetto.isEmpty() ? difetto : difetto + " (RST in mezzo a uno scontrino)";
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
    struct Risposta {
        enum { Nessuna, Ack, Rifiuto, Altra } genere;
        QByteArray byte;
        QString difetto = {};  // of a refusal
    };
    Risposta leggi() {
        const QByteArray byte = mCassa.risposta();
        if (byte.isEmpty()) return {Risposta::Nessuna, byte};
        if (byte == ack) return {Risposta::Ack, byte};
        if (byte == nak) return {Risposta::Rifiuto, byte};
        if (!byte.startsWith(inizioErrore)) return {Risposta::Altra, byte};
        return {Risposta::Rifiuto, byte, difettoErrore(byte, mCassa.inPezzi())};
    }
    // One command after the other; what is wrong with the first that is not taken.
    QString accetta(const QList<QByteArray>& comandi) {
        for (const QByteArray& comando : comandi) {
            mCassa.manda(cornice(comando));
            const QString difetto = vuoleAck(comando);
            if (!difetto.isEmpty()) return difetto;
        }
        return {};
    }
    QString vuoleAck(const QByteArray& cosa) {
        const Risposta risposta = leggi();
        if (risposta.genere == Risposta::Ack) return {};
        if (risposta.genere == Risposta::Nessuna) return "nessuna risposta a " + leggibile(cosa);
        return "a " + leggibile(cosa) + " risponde " + leggibile(risposta.byte);
    }
    QString vuoleRifiuto(const QString& cosa) {
        const Risposta risposta = leggi();
        if (risposta.genere == Risposta::Rifiuto) return risposta.difetto;
        return risposta.genere == Risposta::Ack ? "accetta " + cosa
                                                : "non rifiuta " + cosa + ": " + leggibile(risposta.byte);
    }
    QString vuoleRisposta(const QString& cosa) {
        const Risposta risposta = leggi();
        if (risposta.genere == Risposta::Nessuna) return "nessuna risposta a " + cosa;
        return risposta.genere == Risposta::Altra ? "a " + cosa + ": " + leggibile(risposta.byte)
                                                  : risposta.difetto;
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
    {"Accetta un reso, una frazione e caratteri accentati", &Prove::scontrinoMisto},
    {"Accetta una cornice che arriva un byte per volta", &Prove::byteAByte},
    {"Risponde a ciascuna di due cornici arrivate insieme, una risposta dopo l'altra", &Prove::dueInsieme},
    {"Rifiuta un checksum sbagliato", &Prove::controlloSbagliato},
    {"Non tiene nulla di una riga rifiutata", &Prove::senzaEffetto},
    {"Risponde a una riga con un campo Null", &Prove::campoNullo},
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
