#include "scenari/scena.h"

#include <map>

#include "core/errors.h"
#include "data/gateway.h"
#include "doubles/celle.h"

namespace {

const std::map<QString, int>& tasti() {
    static const std::map<QString, int> tutti{
        {"F2", Qt::Key_F2},   {"F4", Qt::Key_F4},        {"F5", Qt::Key_F5},
        {"F6", Qt::Key_F6},   {"F8", Qt::Key_F8},        {"F9", Qt::Key_F9},
        {"F10", Qt::Key_F10}, {"F11", Qt::Key_F11},      {"F12", Qt::Key_F12},
        {"Su", Qt::Key_Up},   {"Giu", Qt::Key_Down},     {"Sinistra", Qt::Key_Left},
        {"Tab", Qt::Key_Tab}, {"Destra", Qt::Key_Right}, {"Indietro", Qt::Key_Backspace},
    };
    return tutti;
}

// The pieces of a line parted by "|", as many as asked for.
QStringList pezzi(const QString& resto, int quanti) {
    QStringList tutti = resto.split('|');
    for (QString& pezzo : tutti) {
        pezzo = pezzo.trimmed();
    }
    while (tutti.size() < quanti) {
        tutti << QString();
    }
    return tutti;
}

int chiaveIva(const QString& percentuale) {
    if (percentuale == "10") return 2;
    return percentuale == "4" ? 3 : 1;
}

QString statoRiga(int gestione) {
    switch (gestione) {
        case RigaNuova:
            return "nuova";
        case RigaModificata:
            return "modificata";
        case RigaCancellata:
            return "cancellata";
        default:
            return "salvata";
    }
}

}  // namespace

Scena::Scena() {
    gErr.impostaOperatore(&mOperatore);
    gAdo.impostaOperatore(&mOperatore);
    impostaFabbricaConti([this](int indice) {
        mConti.push_back(std::make_unique<ContoDiProva>(indice, mOperatore));
        mConti.back()->quandoOffre = [this](Recordset& righe, const QString& colonne) {
            stampaElenco(righe, colonne);
        };
        return mConti.back().get();
    });
    impostaChiudiApplicazione([this] { mRighe << "  fine del programma"; });
}

Scena::~Scena() {
    for (ContoAperto& aperto : gConti) {
        aperto.reset();
    }
}

ContoDiProva* Scena::davanti() {
    return static_cast<ContoDiProva*>(gConti.at(static_cast<size_t>(mConto)).get());
}

bool Scena::recita(const QStringList& copione) {
    for (const QString& riga : copione) {
        if (riga.isEmpty() || riga.startsWith('#')) continue;
        mRighe << "> " + riga;
        const auto blanco = riga.indexOf(' ');
        const QString parola = blanco < 0 ? riga : riga.left(blanco);
        if (!esegui(parola, blanco < 0 ? QString() : riga.mid(blanco + 1))) {
            mRighe << "  NON CAPITO";
            return false;
        }
        if (mOperatore.sbagliata) return false;
    }
    for (const QString& domanda : mOperatore.maiPoste()) {
        mRighe << "DOMANDA MAI POSTA: " + domanda;
    }
    return mOperatore.maiPoste().isEmpty();
}

bool Scena::esegui(const QString& parola, const QString& resto) {
    if (parola == "prodotto") return prodotto(resto);
    if (parola == "cliente") return cliente(resto);
    if (parola == "ora") return ora(resto);
    if (parola == "conto") return conto(resto);
    if (parola == "libri") return libri();
    if (parola == "rispondi") return rispondi(resto);
    ContoDiProva* aperto = davanti();
    if (aperto == nullptr) return false;
    if (parola == "scansiona") return aperto->scansiona(resto), true;
    if (parola == "digita") return aperto->digita(resto), true;
    if (parola == "invio") return aperto->invio(), true;
    if (parola == "tasto") return tasto(resto);
    if (parola == "campo") return campo(resto);
    if (parola == "riga") return aperto->clicRiga(resto.toInt()), true;
    if (parola == "scegli") return scegli(resto);
    if (parola == "mostra") return mostra();
    return false;
}

// ---- The shop

bool Scena::prodotto(const QString& resto) {
    const QStringList p = pezzi(resto, 5);
    Prodotto nuovo;
    nuovo.codice = p[0];
    nuovo.listino1 = p[1].toDouble();
    nuovo.idIva = chiaveIva(p[2]);
    nuovo.barcode = p[3];
    nuovo.descrizione = p[4];
    return nuovo.listino1 > 0 && mNegozio.prodotto(nuovo) > 0;
}

bool Scena::cliente(const QString& resto) {
    const QStringList p = pezzi(resto, 2);
    return p[0].toInt() > 0 && mNegozio.cliente(p[0].toInt(), p[1]) > 0;
}

bool Scena::ora(const QString& resto) {
    const QDateTime istante = QDateTime::fromString(resto, "dd/MM/yyyy HH:mm");
    if (istante.isValid()) mNegozio.orologio.istante = istante;
    return istante.isValid();
}

// ---- The operator

bool Scena::conto(const QString& resto) {
    const int numero = resto.toInt();
    if (numero < 1 || numero > contiMassimi) return false;
    mConto = numero - 1;
    getConto(mConto, mConto > 0);
    return true;
}

