#include "sale/flxvb.h"

#include "core/numbers.h"
#include "core/run_time_error.h"
#include "core/value_helpers.h"
#include "sale/totals.h"

const QString& FlexVB::intestazione() {
    static const QString formato =
        "Key|   |Mar|Codice       |ID_PRODOTTO|Descrizione           |Id Iva|CodIva|Desc Iva|IVA  |Q.tà  "
        "|OldQuantità|ID_UM|U.M.|P.Listino|Sconto%  |Sc1|Sc2|Sc3|P.Netto|P.Netto Esteso|Importo |Gestione|RID"
        "|Taglio|IDDIstintaBase|ScNetto|TotPrNetto|IvaProd|TotIvaProd|IDVenditore|DescVenditore|Ora"
        "|ElencoSpeciale|BloccaPrezzo";
    return formato;
}

QStringList FlexVB::titoli() {
    QStringList titoli = intestazione().split('|');
    for (QString& titolo : titoli) {
        titolo = titolo.trimmed();
    }
    return titoli;
}

bool FlexVB::mostrata(Colonna colonna, int prezzoType) {
    switch (colonna) {
        case Colonna::Iva:
            return prezzoType <= 0;
        case Colonna::Icona:
        case Colonna::Marca:
        case Colonna::Codice:
        case Colonna::Descrizione:
        case Colonna::Quantita:
        case Colonna::Um:
        case Colonna::ScontoTesto:
        case Colonna::Importo:
            return true;
        default:
            return false;
    }
}

bool FlexVB::allineataADestra(Colonna colonna) {
    switch (colonna) {
        case Colonna::Iva:
        case Colonna::Quantita:
        case Colonna::Um:
        case Colonna::ScontoTesto:
        case Colonna::Importo:
            return true;
        default:
            return false;
    }
}

FlexVB::Riga& FlexVB::riga(int numero) {
    if (numero < 1 || numero > ultima()) throw RunTimeError(RunTimeError::IndiceNonValido);
    return mRighe[static_cast<size_t>(numero) - 1];
}

const FlexVB::Riga& FlexVB::riga(int numero) const {
    return const_cast<FlexVB*>(this)->riga(numero);
}

void FlexVB::rigaCambiata(int numero) {
    emit dataChanged(index(numero - 1, 0), index(numero - 1, numeroColonne - 1));
}

const QString& FlexVB::cella(int numero, Colonna colonna) const {
    return riga(numero).celle[colonna];
}

void FlexVB::scrivi(int numero, Colonna colonna, const QString& testo) {
    Riga& questa = riga(numero);
    QString& cella = questa.celle[colonna];
    if (cella == testo) return;
    if (colonna == Colonna::Gestione) questa.gestione = valIntero(testo);
    cella = testo;
    questa.revisione = ++mRevisione;
    const QModelIndex indice = index(numero - 1, static_cast<int>(colonna));
    emit dataChanged(indice, indice);
}

Currency FlexVB::currency(int numero, Colonna colonna) const {
    return getValoreCurrency(cella(numero, colonna));
}
float FlexVB::single(int numero, Colonna colonna) const {
    return getValoreSingle(cella(numero, colonna));
}
int FlexVB::chiave(int numero, Colonna colonna) const {
    return valIntero(cella(numero, colonna));
}

bool FlexVB::haElementi() const {
    for (int r = 1; r <= ultima(); ++r) {
        if (viva(r) || chiave(r, Colonna::Rid) > 0) return true;
    }
    return false;
}

int FlexVB::inserisci(int posto, Riga nuova) {
    nuova.revisione = ++mRevisione;
    beginInsertRows({}, posto - 1, posto - 1);
    mRighe.insert(mRighe.begin() + (posto - 1), std::move(nuova));
    if (mSelezionata >= posto) ++mSelezionata;
    if (mCorrente >= posto) ++mCorrente;
    endInsertRows();
    return posto;
}

int FlexVB::aggiungi(int posizione) {
    return inserisci(posizione < 1 || posizione > ultima() ? ultima() + 1 : posizione, Riga());
}

