#include "register/day_at_the_till.h"

#include <array>

#include "data/server_driver.h"

namespace {

const QByteArray ack("\6");
const QByteArray nak("\x15");

}  // namespace

void RotoloDiCarta::stampa(const QByteArray& cornice) {
    const QByteArray corpo = cornice.mid(1);
    if (corpo.startsWith("RST")) {
        mRighe.clear();
    } else if (corpo.startsWith("REP")) {
        mRighe << QString::fromLatin1(corpo.split('\xA4').value(2));
    } else if (corpo.startsWith("TOT")) {
        mScontrini.push_back(mRighe);
        mCause.push_back(causaInForza);
        mRighe.clear();
    }
}

Giornata::Giornata() {
    peer.risposta = [this](const QByteArray& cornice) { return accetta(cornice); };
    connetti();
    n.apriConto();
}

QByteArray Giornata::accetta(const QByteArray& cornice) {
    rotolo.stampa(cornice);
    return ack;
}

void Giornata::allaCornice(int n, const QByteArray& risposta) {
    peer.risposta = [this, n, risposta, viste = 0](const QByteArray& cornice) mutable {
        return ++viste == n ? risposta : accetta(cornice);
    };
}

int Giornata::vende() {
    auto& c = static_cast<ContoDiProva&>(*gConti[0]);
    vendiQuantita(c, "A", QString::number(++mVendite));
    c.tasto(Qt::Key_F5);
    c.tasto(Qt::Key_F2);
    return mVendite;
}

void Giornata::rimettiInOrdine() {
    peer.risposta = [this](const QByteArray& cornice) { return accetta(cornice); };
    link.attiva(true);
    if (!link.statoConnessione()) connetti();
    ASSERT_TRUE(diventa([&] { return finito(); })) << link.Buffer().toStdString();
}

bool Giornata::registrata(int vendita) const {
    return n.conta("DettagliMovimento", "QUANTITA = " + QString::number(vendita)) == 1;
}

int Giornata::stampata(int vendita) const {
    return static_cast<int>(std::count(rotolo.scontrini().begin(), rotolo.scontrini().end(),
                                       QStringList{QString::number(vendita)}));
}

void Giornata::attendiFrame(int quante) {
    ASSERT_TRUE(diventa([&] { return peer.cornici().size() == quante; }));
}

// The exchange has come to rest and does not go on by itself: the next sale pushes on what was left.
void Giornata::spingiConUnAltra() {
    lasciaArrivare();
    vende();
}

// ---- One sale under each cause

void Giornata::guasta(Causa causa) {
    cause[vende()] = causa;
}

void Giornata::vendeSenzaGuasto() {
    const int vendita = vende();
    if (!mRispostaPersa) tranquille.insert(vendita);
}

void Giornata::guastoScollegato() {
    peer.riaggancia();
    ASSERT_TRUE(diventa([&] { return !link.statoConnessione(); }));
    guasta(Causa::Scollegato);
}

void Giornata::guastoSospeso() {
    link.interrompi();
    guasta(Causa::Sospeso);
}

void Giornata::guastoAnnullato() {
    allaCornice(aCaso(1, 3), nak);
    dialoghi.attendi(aCaso(0, 1) != 0 ? DialoghiRegCassa::AnnullaTutto : DialoghiRegCassa::Interrompi);
    guasta(Causa::Annullato);
    ASSERT_TRUE(diventa([&] { return link.Buffer().isEmpty() && dialoghi.esauriti(); }));
}

void Giornata::guastoDueRisposteInUna() {
    // Two frames are in flight, and the refusal of the second one hides behind the ACK of the first.
    peer.risposta = [this, viste = 0](const QByteArray& cornice) mutable {
        if (++viste == 2) return ack + nak;
        rotolo.stampa(cornice);
        return viste == 1 ? QByteArray() : ack;
    };
    guasta(Causa::DueRisposteInUna);
    vende();
    ASSERT_TRUE(diventa([&] { return finito(); }));
}

void Giornata::guastoErroreSpezzato() {
    allaCornice(2, {});
    guasta(Causa::ErroreSpezzato);
    attendiFrame(2);
    peer.mandaASpizzichi(PeerDiProva::errore("05", "Carta"));
    spingiConUnAltra();
}

void Giornata::guastoErroreDietroAck() {
    allaCornice(2, ack + PeerDiProva::errore("05", "Carta"));
    guasta(Causa::ErroreDietroAck);
    ASSERT_TRUE(diventa([&] { return finito(); }));
}