bool Scena::campo(const QString& nome) {
    Campo* trovato = davanti()->vendita().elenco.trova(nome);
    if (trovato == nullptr) return false;
    davanti()->clic(*trovato);
    return true;
}

bool Scena::tasto(const QString& nome) {
    const bool shift = nome.startsWith("Shift+");
    const auto trovato = tasti().find(shift ? nome.mid(6) : nome);
    if (trovato == tasti().end()) return false;
    davanti()->tasto(trovato->second, shift ? Qt::ShiftModifier : Qt::NoModifier);
    return true;
}

bool Scena::rispondi(const QString& resto) {
    const QString risposta = resto.section(' ', 0, 0);
    const QString domanda = resto.section(' ', 1);
    const std::map<QString, OperatorPort::Risposta> tutte{{"SI", OperatorPort::Risposta::Si},
                                                          {"NO", OperatorPort::Risposta::No},
                                                          {"ANNULLA", OperatorPort::Risposta::Annulla}};
    const auto trovata = tutte.find(risposta);
    if (trovata == tutte.end() || domanda.isEmpty()) return false;
    mOperatore.prepara(domanda, trovata->second);
    return true;
}

bool Scena::scegli(const QString& resto) {
    const int riga = resto.toInt();
    davanti()->scelte.push_back(riga > 0 ? std::optional(riga - 1) : std::nullopt);
    return riga > 0 || resto == "nulla";
}

// ---- What is seen

void Scena::stampaElenco(Recordset& righe, const QString& colonne) {
    mRighe << "  elenco:";
    for (righe.moveFirst(); !righe.eof(); righe.moveNext()) {
        QStringList celle;
        for (const QString& colonna : colonne.split('|', Qt::SkipEmptyParts)) {
            celle << righe.testo(colonna.section(u'¤', 2, 2));
        }
        mRighe << "    " + celle.join(" | ");
    }
    righe.moveFirst();
}

void Scena::mostraRiga(const Vendita& v, int riga) {
    QStringList celle{v.flxVB.corrente() == riga ? "*" : " "};
    for (const Colonna colonna :
         {Colonna::Codice, Colonna::Descrizione, Colonna::Quantita, Colonna::PrezzoListino,
          Colonna::ScontoTesto, Colonna::PrezzoNetto, Colonna::Iva, Colonna::Importo}) {
        celle << v.flxVB.cella(riga, colonna);
    }
    mRighe << "  " + celle.join(" | ") + " | " + statoRiga(v.flxVB.gestione(riga));
}

bool Scena::mostra() {
    const Vendita& v = davanti()->vendita();
    mRighe << QString("  vendita %1/%2 del %3, cliente %4, %5")
                  .arg(v.txtProg.testo(), v.txtSottoProg.testo(), v.txtData.testo(), v.lblDescCliente.testo(),
                       v.pctSave.visibile() ? "non salvata" : "nulla da salvare");
    for (int r = 1; r <= v.flxVB.ultima(); ++r) {
        mostraRiga(v, r);
    }
    mRighe << QString("  riga aperta: %1 | %2 | q.ta' %3 | p.fin %4")
                  .arg(v.txtCodProdotto.testo(), v.txtDescProdotto.testo(), v.txtQta.testo(),
                       v.txtPrezzoFinito.testo());
    mRighe << QString("  righe %1, pezzi %2, lordo %3, netto %4, TOTALE %5, ultima vendita %6")
                  .arg(v.lblTotRighe.testo(), v.lblTOtQta.testo(), v.lblTotLordo.testo(),
                       v.lblTotNetto.testo(), v.lblMainDisplay.testo(), v.lblUltimaVendita.testo());
    return true;
}

// Rows of a query with money and quantities in so many decimals, by column from 0.
void Scena::stampaRighe(const QString& query, const std::map<int, int>& decimali) {
    for (Recordset righe = mNegozio.interroga(query); !righe.eof(); righe.moveNext()) {
        QStringList celle;
        for (int i = 0; i < righe.campi(); ++i) {
            const auto cifre = decimali.find(i);
            celle << (cifre == decimali.end()
                          ? testoCella(righe.campo(i))
                          : QString::number(righe.campo(i).toDouble(), 'f', cifre->second));
        }
        mRighe << "  " + celle.join(" | ");
    }
}

bool Scena::libri() {
    stampaRighe("SELECT 'contatore ' || FK_NUMERATORE, ANNO, NUMERO, NOTE FROM Contatori ORDER BY ANNO", {});
    stampaRighe(
        "SELECT 'movimento ' || M.RID, M.PROGRESSIVO, M.DATA, A.DENOMINAZIONE, TOTIMPONIBILE, TOTIMPOSTA, "
        "TOTDOCUMENTO FROM Movimenti M LEFT JOIN Anagrafiche A ON A.RID = M.FK_CONTROPARTITA ORDER BY M.RID",
        {{4, 4}, {5, 4}, {6, 4}});
    stampaRighe(
        "SELECT 'riga ' || FK_MOVIMENTO || '/' || EXTRAPROG || '/' || POS, CODPRODOTTO, DESCPRODOTTO, "
        "QUANTITA, PREZZO, TOTPREZZONETTO, TOTALEIVA, TOTALERIGA, ORA FROM DettagliMovimento ORDER BY "
        "FK_MOVIMENTO, EXTRAPROG, POS",
        {{3, 2}, {4, 4}, {5, 4}, {6, 4}, {7, 4}});
    return true;
}