int FlexVB::aggiungi(TestiRiga celle) {
    Riga nuova;
    nuova.gestione = valIntero(celle[Colonna::Gestione]);
    nuova.celle = std::move(celle);
    return inserisci(ultima() + 1, std::move(nuova));
}

void FlexVB::svuota() {
    beginResetModel();
    mRighe.clear();
    mSelezionata = 0;
    mCorrente = 0;
    endResetModel();
}

bool FlexVB::nascosta(int numero) const {
    return riga(numero).nascosta;
}

void FlexVB::nascondi(int numero, bool nascosta) {
    riga(numero).nascosta = nascosta;
    rigaCambiata(numero);
}

int FlexVB::coloreTesto(int numero) const {
    return riga(numero).coloreTesto;
}

void FlexVB::coloreTesto(int numero, int colore) {
    riga(numero).coloreTesto = colore;
    rigaCambiata(numero);
}

bool FlexVB::piegata(int numero) const {
    return riga(numero).piegata;
}

void FlexVB::piega(int numero, bool piegata) {
    riga(numero).piegata = piegata;
    rigaCambiata(numero);
}

const QString& FlexVB::listinoLetto(int numero) const {
    return riga(numero).listinoLetto;
}

void FlexVB::listinoLetto(int numero, const QString& prezzo) {
    riga(numero).listinoLetto = prezzo;
    rigaCambiata(numero);
}

void FlexVB::seleziona(int numero) {
    const int prima = mSelezionata;
    mSelezionata = numero;
    if (prima > 0 && prima <= ultima()) rigaCambiata(prima);
    if (numero > 0) rigaCambiata(numero);
}

int FlexVB::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : ultima();
}

int FlexVB::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : numeroColonne;
}

QVariant FlexVB::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid() || indice.row() >= ultima()) return {};
    const Riga& questa = mRighe[static_cast<size_t>(indice.row())];
    switch (ruolo) {
        case Qt::DisplayRole:
            return questa.celle[static_cast<Colonna>(indice.column())];
        case RuoloSelezionata:
            return indice.row() + 1 == mSelezionata;
        case RuoloColoreTesto:
            return questa.coloreTesto;
        case RuoloNascosta:
            return questa.nascosta;
        case RuoloAllineaDestra:
            return allineataADestra(static_cast<Colonna>(indice.column()));
        default:
            return segno(questa, ruolo);
    }
}

namespace {

// The words behind the marks of a row's price.
QString avvisiPrezzo(bool zero, bool cambiato, bool bloccato) {
    QStringList avvisi;
    if (zero) avvisi << "Attenzione: la riga è a prezzo zero";
    if (cambiato) avvisi << "Prezzo cambiato a mano: non segue più il listino";
    if (bloccato) avvisi << "Prezzo bloccato";
    return avvisi.join('\n');
}

}  // namespace

// What a view tells of a row besides its texts.
QVariant FlexVB::segno(const Riga& questa, int ruolo) const {
    const auto cella = [&](Colonna colonna) { return questa.celle[colonna]; };
    switch (ruolo) {
        case RuoloTestaDistinta:
            return testaDistinta(cella(Colonna::Codice)) && cella(Colonna::IdDistintaBase).isEmpty();
        case RuoloPiegata:
            return questa.piegata;
        case RuoloComponente:
            return !cella(Colonna::IdDistintaBase).isEmpty();
        case RuoloPrezzoCambiato:
            return !questa.listinoLetto.isEmpty() && cella(Colonna::PrezzoListino) != questa.listinoLetto;
        case RuoloPrezzoBloccato:
            return cella(Colonna::BloccaPrezzo) == "1";
        case RuoloPrezzoZero: {
            const auto importo = seDouble(cella(Colonna::Importo));
            return importo && *importo == 0.0;
        }
        case Qt::ToolTipRole:
            return avvisiPrezzo(segno(questa, RuoloPrezzoZero).toBool(),
                                segno(questa, RuoloPrezzoCambiato).toBool(),
                                segno(questa, RuoloPrezzoBloccato).toBool());
        default:
            return {};
    }
}

QVariant FlexVB::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
    if (verso != Qt::Horizontal || ruolo != Qt::DisplayRole) return {};
    return titoli().value(sezione);
}