void Giornata::guastoDueInVolo() {
    // The first of two frames in flight is refused, and the second one is what goes out again.
    peer.risposta = [this, viste = 0](const QByteArray& cornice) mutable {
        if (++viste > 2) return accetta(cornice);
        if (viste == 2) rotolo.stampa(cornice);
        return QByteArray();
    };
    guasta(Causa::DueInVolo);
    vende();
    attendiFrame(2);
    dialoghi.attendi(DialoghiRegCassa::Riprova);
    peer.manda(nak);
    ASSERT_TRUE(diventa([&] { return dialoghi.esauriti(); }));
    peer.manda(ack);
}

void Giornata::guastoDialogoChiuso() {
    allaCornice(2, nak);
    dialoghi.attendi(DialoghiRegCassa::Nessuna);
    guasta(Causa::DialogoChiuso);
    ASSERT_TRUE(diventa([&] { return dialoghi.esauriti(); }));
    spingiConUnAltra();
}

void Giornata::guastoRiprovaDueConti() {
    n.apriConto(1);
    allaCornice(2, nak);
    dialoghi.attendi(DialoghiRegCassa::Riprova);
    dialoghi.attendi(DialoghiRegCassa::Riprova);
    guasta(Causa::RiprovaDueConti);
    ASSERT_TRUE(diventa([&] { return dialoghi.esauriti(); }));
    ASSERT_TRUE(diventa([&] { return finito(); }));
    gConti[1]->scarica();
}

void Giornata::guastoRollbackDopo() {
    sondaIstruzioni() = [](const QString& sql) -> std::optional<ErroreServer> {
        if (!sql.startsWith("UPDATE Movimenti SET TOTIMPONIBILE")) return std::nullopt;
        return ErroreServer{ErroreServer::Classe::Altro, 4711, "guasto di prova", "prova"};
    };
    n.operatore.attendiAvviso("cAdoSqlServer.executeSQL -> bBottegonClientVB.salvaVendita");
    n.operatore.attendiDomanda("Attenzione Salvare la vendita corrente?", OperatorPort::Risposta::No,
                               [] { sondaIstruzioni() = {}; });
    guasta(Causa::RollbackDopo);
}

void Giornata::vendeConGuasto(Causa causa) {
    // In the order of the causes; the first one is none.
    constexpr std::array<void (Giornata::*)(), numeroCause> guasti{
        &Giornata::vendeSenzaGuasto,      &Giornata::guastoScollegato,       &Giornata::guastoSospeso,
        &Giornata::guastoAnnullato,       &Giornata::guastoDueRisposteInUna, &Giornata::guastoErroreSpezzato,
        &Giornata::guastoErroreDietroAck, &Giornata::guastoDueInVolo,        &Giornata::guastoDialogoChiuso,
        &Giornata::guastoRiprovaDueConti, &Giornata::guastoRollbackDopo,
    };
    peer.dimentica();
    rotolo.causaInForza = causa;
    (this->*guasti[static_cast<size_t>(causa)])();
    mRispostaPersa = causa == Causa::ErroreSpezzato;
    rimettiInOrdine();
    // The link is done as soon as one of two frames in flight has its answer.
    if (causa != Causa::Nessuna) lasciaArrivare();
    rotolo.causaInForza = Causa::Nessuna;
}

void Giornata::vendeConDisturbo(int disturbo) {
    peer.dimentica();
    switch (disturbo) {
        case 0:  // refused, and retried by the only screen
            allaCornice(aCaso(1, 3), nak);
            dialoghi.attendi(DialoghiRegCassa::Riprova);
            break;
        case 1:  // an error frame in one piece, and retried
            allaCornice(aCaso(1, 3), PeerDiProva::errore("05", "Carta finita"));
            dialoghi.attendi(DialoghiRegCassa::Riprova);
            break;
        case 2:  // junk behind every answer
            peer.risposta = [this](const QByteArray& cornice) { return accetta(cornice) + "\x15\2zz\3"; };
            break;
        case 3:  // the connection was lost and made again between two sales
            peer.riaggancia();
            ASSERT_TRUE(diventa([&] { return !link.statoConnessione(); }));
            connetti();
            break;
        case 4: {  // slow: the answer comes long after the sale
            peer.risposta = [this](const QByteArray& cornice) {
                rotolo.stampa(cornice);
                return QByteArray();
            };
            vende();
            for (int i = 1; i <= 3; ++i) {
                attendiFrame(i);
                lasciaArrivare();
                peer.manda(ack);
            }
            return rimettiInOrdine();
        }
        default:
            break;
    }
    vende();
    ASSERT_TRUE(diventa([&] { return finito() && dialoghi.esauriti(); }));
    rimettiInOrdine();
}
